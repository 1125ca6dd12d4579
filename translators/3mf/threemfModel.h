#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "annMesh.h"
#include "annTransform.h"

// The content of a model part, before the parts of a package are combined.

// An instance of an object in another object or in the build.
struct threemfUse {
  static constexpr std::uint32_t own_part = std::numeric_limits<std::uint32_t>::max();

  annTransform transform;
  std::string instance_name;
  std::uint32_t id = 0;
  std::uint32_t path = own_part;  // an index in `paths` of the model part
  std::size_t line = 0;
  // The position of the object among all parts, once they are known.
  std::uint32_t part = 0;
  std::uint32_t object = 0;
};

struct threemfObject {
  std::string name;
  std::string part_number;
  std::string type;  // of an object that is not part of the model itself, for example a support
  std::size_t line = 0;
  std::shared_ptr<const annMesh> mesh;
  std::optional<annColour> colour;
  std::vector<threemfUse> components;
};

struct threemfItem {
  threemfUse use;
  std::string part_number;
};

struct threemfModelPart {
  std::vector<threemfObject> objects;  // each after the objects of this part that it is made of
  std::unordered_map<std::uint32_t, std::uint32_t> object_by_id;
  std::vector<threemfItem> items;
  std::vector<std::string> paths;  // keys of the other model parts that objects and items refer to
  std::unordered_map<std::string, std::uint32_t> path_numbers;
};
