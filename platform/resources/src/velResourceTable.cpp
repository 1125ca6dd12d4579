#include "velResourceTable.h"

#include <memory>
#include <utility>

#include "coResource.h"
#include "utBool.h"
#include "velAngularUnit.h"
#include "velDisplayOption.h"
#include "velFileFormat.h"
#include "velLengthUnit.h"
#include "velLintorVersion.h"
#include "velLintorWideCurveOption.h"
#include "velMultipleFileOption.h"
#include "velProcessingOption.h"
#include "velRepresentationOption.h"
#include "velSolidworksReadOption.h"
#include "velStepAPOption.h"
#include "velTrimOption.h"
#include "velTypeOption.h"

namespace {

template <typename T>
void add(coResourceTable& table, const char* key, T standard) {
  table.put(std::make_unique<coResource<T>>(key, std::move(standard)));
}

coResourceTable* make_table() {
  auto table = std::make_unique<coResourceTable>();
  add(*table, "LENGTH_UNIT", velLENGTH_UNSPECIFIED);
  add(*table, "CONVERT_UNITS", utTRUE);
  add(*table, "ANGULAR_UNIT", velANGLE_RADIAN);
  add(*table, "SCALE", 1.0);
  add(*table, "FILE_FORMAT", velFORMAT_BINARY);
  add(*table, "DIGITS", 0);
  add(*table, "SOLID_NAME", utString(""));
  add(*table, "TITLE", utString(""));
  add(*table, "WELD_POINTS", utTRUE);
  add(*table, "READ_MATERIALS", utTRUE);
  add(*table, "WRITE_MATERIALS", utTRUE);
  add(*table, "WRITE_NORMALS", utTRUE);
  add(*table, "WRITE_VERTEX_COLOURS", utTRUE);
  add(*table, "WRITE_FACETS", utTRUE);
  add(*table, "UP_AXIS", utString("auto"));
  add(*table, "EMBED_BUFFERS", utFALSE);
  add(*table, "CHORD_TOLERANCE", 0.0);
  add(*table, "ANGLE_TOLERANCE", 0.0);
  add(*table, "JOIN_TOLERANCE", 0.0);
  add(*table, "REPRESENTATION", velREPRESENTATION_AS_IS);
  add(*table, "TRIM", velTRIM_AS_PREFERRED);
  add(*table, "STEP_AP", velSTEP_AP214);
  add(*table, "ENTITY_TYPES", velTYPE_ALL);
  add(*table, "ALLOW_GAPS", utFALSE);
  add(*table, "SHOW_HIDDEN", utFALSE);
  add(*table, "FACET_LIMIT", 40000);
  add(*table, "PART_CONTENT", velREAD_EXACT);
  add(*table, "PROCESSING", velPROCESSING_NONE);
  add(*table, "MULTIPLE_FILES", velMULTIPLE_ONE_FILE);
  add(*table, "DISPLAY", velDISPLAY_SHADED);
  add(*table, "WIDTH", 800);
  add(*table, "HEIGHT", 600);
  add(*table, "VIEW", utString("iso"));
  add(*table, "BACKGROUND", utString("transparent"));
  add(*table, "SHOW_EDGES", utTRUE);
  add(*table, "LINTOR_VERSION", velLINTOR_LATEST);
  add(*table, "WIDE_CURVES", velWIDE_CURVE_AS_CURVE);
  return table.release();
}

}  // namespace

coResourceTable& vel_resource_table_inquire() {
  // Never destroyed, because code that runs at the end of the process may use it.
  static coResourceTable* table = make_table();
  return *table;
}
