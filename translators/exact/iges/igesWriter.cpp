#include "igesWriter.h"

#include <IGESBasic_Name.hxx>
#include <IGESCAFControl_Writer.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <IGESGeom_BoundedSurface.hxx>
#include <IGESGeom_TrimmedSurface.hxx>
#include <IGESSolid_Face.hxx>
#include <Interface_EntityIterator.hxx>
#include <Interface_Static.hxx>
#include <TCollection_HAsciiString.hxx>
#include <ostream>
#include <string_view>
#include <vector>

#include "exaOutput.h"
#include "exaProgress.h"
#include "exaSession.h"
#include "exaStreams.h"
#include "exaUnits.h"
#include "exaWriting.h"
#include "exaXcafWriter.h"
#include "igesAscii.h"
#include "igesFormat.h"
#include "igesParts.h"
#include "utBool.h"
#include "velTypeOption.h"
#include "vltNames.h"
#include "vltOnce.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(igesWriter)

namespace {

struct Unit {
  velLengthUnit unit;
  const char* name;
  velLengthUnit written;
};

// The format has all units except the yard.
constexpr Unit units[] = {{velLENGTH_MICROMETRE, "UM", velLENGTH_MICROMETRE},
                          {velLENGTH_MILLIMETRE, "MM", velLENGTH_MILLIMETRE},
                          {velLENGTH_CENTIMETRE, "CM", velLENGTH_CENTIMETRE},
                          {velLENGTH_METRE, "M", velLENGTH_METRE},
                          {velLENGTH_KILOMETRE, "KM", velLENGTH_KILOMETRE},
                          {velLENGTH_MICROINCH, "UIN", velLENGTH_MICROINCH},
                          {velLENGTH_MIL, "MIL", velLENGTH_MIL},
                          {velLENGTH_INCH, "INCH", velLENGTH_INCH},
                          {velLENGTH_FOOT, "FT", velLENGTH_FOOT},
                          {velLENGTH_YARD, "FT", velLENGTH_FOOT},
                          {velLENGTH_MILE, "MI", velLENGTH_MILE}};

const Unit& unit_for(velLengthUnit unit) {
  for (const Unit& known : units) {
    if (known.unit == unit) return known;
  }
  return units[1];
}

Handle(TCollection_HAsciiString) text(std::string_view value) {
  bool changed = false;
  return new TCollection_HAsciiString(iges_ascii(value, changed).c_str());
}

void set_header(const Handle(IGESData_IGESModel) & model, const utString& name) {
  IGESData_GlobalSection header = model->GlobalSection();
  header.SetSendName(text(name.view()));
  header.SetFileName(text(name.view()));
  header.SetSystemId(text("vel"));
  header.SetInterfaceVersion(text("vel"));
  header.SetReceiveName(text(name.view()));
  const std::string now = exa_time_stamp("%Y%m%d.%H%M%S");
  header.SetDate(text(now));
  header.SetLastChangeDate(text(now));
  header.SetAuthorName(text(""));
  header.SetCompanyName(text(""));
  model->SetGlobalSection(header);
}

void put_names(std::vector<exaProduct>& parts, vltOnce& findings) {
  for (exaProduct& part : parts) {
    bool changed = false;
    part.name = utString(iges_ascii(vlt_one_line(part.name), changed));
    if (changed)
      findings.count(velabsNOTE,
                     "IGES holds names in ASCII: accents are left out, and \"?\" stands for other characters");
  }
}

// The kernel adds names in the order of a table of addresses. Sort them by the order of their entities.
void order_names(const Handle(IGESData_IGESModel) & model) {
  std::vector<Handle(IGESBasic_Name)> names;
  std::vector<std::pair<Handle(IGESData_IGESEntity), Handle(IGESBasic_Name)>> owners;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const Handle(IGESData_IGESEntity) entity = model->Entity(i);
    const auto own = Handle(IGESBasic_Name)::DownCast(entity);
    if (!own.IsNull()) names.push_back(own);
    for (Interface_EntityIterator it = entity->Properties(); it.More(); it.Next()) {
      const auto name = Handle(IGESBasic_Name)::DownCast(it.Value());
      if (!name.IsNull()) owners.emplace_back(entity, name);
    }
  }
  if (names.size() != owners.size()) return;
  std::vector<Handle(TCollection_HAsciiString)> texts;
  for (const auto& [entity, name] : owners) {
    texts.push_back(name->Value());
    entity->RemoveProperty(name);
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    names[i]->Init(1, texts[i]);
    owners[i].first->AddProperty(names[i]);
  }
}

