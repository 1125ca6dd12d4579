#pragma once

#include "coResource.h"
#include "utBool.h"
#include "velAngularUnit.h"
#include "velDisplayOption.h"
#include "velFileFormat.h"
#include "velLengthUnit.h"
#include "velLintorVersion.h"
#include "velLintorWideCurveOption.h"
#include "velMultipleFileOption.h"
#include "velProcessingOption.h"
#include "velRepresentationOption.h"
#include "velSolidworksReadOption.h"
#include "velStepAPOption.h"
#include "velTrimOption.h"
#include "velTypeOption.h"
#include "vlnExport.h"
#include "vlnFiniteResourceType.h"

// The seventeen types of resource.

// Any text.
class VLN_API vlnResourceType_utString : public vlnResourceType {
 public:
  int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const override;
  int matching_type(const coResourceBase* resource) const override;
};

// A real number that the validator accepts.
class VLN_API vlnResourceType_double : public vlnResourceType {
 public:
  int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const override;
  int matching_type(const coResourceBase* resource) const override;
};

// A whole number that the validator accepts.
class VLN_API vlnResourceType_int : public vlnResourceType {
 public:
  int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const override;
  int matching_type(const coResourceBase* resource) const override;
};

// "False" or "True"; "0" and "1" are shown as these.
class VLN_API vlnResourceType_utBool : public vlnFiniteResourceType {
 public:
  void valid_strings(utStringcoDList& list) const override;
  utString as_string(const coResourceBase* resource) const override;
  int matching_type(const coResourceBase* resource) const override;
};

// One of the names that `names_of` lists.
template <typename Option, void (*names_of)(utStringcoDList&)>
class vlnOptionResourceType : public vlnFiniteResourceType {
 public:
  void valid_strings(utStringcoDList& list) const override { names_of(list); }
  int matching_type(const coResourceBase* resource) const override {
    return dynamic_cast<const coResource<Option>*>(resource) ? 1 : 0;
  }
};

using vlnResourceType_velAngularUnit = vlnOptionResourceType<velAngularUnit, velAngularUnit_strings>;
using vlnResourceType_velLengthUnit = vlnOptionResourceType<velLengthUnit, velLengthUnit_strings>;
using vlnResourceType_velMultipleFileOption =
    vlnOptionResourceType<velMultipleFileOption, velMultipleFileOption_strings>;
using vlnResourceType_velTrimOption = vlnOptionResourceType<velTrimOption, velTrimOption_strings>;
using vlnResourceType_velDisplayOption = vlnOptionResourceType<velDisplayOption, velDisplayOption_strings>;
using vlnResourceType_velProcessingOption = vlnOptionResourceType<velProcessingOption, velProcessingOption_strings>;
using vlnResourceType_velFileFormat = vlnOptionResourceType<velFileFormat, velFileFormat_strings>;
using vlnResourceType_velStepAPOption = vlnOptionResourceType<velStepAPOption, velStepAPOption_strings>;
using vlnResourceType_velTypeOption = vlnOptionResourceType<velTypeOption, velTypeOption_strings>;
using vlnResourceType_velSolidworksReadOption =
    vlnOptionResourceType<velSolidworksReadOption, velSolidworksReadOption_strings>;
using vlnResourceType_velLintorVersion = vlnOptionResourceType<velLintorVersion, velLintorVersion_strings>;
using vlnResourceType_velRepresentationOption =
    vlnOptionResourceType<velRepresentationOption, velRepresentationOption_strings>;
using vlnResourceType_velLintorWideCurveOption =
    vlnOptionResourceType<velLintorWideCurveOption, velLintorWideCurveOption_strings>;
