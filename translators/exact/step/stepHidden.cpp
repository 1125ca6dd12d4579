#include "stepHidden.h"

#include <StepRepr_Representation.hxx>
#include <StepVisual_ContextDependentInvisibility.hxx>
#include <StepVisual_ContextDependentOverRidingStyledItem.hxx>
#include <StepVisual_HArray1OfInvisibleItem.hxx>
#include <StepVisual_HArray1OfLayeredItem.hxx>
#include <StepVisual_Invisibility.hxx>
#include <StepVisual_PresentationLayerAssignment.hxx>
#include <StepVisual_StyledItem.hxx>
#include <TransferBRep.hxx>
#include <unordered_set>
#include <vector>

namespace {

using Entity = Handle(Standard_Transient);

// True for entities that hide in one context, an instance or a view. The kernel cannot read a context that is an
// instance.
bool holds_in_one_context(const Entity& entity) {
  return entity->IsKind(STANDARD_TYPE(StepVisual_ContextDependentInvisibility)) ||
         entity->IsKind(STANDARD_TYPE(StepVisual_ContextDependentOverRidingStyledItem));
}

// The items of an entity that hides or is hidden, one step closer to the shapes.
std::vector<Entity> items_of(const Entity& entity) {
  std::vector<Entity> items;
  if (const auto styled = Handle(StepVisual_StyledItem)::DownCast(entity)) {
    items.push_back(styled->ItemAP242().Value());
  } else if (const auto layer = Handle(StepVisual_PresentationLayerAssignment)::DownCast(entity)) {
    for (int i = 1; !layer->AssignedItems().IsNull() && i <= layer->NbAssignedItems(); ++i) {
      items.push_back(layer->AssignedItemsValue(i).Value());
    }
  } else if (const auto group = Handle(StepRepr_Representation)::DownCast(entity)) {
    for (int i = 1; !group->Items().IsNull() && i <= group->NbItems(); ++i) items.push_back(group->ItemsValue(i));
  }
  return items;
}

}  // namespace

exaHidden step_hidden(const Handle(StepData_StepModel) & model, const Handle(Transfer_TransientProcess) & made,
                      velabsOutput& output) {
  std::vector<Entity> open;
  bool in_one_context = false;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto list = Handle(StepVisual_Invisibility)::DownCast(model->Value(i));
    if (list.IsNull() || list->InvisibleItems().IsNull()) continue;
    if (holds_in_one_context(list)) {
      in_one_context = true;
      continue;
    }
    for (int item = 1; item <= list->NbInvisibleItems(); ++item)
      open.push_back(list->InvisibleItemsValue(item).Value());
  }
  exaHidden hidden;
  std::unordered_set<const Standard_Transient*> seen;
  while (!open.empty()) {
    const Entity entity = open.back();
    open.pop_back();
    if (entity.IsNull() || !seen.insert(entity.get()).second) continue;
    if (holds_in_one_context(entity)) {
      in_one_context = true;
      continue;
    }
    hidden.add(TransferBRep::ShapeResult(made, entity));
    for (const Entity& item : items_of(entity)) open.push_back(item);
  }
  if (in_one_context) {
    output.message(velabsNOTE, "bodies that the file hides only in an instance or a view are shown");
  }
  return hidden;
}
