#include "hpfTree.h"

#include "apNumberChecks.h"
#include "hpfNames.h"

namespace {

template <typename Things, typename Thing>
bool take_thing(hpfInput& input, const Things& things, std::uint32_t number, const char* what,
                std::shared_ptr<const Thing>& thing) {
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

bool hpfTree::read_nodes(hpfInput& input, const hpfThings& things) {
  if (has_nodes()) return input.fail("there is a second one");
  hpfTreeHead head;
  std::vector<hpfNode> records;
  std::string names;
  auto any = [](std::span<const hpfNode>) { return true; };
  if (!input.record(head) || !input.array(records, head.nodes, any) || !input.text(names, head.name_bytes)) {
    return false;
  }
  if (head.unit > velLENGTH_MILE) return input.fail("its length unit " + std::to_string(head.unit) + " is not known");
  document_.unit = static_cast<velLengthUnit>(head.unit);

  hpfNames rest(names);
  nodes_.reserve(records.size());
  for (const hpfNode& record : records) {
    if (nodes_.empty() ? record.parent != hpf_none : record.parent >= nodes_.size()) {
      return input.fail("node " + std::to_string(nodes_.size()) + " does not stand behind its parent");
    }
    nodes_.push_back(nodes_.empty() ? &document_.root : &nodes_[record.parent]->add_child({}));
    if (!fill_node(input, things, record, rest, *nodes_.back())) return false;
  }
  return rest.empty() || input.fail("there is text behind its names");
}

bool hpfTree::read_instance_names(hpfInput& input) {
  hpfInstanceNamesHead head;
  std::vector<hpfInstanceName> records;
  std::string names;
  auto any = [](std::span<const hpfInstanceName>) { return true; };
  if (!input.record(head) || !input.array(records, head.records, any) || !input.text(names, head.name_bytes)) {
    return false;
  }
  hpfNames rest(names);
  for (const hpfInstanceName& record : records) {
    if (record.node >= nodes_.size()) {
      return input.fail("it names node " + std::to_string(record.node) + ", of which there are " +
                        std::to_string(nodes_.size()) + " before it");
    }
    utString& name = nodes_[record.node]->instance_name;
    if (!name.is_null()) return input.fail("node " + std::to_string(record.node) + " has two names of an instance");
    if (!rest.take(record.name_length, name)) return input.fail("a name is longer than the names are");
  }
  return rest.empty() || input.fail("there is text behind its names");
}

bool hpfTree::read_up_axis(hpfInput& input) {
  hpfUpHead head;
  if (!input.record(head)) return false;
  if (document_.up) return input.fail("there is a second up axis");
  if (head.axis != annUP_Y && head.axis != annUP_Z) {
    return input.fail("its up axis " + std::to_string(head.axis) + " is not known");
  }
  document_.up = static_cast<annUpAxis>(head.axis);
  return true;
}
