#pragma once

#include "unitsService.h"

// The implementation of the service. It has no state.
class unitsConversion final : public unitsService {
 public:
  double convert_length(double value, velLengthUnit from, velLengthUnit to) const override;
  double convert_angle(double value, velAngularUnit from, velAngularUnit to) const override;
  const char* length_name(velLengthUnit unit) const override;
  const char* angle_name(velAngularUnit unit) const override;
  const char* length_symbol(velLengthUnit unit) const override;
  const char* angle_symbol(velAngularUnit unit) const override;
};
