#include "threemfAssembly.h"

#include <algorithm>
#include <string>

namespace {

constexpr std::uint64_t most_nodes = 1'000'000;
constexpr std::uint64_t most_elements = 4'000'000'000;
constexpr std::uint64_t most_name_bytes = 256 << 20;

const std::string& name_of(const threemfObject& object) {
  return object.name.empty() ? object.part_number : object.name;
}

void place(annNode& node, const threemfUse& use) {
  node.transform = use.transform;
  if (!use.instance_name.empty()) node.instance_name = use.instance_name;
}

}  // namespace

void threemfAssembly::Amount::add(const Amount& other) {
  // Limited to one more than the maximum, so that sums cannot overflow.
  nodes = std::min(nodes + other.nodes, most_nodes + 1);
  elements = std::min(elements + other.elements, most_elements + 1);
  name_bytes = std::min(name_bytes + other.name_bytes, most_name_bytes + 1);
}

bool threemfAssembly::build(annDocument& document) {
  if (!measure()) return false;
  std::vector<Open> open;
  for (const threemfItem& item : parts_.front().items) {
    if (amounts_[item.use.part][item.use.object].nodes == 0) continue;
    const threemfObject& shown = object(item.use);
    annNode& node = document.root.add_child("");
    place(node, item.use);
    fill(node, shown, open);
    if (node.name.empty()) node.name = item.part_number;
    while (!open.empty()) {
      const Open next = open.back();
      open.pop_back();
      fill(*next.node, *next.object, open);
    }
  }
  const std::vector<std::vector<bool>> used = used_objects();
  note_unused(used);
  note_types(used);
  return true;
}

// Objects come after those that they are made of, and the first part is processed last.
bool threemfAssembly::measure() {
  amounts_.resize(parts_.size());
  for (std::size_t next = 1; next <= parts_.size(); ++next) {
    const std::size_t part = next % parts_.size();
    for (const threemfObject& made : parts_[part].objects) {
      Amount amount;
      for (const threemfUse& use : made.components) amount.add(amount_of(use));
      if (made.mesh) amount.elements += made.mesh->vertices->points.size() + made.mesh->face_count();
      if (made.mesh || amount.nodes > 0) ++amount.nodes;
      amount.name_bytes += name_of(made).size();
      amounts_[part].push_back(amount);
    }
  }
  Amount all;
  for (const threemfItem& item : parts_.front().items) all.add(amount_of(item.use));
  if (parts_.front().items.empty()) return true;
  if (all.nodes == 0) {
    output_.message(velabsERROR, "the build of the model shows no object with triangles");
  } else if (all.nodes > most_nodes || all.elements > most_elements) {
    output_.message(velabsERROR,
                    "the build of the model comes to more than a million placed objects or billions of "
                    "triangles");
  } else if (all.name_bytes > most_name_bytes) {
    output_.message(velabsERROR, "the names of all placed objects of the build come to more than 256 MiB");
  } else {
    return true;
  }
  return false;
}

threemfAssembly::Amount threemfAssembly::amount_of(const threemfUse& use) const {
  Amount amount = amounts_[use.part][use.object];
  amount.name_bytes += use.instance_name.size();
  return amount;
}

// The mesh object inside an object that only gives it another name; else null.
const threemfObject* threemfAssembly::only_mesh(const threemfObject& made) const {
  if (made.mesh || made.components.size() != 1 || !made.components.front().transform.is_identity()) return nullptr;
  const threemfObject& inner = object(made.components.front());
  const bool nameless = inner.name.empty() && inner.part_number.empty();
  return inner.mesh && inner.components.empty() && nameless ? &inner : nullptr;
}

void threemfAssembly::fill(annNode& node, const threemfObject& made, std::vector<Open>& open) {
  node.name = name_of(made);
  const threemfObject* inner = only_mesh(made);
  const threemfObject& shown = inner ? *inner : made;
  node.body.mesh = shown.mesh;
  node.colour = shown.colour;
  for (const threemfUse& use : shown.components) {
    if (amounts_[use.part][use.object].nodes == 0) continue;
    annNode& child = node.add_child("");
    place(child, use);
    open.push_back({&child, &object(use)});
  }
}

std::vector<std::vector<bool>> threemfAssembly::used_objects() const {
  std::vector<std::vector<bool>> used(parts_.size());
  for (std::size_t part = 0; part < parts_.size(); ++part) used[part].resize(parts_[part].objects.size());
  for (const threemfItem& item : parts_.front().items) used[item.use.part][item.use.object] = true;
  // From the first part to the others and from the last object to the first, users come before what they use.
  for (std::size_t part = 0; part < parts_.size(); ++part) {
    for (std::size_t number = parts_[part].objects.size(); number-- > 0;) {
      if (!used[part][number]) continue;
      for (const threemfUse& use : parts_[part].objects[number].components) used[use.part][use.object] = true;
    }
  }
  return used;
}

void threemfAssembly::note_unused(const std::vector<std::vector<bool>>& used) const {
  std::size_t unused = 0;
  for (std::size_t part = 0; part < parts_.size(); ++part) {
    for (std::size_t number = 0; number < used[part].size(); ++number) {
      unused += !used[part][number] && parts_[part].objects[number].mesh;
    }
  }
  if (unused == 0) return;
  output_.message(velabsNOTE, utString(unused == 1 ? "one object is" : std::to_string(unused) + " objects are") +
                                  " left out: the build does not name " + (unused == 1 ? "it" : "them"));
}

void threemfAssembly::note_types(const std::vector<std::vector<bool>>& used) const {
  for (std::size_t part = 0; part < parts_.size(); ++part) {
    for (std::size_t number = 0; number < used[part].size(); ++number) {
      const threemfObject& made = parts_[part].objects[number];
      if (!used[part][number] || amounts_[part][number].nodes == 0 || made.type.empty()) continue;
      reading_.found(velabsNOTE, "objects of type \"" + made.type + "\" are read as parts like others", part == 0,
                     made.line);
    }
  }
}
