#include "threemfProperties.h"

#include <cstring>

bool threemfProperties::add_group(std::uint32_t id, bool colours, bool left_out) {
  const auto [group, added] = groups_.try_emplace(id);
  if (!added) return false;
  group->second.colours = colours;
  group->second.left_out = left_out;
  last_added_ = &group->second;
  return true;
}

void threemfProperties::add_look(annMaterial look) {
  std::string key(sizeof look.colour, '\0');
  std::memcpy(key.data(), &look.colour, sizeof look.colour);
  key += look.name.view();
  const auto [number, added] = numbers_.try_emplace(std::move(key), static_cast<std::uint32_t>(looks_.size()));
  if (added) looks_.push_back(std::move(look));
  last_added_->looks.push_back(number->second);
}

const threemfProperties::Group* threemfProperties::group(std::uint32_t id) {
  // Consecutive faces often use the same group.
  if (last_asked_ && last_id_ == id) return last_asked_;
  const auto group = groups_.find(id);
  if (group == groups_.end()) return nullptr;
  last_id_ = id;
  last_asked_ = &group->second;
  return last_asked_;
}
