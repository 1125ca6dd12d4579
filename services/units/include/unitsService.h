#pragma once

#include "velAngularUnit.h"
#include "velLengthUnit.h"

// Units of length and of plane angles: conversion and display names. The library unitssvc.dll provides the service to
// any registry of services. The registry returns it by its key and owns it. Every operation is thread-safe.
//
//   vluBaseServicePtr found;
//   if (services.service(vluServiceKey(units_service_key), found)) {
//     found.as<unitsService>()->convert_length(60, velLENGTH_MILLIMETRE, velLENGTH_INCH);
//   }
class unitsService {
 public:
  // Returns the value unchanged if either unit is "unspecified" or outside the enumeration.
  virtual double convert_length(double value, velLengthUnit from, velLengthUnit to) const = 0;

  // Returns the value unchanged if either unit is outside the enumeration. Full turns are kept: 370 degrees stay 370.
  virtual double convert_angle(double value, velAngularUnit from, velAngularUnit to) const = 0;

  // The singular name, as used in resource files and command lines; "" for a number that is not a unit.
  virtual const char* length_name(velLengthUnit unit) const = 0;
  virtual const char* angle_name(velAngularUnit unit) const = 0;

  // The symbol written after a number: "mm", "in"; "" for "unspecified" and for a number that is not a unit.
  virtual const char* length_symbol(velLengthUnit unit) const = 0;
  virtual const char* angle_symbol(velAngularUnit unit) const = 0;

 protected:
  ~unitsService() = default;
};

// The key by which the service is registered.
inline constexpr char units_service_key[] = "units";
