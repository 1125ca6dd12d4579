#include "igesContent.h"

#include <IGESBasic_SingularSubfigure.hxx>
#include <IGESData_IGESModel.hxx>
#include <TopExp_Explorer.hxx>
#include <TransferBRep.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>

#include "vltOnce.h"

namespace {

// The kernel's locations do not scale.
bool is_scaled(const IGESData_IGESEntity& entity) {
  const auto subfigure = dynamic_cast<const IGESBasic_SingularSubfigure*>(&entity);
  return subfigure && subfigure->HasScaleFactor() && subfigure->ScaleFactor() != 1;
}

}  // namespace

void iges_tell_left_out(const IGESCAFControl_Reader& reader, velabsOutput& output) {
  const Handle(IGESData_IGESModel) model = reader.IGESModel();
  const Handle(Transfer_TransientProcess) made = reader.WS()->TransferReader()->TransientProcess();
  vltOnce findings(output);
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const Handle(IGESData_IGESEntity) entity = model->Entity(i);
    if (!is_scaled(*entity)) continue;
    const TopoDS_Shape shape = TransferBRep::ShapeResult(made, entity);
    const bool has_faces = !shape.IsNull() && TopExp_Explorer(shape, TopAbs_FACE).More();
    if (!has_faces) findings.count(velabsWARNING, "scaled places of a subfigure are left out");
  }
  findings.tell();
}
