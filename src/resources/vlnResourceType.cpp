#include "vlnResourceType.h"

#include "velResourceTable.h"
#include "velnlsLocaleNumbers.h"
#include "vlnResourceTypes.h"

namespace {

template <typename Type>
const vlnResourceType* the() {
  static const Type type;
  return &type;
}

}  // namespace

// The first type that matches a resource is used.
const std::array<const vlnResourceType*, vlnResourceType::s_number_of_types> vlnResourceType::s_type_array{
    the<vlnResourceType_utString>(),
    the<vlnResourceType_double>(),
    the<vlnResourceType_int>(),
    the<vlnResourceType_utBool>(),
    the<vlnResourceType_velAngularUnit>(),
    the<vlnResourceType_velLengthUnit>(),
    the<vlnResourceType_velMultipleFileOption>(),
    the<vlnResourceType_velTrimOption>(),
    the<vlnResourceType_velDisplayOption>(),
    the<vlnResourceType_velProcessingOption>(),
    the<vlnResourceType_velFileFormat>(),
    the<vlnResourceType_velStepAPOption>(),
    the<vlnResourceType_velTypeOption>(),
    the<vlnResourceType_velSolidworksReadOption>(),
    the<vlnResourceType_velLintorVersion>(),
    the<vlnResourceType_velRepresentationOption>(),
    the<vlnResourceType_velLintorWideCurveOption>(),
};

coTable<utString, const vlnResourceType*> vlnResourceType::s_key_map;

vlnResourceType::~vlnResourceType() = default;

utString vlnResourceType::display(const coResourceBase* resource) const {
  const velnlsLocaleNumbers numbers;
  return as_string(resource);
}

utString vlnResourceType::as_string(const coResourceBase* resource) const {
  return resource ? resource->text() : utString();
}

void vlnResourceType::valid_strings(utStringcoDList&) const {}

const vlnResourceType* vlnResourceType::look_up_type(const utString& key) {
  const vlnResourceType* const* known = s_key_map.find(key);
  if (known) return *known;
  build_key_map();
  return s_key_map.read(key);
}

const vlnResourceType* vlnResourceType::look_up_type(const coResourceBase* resource) {
  for (const vlnResourceType* type : s_type_array) {
    if (type->matching_type(resource)) return type;
  }
  return s_type_array.front();
}

void vlnResourceType::build_key_map() {
  const coResourceTable& resources = vel_resource_table_inquire();
  for (std::size_t i = 0; i < resources.count(); ++i) {
    const coResourceBase& resource = resources.at(i);
    s_key_map.put(resource.key(), look_up_type(&resource));
  }
}
