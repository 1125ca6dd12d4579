#include "stepFaults.h"

#include <Interface_Protocol.hxx>
#include <StepData_StepModel.hxx>
#include <StepGeom_CompositeCurveSegment.hxx>
#include <StepGeom_SurfacePatch.hxx>
#include <StepRepr_DefinitionalRepresentation.hxx>
#include <StepRepr_RepresentationItem.hxx>
#include <XSControl_WorkSession.hxx>
#include <algorithm>

#include "exaGeometry.h"
#include "stepAssemblies.h"
#include "vltWords.h"

namespace {

// The kernel does not report a truncated file: the missing entities are just absent.
bool has_end(std::string_view bytes) {
  constexpr std::size_t looked_at = 4096;
  bytes = vlt_without_padding(bytes);
  return bytes.substr(bytes.size() - std::min(bytes.size(), looked_at)).find("END-ISO-10303-21") != bytes.npos;
}

// Segments of curves and surfaces are not items, and curves in the parameters of surfaces have separate
// representations.
bool is_geometry(const Standard_Transient& entity) {
  return entity.IsKind(STANDARD_TYPE(StepRepr_RepresentationItem)) ||
         entity.IsKind(STANDARD_TYPE(StepRepr_DefinitionalRepresentation)) ||
         entity.IsKind(STANDARD_TYPE(StepGeom_CompositeCurveSegment)) ||
         entity.IsKind(STANDARD_TYPE(StepGeom_SurfacePatch));
}

}  // namespace

std::string step_fault(const STEPControl_Reader& reader, std::string_view bytes) {
  if (!has_end(bytes)) return "is cut off: \"END-ISO-10303-21;\" is missing at its end";
  const Handle(XSControl_WorkSession) session = reader.WS();
  const std::string fault = step_nesting(Handle(StepData_StepModel)::DownCast(session->Model())).fault();
  return fault.empty() ? exa_geometry_fault(session->Model(), session->Protocol(), is_geometry) : fault;
}
