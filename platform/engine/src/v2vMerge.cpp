#include "v2vMerge.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace {

using Nodes = std::vector<std::unique_ptr<annNode>>;

std::string stem_of(const utString& file) {
  std::string name = file.str().substr(file.str().rfind('/') + 1);
  const std::size_t dot = name.rfind('.');
  if (dot != name.npos && dot > 0) name.resize(dot);
  return name;
}

// The top nodes of a model. A root with its own geometry, transform or colour is itself a top node.
Nodes take_top(annDocument& document) {
  annNode& root = document.root;
  if (root.body.empty() && root.transform.is_identity() && !root.colour) return std::move(root.children);
  Nodes top;
  top.push_back(std::make_unique<annNode>(std::move(root)));
  return top;
}

void name_nodes(Nodes& nodes, const std::string& stem) {
  auto is_unnamed = [](const std::unique_ptr<annNode>& node) { return node->label().empty(); };
  const auto unnamed = std::count_if(nodes.begin(), nodes.end(), is_unnamed);
  int number = 0;
  for (auto& node : nodes) {
    if (!is_unnamed(node)) continue;
    ++number;
    node->name = unnamed == 1 ? stem : stem + "_" + std::to_string(number);
  }
}

// The unit of the first model that has one. Reports a note for each model without one.
velLengthUnit common_unit(const std::vector<v2vInputModel>& models, v2vReport& report) {
  auto has_unit = [](const v2vInputModel& model) { return model.document.unit != velLENGTH_UNSPECIFIED; };
  const auto first = std::find_if(models.begin(), models.end(), has_unit);
  if (first == models.end()) return velLENGTH_UNSPECIFIED;
  for (const v2vInputModel& model : models) {
    if (has_unit(model)) continue;
    report.message(velabsNOTE, model.file + ": it has no length unit: its numbers count as millimetres");
  }
  return first->document.unit;
}

annUpAxis common_up(const std::vector<v2vInputModel>& models) {
  const auto first = std::find_if(models.begin(), models.end(),
                                  [](const v2vInputModel& model) { return model.document.up != annUP_UNKNOWN; });
  return first == models.end() ? annUP_UNKNOWN : first->document.up;
}

}  // namespace

void v2v_merge(std::vector<v2vInputModel>& models, annDocument& target, v2vReport& report) {
  target = annDocument();
  target.unit = common_unit(models, report);
  target.up = common_up(models);
  if (models.size() == 1) target.root.name = models[0].document.root.name;

  for (v2vInputModel& model : models) {
    const std::string stem = stem_of(model.file);
    Nodes top = take_top(model.document);
    name_nodes(top, stem);
    if (models.size() > 1 && top.size() > 1) {
      auto whole = std::make_unique<annNode>(stem);
      whole->children = std::move(top);
      top.clear();
      top.push_back(std::move(whole));
    }
    const annTransform change = annTransform::scaling(vel_length_ratio(model.document.unit, target.unit)) *
                                ann_turn(model.document.up, target.up);
    for (auto& node : top) {
      if (!change.is_identity()) node->transform = change * node->transform;
      target.root.children.push_back(std::move(node));
    }
  }
}
