#include "stepAssemblies.h"

#include <StepBasic_ProductDefinition.hxx>
#include <StepRepr_CharacterizedDefinition.hxx>
#include <StepRepr_MappedItem.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_Representation.hxx>
#include <StepRepr_RepresentationMap.hxx>
#include <StepRepr_RepresentedDefinition.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>

namespace {

void add(exaNesting& nesting, const Standard_Transient* outer, const Standard_Transient* inner) {
  if (outer && inner) nesting.add(outer, inner);
}

void add_mapped(exaNesting& nesting, const StepRepr_Representation& outer) {
  for (int i = 1; i <= outer.NbItems(); ++i) {
    const auto item = Handle(StepRepr_MappedItem)::DownCast(outer.ItemsValue(i));
    if (item.IsNull() || item->MappingSource().IsNull()) continue;
    add(nesting, &outer, item->MappingSource()->MappedRepresentation().get());
  }
}

void add_shape(exaNesting& nesting, const StepShape_ShapeDefinitionRepresentation& shape) {
  const Handle(StepRepr_PropertyDefinition) property = shape.Definition().PropertyDefinition();
  if (property.IsNull()) return;
  add(nesting, property->Definition().ProductDefinition().get(), shape.UsedRepresentation().get());
}

}  // namespace

exaNesting step_nesting(const Handle(StepData_StepModel) & model) {
  exaNesting nesting;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const Handle(Standard_Transient)& entity = model->Value(i);
    if (const auto use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(entity)) {
      add(nesting, use->RelatingProductDefinition().get(), use->RelatedProductDefinition().get());
    } else if (const auto shape = Handle(StepShape_ShapeDefinitionRepresentation)::DownCast(entity)) {
      add_shape(nesting, *shape);
    } else if (const auto representation = Handle(StepRepr_Representation)::DownCast(entity)) {
      add_mapped(nesting, *representation);
    }
  }
  return nesting;
}
