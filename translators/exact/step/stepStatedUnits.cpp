#include "stepStatedUnits.h"

#include <StepBasic_ConversionBasedUnitAndLengthUnit.hxx>
#include <StepBasic_ConversionBasedUnitAndPlaneAngleUnit.hxx>
#include <StepBasic_DimensionalExponents.hxx>
#include <StepBasic_HArray1OfNamedUnit.hxx>
#include <StepBasic_MeasureValueMember.hxx>
#include <StepBasic_MeasureWithUnit.hxx>
#include <StepBasic_PlaneAngleMeasureWithUnit.hxx>
#include <StepBasic_SiUnitAndPlaneAngleUnit.hxx>
#include <StepBasic_Unit.hxx>
#include <StepGeom_ConicalSurface.hxx>
#include <StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx.hxx>
#include <StepRepr_GlobalUnitAssignedContext.hxx>
#include <TCollection_HAsciiString.hxx>
#include <numbers>

#include "exaUnits.h"

namespace {

struct AngleUnit {
  const char* name;
  double radians;
};

// In the order of the enumerators.
constexpr AngleUnit angle_units[] = {{"DEGREE", std::numbers::pi / 180},
                                     {"RADIAN", 1},
                                     {"GRADIAN", std::numbers::pi / 200},
                                     {"ARC MINUTE", std::numbers::pi / (180 * 60)},
                                     {"ARC SECOND", std::numbers::pi / (180 * 3600)},
                                     {"TURN", 2 * std::numbers::pi}};

Handle(StepBasic_ConversionBasedUnitAndPlaneAngleUnit)
    converted(const Handle(StepBasic_NamedUnit) & radian, const AngleUnit& unit) {
  const Handle(StepBasic_DimensionalExponents) exponents = new StepBasic_DimensionalExponents;
  exponents->Init(0, 0, 0, 0, 0, 0, 0);
  const Handle(StepBasic_MeasureValueMember) value = new StepBasic_MeasureValueMember;
  value->SetName("PLANE_ANGLE_MEASURE");
  value->SetReal(unit.radians);
  StepBasic_Unit base;
  base.SetValue(radian);
  const Handle(StepBasic_PlaneAngleMeasureWithUnit) factor = new StepBasic_PlaneAngleMeasureWithUnit;
  factor->Init(value, base);
  const Handle(StepBasic_ConversionBasedUnitAndPlaneAngleUnit) result =
      new StepBasic_ConversionBasedUnitAndPlaneAngleUnit;
  result->Init(exponents, new TCollection_HAsciiString(unit.name), factor);
  return result;
}

}  // namespace

void step_state_yards(const Handle(StepData_StepModel) & model) {
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto unit = Handle(StepBasic_ConversionBasedUnitAndLengthUnit)::DownCast(model->Value(i));
    if (unit.IsNull()) continue;
    unit->SetName(new TCollection_HAsciiString("YARD"));
    unit->ConversionFactor()->SetValueComponent(exa_millimetres(velLENGTH_YARD));
  }
}

void step_state_angles(const Handle(StepData_StepModel) & model, velAngularUnit unit) {
  if (unit == velANGLE_RADIAN) return;
  const AngleUnit& stated = angle_units[unit];
  const int count = model->NbEntities();
  for (int i = 1; i <= count; ++i) {
    const Handle(Standard_Transient) entity = model->Value(i);
    if (const auto cone = Handle(StepGeom_ConicalSurface)::DownCast(entity)) {
      cone->SetSemiAngle(cone->SemiAngle() / stated.radians);
      continue;
    }
    const auto context = Handle(StepGeom_GeomRepContextAndGlobUnitAssCtxAndGlobUncertaintyAssCtx)::DownCast(entity);
    if (context.IsNull()) continue;
    const Handle(StepBasic_HArray1OfNamedUnit) units = context->GlobalUnitAssignedContext()->Units();
    for (int at = units->Lower(); at <= units->Upper(); ++at) {
      const auto radian = Handle(StepBasic_SiUnitAndPlaneAngleUnit)::DownCast(units->Value(at));
      if (radian.IsNull()) continue;
      units->SetValue(at, converted(radian, stated));
      model->AddWithRefs(units->Value(at));
    }
  }
}
