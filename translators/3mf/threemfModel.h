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

// What a model part says, before the parts of a package are put together.

// An object where another one, or the build, puts it.
struct threemfUse {
  static constexpr std::uint32_t own_part = std::numeric_limits<std::uint32_t>::max();

  annTransform transform;
  std::string instance_name;
  std::uint32_t id = 0;
  std::uint32_t path = own_part;  // a number in `paths` of the model part
  std::size_t line = 0;
  // Where the object is among all parts, once they are known.
  std::uint32_t part = 0;
  std::uint32_t object = 0;
};

struct threemfObject {
  std::string name;
  std::string part_number;
  std::string type;  // of one that is no part of the model itself, but a support for instance
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
  std::vector<threemfObject> objects;  // each behind those of this part that it is made of
  std::unordered_map<std::uint32_t, std::uint32_t> object_by_id;
  std::vector<threemfItem> items;
  std::vector<std::string> paths;  // keys of the other model parts that objects and items refer to
  std::unordered_map<std::string, std::uint32_t> path_numbers;
};
