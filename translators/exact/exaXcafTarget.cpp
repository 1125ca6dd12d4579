#include "exaXcafTarget.h"

#include <XCAFDoc_DocumentTool.hxx>

#include "exaUnits.h"

Handle(TDocStd_Document) exa_xcaf_target(double millimetres, annDocument& document, velabsOutput& output) {
  document.unit = exa_unit(millimetres);
  if (millimetres > 0 && document.unit == velLENGTH_UNSPECIFIED) {
    output.message(velabsNOTE, "its unit of length is none that is known here: the numbers become millimetres");
    document.unit = velLENGTH_MILLIMETRE;
  }
  const bool named = document.unit != velLENGTH_UNSPECIFIED;
  Handle(TDocStd_Document) target = new TDocStd_Document("XmlXCAF");
  XCAFDoc_DocumentTool::SetLengthUnit(target, named ? exa_millimetres(document.unit) : 1,
                                      UnitsMethods_LengthUnit_Millimeter);
  return target;
}
