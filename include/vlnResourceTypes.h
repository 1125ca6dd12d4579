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

// An integer that the validator accepts.
class VLN_API vlnResourceType_int : public vlnResourceType {
 public:
  int validate(const utString& key, const utString& value, utObserverPtr<vlnValidator> validator) const override;
  int matching_type(const coResourceBase* resource) const override;
};

// "False" or "True"; "0" and "1" are displayed as these.
class VLN_API vlnResourceType_utBool : public vlnFiniteResourceType {
 public:
  void valid_strings(utStringcoDList& list) const override;
  utString as_string(const coResourceBase* resource) const override;
  int matching_type(const coResourceBase* resource) const override;
};

// One of the names listed by `names_of`.
template <typename Option, void (*names_of)(utStringcoDList&)>
class vlnOptionResourceType : public vlnFiniteResourceType {
 public:
  void valid_strings(utStringcoDList& list) const override { names_of(list); }
  int matching_type(const coResourceBase* resource) const override {
    return dynamic_cast<const coResource<Option>*>(resource) ? 1 : 0;
  }
};

class VLN_API vlnResourceType_velAngularUnit : public vlnOptionResourceType<velAngularUnit, velAngularUnit_strings> {};
class VLN_API vlnResourceType_velLengthUnit : public vlnOptionResourceType<velLengthUnit, velLengthUnit_strings> {};
class VLN_API vlnResourceType_velMultipleFileOption
    : public vlnOptionResourceType<velMultipleFileOption, velMultipleFileOption_strings> {};
class VLN_API vlnResourceType_velTrimOption : public vlnOptionResourceType<velTrimOption, velTrimOption_strings> {};
class VLN_API vlnResourceType_velDisplayOption
    : public vlnOptionResourceType<velDisplayOption, velDisplayOption_strings> {};
class VLN_API vlnResourceType_velProcessingOption
    : public vlnOptionResourceType<velProcessingOption, velProcessingOption_strings> {};
class VLN_API vlnResourceType_velFileFormat : public vlnOptionResourceType<velFileFormat, velFileFormat_strings> {};
class VLN_API vlnResourceType_velStepAPOption : public vlnOptionResourceType<velStepAPOption, velStepAPOption_strings> {
};
class VLN_API vlnResourceType_velTypeOption : public vlnOptionResourceType<velTypeOption, velTypeOption_strings> {};
class VLN_API vlnResourceType_velSolidworksReadOption
    : public vlnOptionResourceType<velSolidworksReadOption, velSolidworksReadOption_strings> {};
class VLN_API vlnResourceType_velLintorVersion
    : public vlnOptionResourceType<velLintorVersion, velLintorVersion_strings> {};
class VLN_API vlnResourceType_velRepresentationOption
    : public vlnOptionResourceType<velRepresentationOption, velRepresentationOption_strings> {};
class VLN_API vlnResourceType_velLintorWideCurveOption
    : public vlnOptionResourceType<velLintorWideCurveOption, velLintorWideCurveOption_strings> {};
