#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "annMaterial.h"

// The groups of looks that the resources of a model part define, and the distinct looks in them, numbered. A look with
// a name is a base material, one without is a plain colour.
class threemfProperties {
 public:
  static constexpr std::uint32_t no_look = 0xFFFFFFFF;

  struct Group {
    std::vector<std::uint32_t> looks;
    bool colours = false;   // each corner of a face may have one
    bool left_out = false;  // textures and the like, whose faces get no look
  };

  // False when the id is taken.
  bool add_group(std::uint32_t id, bool colours, bool left_out);
  // Into the group that was added last.
  void add_look(annMaterial look);

  // Null when there is none of this id.
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
