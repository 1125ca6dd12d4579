#pragma once

#include "velAngularUnit.h"
#include "velLengthUnit.h"

// Units of length and of plane angles: conversion, and names for people. The library unitssvc.dll offers it to any
// registry of services, which hands it out by its key and owns it. Every operation may be called from several threads.
//
//   vluBaseServicePtr found;
//   if (services.service(vluServiceKey(units_service_key), found)) {
//     found.as<unitsService>()->convert_length(60, velLENGTH_MILLIMETRE, velLENGTH_INCH);
//   }
class unitsService {
 public:
  // The value as it is when either unit is "unspecified" or none of the enumeration.
  virtual double convert_length(double value, velLengthUnit from, velLengthUnit to) const = 0;

  // The value as it is when either unit is none of the enumeration. No turns are taken off: 370 degrees stay 370.
  virtual double convert_angle(double value, velAngularUnit from, velAngularUnit to) const = 0;

  // In the singular, as resource files and command lines name it; "" for a number that is no unit.
  virtual const char* length_name(velLengthUnit unit) const = 0;
  virtual const char* angle_name(velAngularUnit unit) const = 0;

  // What stands behind a number: "mm", "in"; "" for "unspecified" and for a number that is no unit.
  virtual const char* length_symbol(velLengthUnit unit) const = 0;
  virtual const char* angle_symbol(velAngularUnit unit) const = 0;

 protected:
  ~unitsService() = default;
};

// The key under which the service is known.
inline constexpr char units_service_key[] = "units";
