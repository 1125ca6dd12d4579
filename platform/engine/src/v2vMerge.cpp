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

// The top of a model. A root with something of its own to show is itself a node of it.
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

// Where all the models came without a unit there is none to be mistaken about.
void warn_of_missing_units(const std::vector<v2vInputModel>& models, const v2vInputModel& giver, v2vReport& report) {
  const velLengthUnit taken = giver.document.unit;
  const velLengthUnit other = taken == velLENGTH_INCH ? velLENGTH_MILLIMETRE : velLENGTH_INCH;
  for (const v2vInputModel& model : models) {
    if (model.document.unit != velLENGTH_UNSPECIFIED) continue;
    report.message(velabsWARNING, model.file + ": it has no length unit, so its numbers are taken to be in " +
                                      co_value_to_text(taken) + ", the unit of " + giver.file +
                                      "; if they are not, name their unit, for instance with --in length-unit=" +
                                      co_value_to_text(other));
  }
}

}  // namespace

void v2v_merge(std::vector<v2vInputModel>& models, annDocument& target, v2vReport& report) {
  target = annDocument();
  const auto giver = std::find_if(models.begin(), models.end(), [](const v2vInputModel& model) {
    return model.document.unit != velLENGTH_UNSPECIFIED;
  });
  if (giver != models.end()) {
    target.unit = giver->document.unit;
    warn_of_missing_units(models, *giver, report);
  }
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
    const double scale = vel_length_ratio(model.document.unit, target.unit);
    for (auto& node : top) {
      if (scale != 1) node->transform = annTransform::scaling(scale) * node->transform;
      target.root.children.push_back(std::move(node));
    }
  }
}
