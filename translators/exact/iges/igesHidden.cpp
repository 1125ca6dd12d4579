#include "igesHidden.h"

#include <IGESData_IGESEntity.hxx>
#include <IGESData_IGESModel.hxx>
#include <TransferBRep.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>

namespace {

// Values of the status number in the directory entry.
constexpr int blanked = 1, definition = 2, applies_not_below = 1;

// Definitions are visible through their instances, which have a separate status.
bool is_hidden(const IGESData_IGESEntity& entity) {
  return entity.BlankStatus() == blanked && entity.HierarchyStatus() != applies_not_below &&
         entity.UseFlag() != definition;
}

}  // namespace

exaHidden iges_hidden(const IGESCAFControl_Reader& reader) {
  exaHidden hidden;
  const Handle(IGESData_IGESModel) model = reader.IGESModel();
  const Handle(Transfer_TransientProcess) made = reader.WS()->TransferReader()->TransientProcess();
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const Handle(IGESData_IGESEntity) entity = model->Entity(i);
    if (is_hidden(*entity)) hidden.add(TransferBRep::ShapeResult(made, entity));
  }
  return hidden;
}
