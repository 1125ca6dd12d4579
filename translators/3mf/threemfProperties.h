#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "annMaterial.h"

// The property groups in the resources of a model part, and the distinct materials in them, numbered. A material with
// a name is a base material, one without is a plain colour.
class threemfProperties {
 public:
  static constexpr std::uint32_t no_look = 0xFFFFFFFF;

  struct Group {
    std::vector<std::uint32_t> looks;
    bool colours = false;   // each corner of a face may have one
    bool left_out = false;  // not supported, for example textures; faces get no material from it
  };

  // False when the id is already used.
  bool add_group(std::uint32_t id, bool colours, bool left_out);
  // Adds to the group that was added last.
  void add_look(annMaterial look);

  // Null when there is no group with this id.
  const Group* group(std::uint32_t id);
  const std::vector<annMaterial>& looks() const { return looks_; }

 private:
  std::unordered_map<std::uint32_t, Group> groups_;
  Group* last_added_ = nullptr;
  std::uint32_t last_id_ = 0;
  const Group* last_asked_ = nullptr;
  std::vector<annMaterial> looks_;
  std::unordered_map<std::string, std::uint32_t> numbers_;  // by the bytes of colour and name
};
