#include "stepUnits.h"

#include <STEPConstruct_UnitContext.hxx>
#include <StepBasic_ProductDefinition.hxx>
#include <StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx.hxx>
#include <StepGeom_GeometricRepresentationContextAndGlobalUnitAssignedContext.hxx>
#include <StepRepr_CharacterizedDefinition.hxx>
#include <StepRepr_GlobalUnitAssignedContext.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <StepRepr_PropertyDefinition.hxx>
#include <StepRepr_Representation.hxx>
#include <StepRepr_RepresentedDefinition.hxx>
#include <StepShape_ShapeDefinitionRepresentation.hxx>
#include <unordered_set>

namespace {

double length_of(const Handle(StepRepr_RepresentationContext) & context, double working) {
  Handle(StepRepr_GlobalUnitAssignedContext) units;
  if (const auto both = Handle(StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx)::DownCast(context)) {
    units = both->GlobalUnitAssignedContext();
  } else if (const auto other =
                 Handle(StepGeom_GeometricRepresentationContextAndGlobalUnitAssignedContext)::DownCast(context)) {
    units = other->GlobalUnitAssignedContext();
  } else {
    units = Handle(StepRepr_GlobalUnitAssignedContext)::DownCast(context);
  }
  if (units.IsNull()) return 0;
  STEPConstruct_UnitContext factors;
  factors.ComputeFactors(units);
  // The factor is relative to the kernel's current unit, which an earlier writing may have changed.
  return factors.LengthDone() ? factors.LengthFactor() * working : 0;
}

Handle(StepBasic_ProductDefinition) product_of(const Handle(StepShape_ShapeDefinitionRepresentation) & shape) {
  const Handle(StepRepr_PropertyDefinition) property = shape->Definition().PropertyDefinition();
  return property.IsNull() ? nullptr : property->Definition().ProductDefinition();
}

}  // namespace

double step_unit_of(const Handle(StepData_StepModel) & model) {
  std::unordered_set<const Standard_Transient*> parts;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(model->Value(i));
    if (!use.IsNull()) parts.insert(use->RelatedProductDefinition().get());
  }
  double any = 0;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto shape = Handle(StepShape_ShapeDefinitionRepresentation)::DownCast(model->Value(i));
    if (shape.IsNull() || shape->UsedRepresentation().IsNull()) continue;
    const double unit = length_of(shape->UsedRepresentation()->ContextOfItems(), model->LocalLengthUnit());
    if (unit == 0) continue;
    const Handle(StepBasic_ProductDefinition) product = product_of(shape);
    if (!product.IsNull() && !parts.contains(product.get())) return unit;
    if (any == 0) any = unit;
  }
  return any;
}