// Counts faces of solids, or bounded surfaces.
std::size_t face_count(const IGESData_IGESModel& model) {
  std::size_t count = 0;
  for (int i = 1; i <= model.NbEntities(); ++i) {
    const Handle(IGESData_IGESEntity) entity = model.Entity(i);
    count += entity->IsKind(STANDARD_TYPE(IGESSolid_Face)) || entity->IsKind(STANDARD_TYPE(IGESGeom_TrimmedSurface)) ||
             entity->IsKind(STANDARD_TYPE(IGESGeom_BoundedSurface));
  }
  return count;
}

bool put(const Handle(TDocStd_Document) & source, std::size_t faces, const velTableInstance& resources,
         const Unit& unit, velabsOfStream& stream, velabsOutput& output, const exaSession& session) {
  const bool surfaces = resources.value<velTypeOption>("ENTITY_TYPES", velTYPE_ALL) == velTYPE_SURFACES;
  // The parameters exist after the kernel's IGES module is initialised, and are read when a writer is made.
  IGESControl_Controller::Init();
  Interface_Static::SetCVal("write.iges.unit", unit.name);
  Interface_Static::SetIVal("write.iges.brep.mode", surfaces ? 0 : 1);
  // Curves in the parameters of planes, cylinders and cones have lengths as coordinates. Some programs read these in
  // the file's unit, others in millimetres. The curves in space, which are always written, bound the faces as well.
  const bool with_parameters = surfaces || unit.written == velLENGTH_MILLIMETRE;
  Interface_Static::SetIVal("write.surfacecurve.mode", with_parameters ? 1 : 0);
  IGESCAFControl_Writer writer;
  writer.SetColorMode(resources.value<utBool>("WRITE_MATERIALS", utTRUE) == utTRUE);
  writer.SetNameMode(true);
  writer.SetLayerMode(false);
  const Handle(exaProgress) progress = new exaProgress(output, 10, 80);
  const bool done = writer.Transfer(source, progress->Start());
  if (output.cancelled()) return false;
  if (!done) {
    output.message(velabsERROR, utString("its shapes cannot be written as IGES" + session.reason()));
    return false;
  }
  writer.ComputeModel();
  if (!exa_tell_missing(faces, face_count(*writer.Model()), "IGES", session.reason(), output)) return false;
  order_names(writer.Model());
  set_header(writer.Model(), exa_stem(stream.target()));
  exaOutputBuffer buffer(stream);
  std::ostream bytes(&buffer);
  bytes.imbue(std::locale::classic());
  return writer.Write(bytes, false) || !stream.good();
}

}  // namespace

igesWriter::igesWriter(velabsOfStream* stream)
    : vltDescribed(iges_format, "Writes solids and surfaces to IGES files."), stream_(*stream) {}

velabsResult igesWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& listener) {
  exaOutput output(listener);
  const velLengthUnit wanted = exa_written_unit(resources, document);
  const std::optional<double> factor = vlt_output_scale_to(wanted, resources, document, output);
  if (!factor) return velabsFAILED;
  const Unit& unit = unit_for(wanted);
  if (unit.written != wanted) output.message(velabsNOTE, "IGES is written in feet where yards are asked for");
  exaProducts products(document, "IGES", resources, *factor * vel_length_ratio(wanted, unit.written), output);
  if (!products.make()) return output.cancelled() ? velabsCANCELLED : velabsFAILED;
  exa_tell_losses(document, "IGES", true, output);
  if (products.has_assemblies()) {
    output.message(velabsNOTE,
                   "assemblies are not written as IGES: their parts stand side by side, each as often as "
                   "it occurs");
  }
  const bool with_colours = resources.value<utBool>("WRITE_MATERIALS", utTRUE) == utTRUE;
  if (with_colours && products.has_see_through_colours()) {
    output.message(velabsNOTE, "IGES holds no opacity: the colours are written without");
  }
  vltOnce findings(output);
  exaSession session(output);
  auto write = [&](const auto& parts, const auto& top, velabsOfStream& stream) {
    return session.guarded("it cannot be written", [&] {
      std::vector<exaProduct> placed;
      if (!iges_make_parts(parts, top, resources, output, placed)) return false;
      put_names(placed, findings);
      const Handle(TDocStd_Document) source =
          exa_xcaf_document(placed, iges_uses(placed), exa_millimetres(unit.written), with_colours, {}, output);
      return put(source, exa_face_count(placed), resources, unit, stream, output, session);
    });
  };
  const bool done = exa_write_files(products, resources, stream_, output, write);
  findings.tell();
  if (output.cancelled()) return velabsCANCELLED;
  return done ? velabsDONE : velabsFAILED;
}
