#include "stepStyleOrder.h"

#include <Interface_EntityIterator.hxx>
#include <Interface_GeneralLib.hxx>
#include <Interface_GeneralModule.hxx>
#include <Interface_Protocol.hxx>
#include <StepRepr_HArray1OfRepresentationItem.hxx>
#include <StepRepr_RepresentationItem.hxx>
#include <StepVisual_MechanicalDesignGeometricPresentationRepresentation.hxx>
#include <StepVisual_StyledItem.hxx>
#include <algorithm>
#include <vector>

namespace {

using Presentation = StepVisual_MechanicalDesignGeometricPresentationRepresentation;

// The number of the entity that an item colours; items without a shape go last.
int target_of(const StepData_StepModel& model, const Handle(StepRepr_RepresentationItem) & item) {
  const auto styled = Handle(StepVisual_StyledItem)::DownCast(item);
  return styled.IsNull() || styled->Item().IsNull() ? model.NbEntities() + 1 : model.Number(styled->Item());
}

// Sorts a presentation's items by the entity that they colour. Returns the first such number.
int order_items(const StepData_StepModel& model, Presentation& presentation) {
  std::vector<std::pair<int, Handle(StepRepr_RepresentationItem)>> items;
  for (int i = 1; i <= presentation.NbItems(); ++i) {
    items.emplace_back(target_of(model, presentation.ItemsValue(i)), presentation.ItemsValue(i));
  }
  if (items.empty()) return 0;
  auto by_target = [](const auto& a, const auto& b) { return a.first < b.first; };
  std::stable_sort(items.begin(), items.end(), by_target);
  const Handle(StepRepr_HArray1OfRepresentationItem) ordered =
      new StepRepr_HArray1OfRepresentationItem(1, static_cast<int>(items.size()));
  for (std::size_t i = 0; i < items.size(); ++i) ordered->SetValue(static_cast<int>(i) + 1, items[i].second);
  presentation.SetItems(ordered);
  return items.front().first;
}

// The entities of a model from a number on, in the order of add(), each before the entities that it refers to.
class Sequence {
 public:
  Sequence(const StepData_StepModel& model, int first)
      : model_(model), first_(first), library_(model.Protocol()), is_in_(model.NbEntities() + 1, false) {}

  void add(const Handle(Standard_Transient) & start) {
    std::vector<Handle(Standard_Transient)> open{start};
    while (!open.empty()) {
      const Handle(Standard_Transient) entity = open.back();
      open.pop_back();
      const int number = model_.Number(entity);
      if (number < first_ || is_in_[number]) continue;
      is_in_[number] = true;
      entities_.push_back(entity);
      const std::size_t before = open.size();
      Handle(Interface_GeneralModule) module;
      int kind = 0;
      if (!library_.Select(entity, module, kind)) continue;
      Interface_EntityIterator below;
      module->FillSharedCase(kind, entity, below);
      for (below.Start(); below.More(); below.Next()) open.push_back(below.Value());
      std::reverse(open.begin() + static_cast<std::ptrdiff_t>(before), open.end());
    }
  }
  const std::vector<Handle(Standard_Transient)>& entities() const { return entities_; }

 private:
  const StepData_StepModel& model_;
  int first_;
  Interface_GeneralLib library_;
  std::vector<bool> is_in_;
  std::vector<Handle(Standard_Transient)> entities_;
};

}  // namespace

void step_order_styles(const Handle(StepData_StepModel) & model) {
  int first = 0;
  std::vector<std::pair<int, Handle(Standard_Transient)>> presentations;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto presentation = Handle(Presentation)::DownCast(model->Value(i));
    if (presentation.IsNull()) continue;
    if (first == 0) first = i;
    presentations.emplace_back(order_items(*model, *presentation), presentation);
  }
  if (presentations.empty()) return;
  std::stable_sort(presentations.begin(), presentations.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });

  Sequence sequence(*model, first);
  for (const auto& [target, presentation] : presentations) sequence.add(presentation);
  // Entities that no style refers to follow in their old order.
  for (int i = first; i <= model->NbEntities(); ++i) sequence.add(model->Value(i));
  std::vector<Handle(Standard_Transient)> before;
  for (int i = 1; i < first; ++i) before.push_back(model->Value(i));
  model->ClearEntities();
  for (const auto& entity : before) model->AddEntity(entity);
  for (const auto& entity : sequence.entities()) model->AddEntity(entity);
}
