#include "hpfTree.h"

#include "apNumberChecks.h"
#include "hpfNames.h"

namespace {

template <typename Thing>
bool take_thing(hpfInput& input, const std::vector<std::shared_ptr<const Thing>>& things, std::uint32_t number,
                const char* what, std::shared_ptr<const Thing>& thing) {
  if (number == hpf_none) return true;
  if (number >= things.size()) {
    return input.fail("a node names " + std::string(what) + " " + std::to_string(number) + ", of which there are " +
                      std::to_string(things.size()) + " before it");
  }
  thing = things[number];
  return true;
}

bool fill_node(hpfInput& input, const hpfThings& things, const hpfNode& record, hpfNames& names, annNode& node) {
  if (!names.take(record.name_length, node.name)) return input.fail("a name is longer than the names are");
  if (!ap_all_finite(record.transform)) return input.fail("a placement is not of finite numbers");
  node.transform.m = record.transform;
  if (record.flags & hpf_has_colour) {
    if (!ap_all_finite(record.colour)) return input.fail("the colour of a node is not of finite numbers");
    node.colour = annColour{record.colour[0], record.colour[1], record.colour[2], record.colour[3]};
  }
  return take_thing(input, things.meshes(), record.mesh, "mesh", node.body.mesh) &&
         take_thing(input, things.shapes(), record.shape, "shape", node.body.shape);
}

}  // namespace

bool hpf_read_tree(hpfInput& input, const hpfThings& things, annDocument& document) {
  hpfTreeHead head;
  std::vector<hpfNode> records;
  std::string names;
  auto any = [](std::span<const hpfNode>) { return true; };
  if (!input.record(head) || !input.array(records, head.nodes, any) || !input.text(names, head.name_bytes)) {
    return false;
  }
  if (head.unit > velLENGTH_MILE) return input.fail("its length unit " + std::to_string(head.unit) + " is not known");
  document.unit = static_cast<velLengthUnit>(head.unit);

  hpfNames rest(names);
  std::vector<annNode*> nodes;
  nodes.reserve(records.size());
  for (const hpfNode& record : records) {
    if (nodes.empty() ? record.parent != hpf_none : record.parent >= nodes.size()) {
      return input.fail("node " + std::to_string(nodes.size()) + " does not stand behind its parent");
    }
    nodes.push_back(nodes.empty() ? &document.root : &nodes[record.parent]->add_child({}));
    if (!fill_node(input, things, record, rest, *nodes.back())) return false;
  }
  return rest.empty() || input.fail("there is text behind its names");
}
