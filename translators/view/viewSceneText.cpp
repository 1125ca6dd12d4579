#include "viewSceneText.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "viewPacking.h"
#include "viewText.h"

namespace {

constexpr double farthest = 1e30;

template <typename Values>
std::string numbers(const Values& values) {
  std::string text;
  for (auto value : values) text += (text.empty() ? "" : ",") + view_json_number(value);
  return text;
}

std::string box_text(const annBox& box) {
  return numbers(std::array{box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z});
}

}  // namespace

viewSceneText::viewSceneText(const viewScene& scene, std::string title, velLengthUnit unit)
    : scene_(scene), title_(std::move(title)), unit_(unit), shown_by_(scene.meshes.size()), boxes_(scene.nodes.size()) {
  for (std::size_t i = 0; i < scene.nodes.size(); ++i) {
    if (scene.nodes[i].mesh != viewScene::none) shown_by_[scene.nodes[i].mesh].push_back(i);
  }
}

std::string viewSceneText::add_mesh(const viewMesh& mesh, std::size_t number) {
  is_empty_.push_back(mesh.corners.empty());
  const viewPacked packed = view_pack(mesh);
  triangles_ += mesh.triangle_count();
  std::string ranges;
  for (const auto& range : mesh.ranges) {
    const bool own = range.material == annMesh::no_material;
    const std::string look =
        own ? "-1" : std::to_string(colour(scene_.meshes[number]->materials[range.material].colour));
    ranges += (ranges.empty() ? "[" : ",[") + look + "," + std::to_string(range.first) + "," +
              std::to_string(range.count) + "]";
  }
  if (!meshes_.empty()) meshes_ += ",\n";
  meshes_ += "{\"v\":" + std::to_string(mesh.points.size()) + ",\"t\":" + std::to_string(mesh.triangle_count()) +
             ",\"e\":" + std::to_string(mesh.edges.size() / 2) + ",\"c\":" + std::to_string(packed.corner_bytes) +
             ",\"l\":" + std::to_string(packed.edge_bytes) + ",\"gap\":" + view_json_number(mesh.line_spacing) +
             ",\"box\":[" + box_text(mesh.box) + "],\"ranges\":[" + ranges +
             "],\"solid\":" + (mesh.closed ? "1" : "0") + ",\"tinted\":" + (mesh.colours.empty() ? "0" : "1") + "}";
  if (mesh.corners.empty()) return {};
  for (std::size_t node : shown_by_[number]) {
    const annBox& box = boxes_[node] = view_placed_box(mesh.points, mesh.box, scene_.nodes[node].placement);
    for (double value : {box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z}) {
      within_reach_ = within_reach_ && std::fabs(value) <= farthest;
    }
  }
  return packed.bytes;
}

void viewSceneText::write(velabsOfStream& stream) {
  stream.write("{\"title\":" + view_json_text(title_) + ",\"unit\":\"" + vel_length_symbol(unit_) + "\",\"up\":\"" +
               (scene_.up == annUP_Y ? "y" : "z") + "\",\n\"meshes\":[");
  stream.write(meshes_);
  stream.write("],\n\"nodes\":[");
  for (std::size_t i = 0; i < scene_.nodes.size(); ++i) write_node(scene_.nodes[i], i, stream);
  stream.write("],\n\"colours\":[" + colours_ + "]}");
}

void viewSceneText::write_node(const viewScene::Node& node, std::size_t number, velabsOfStream& stream) {
  auto reference = [](std::uint32_t to) { return to == viewScene::none ? "-1" : std::to_string(to); };
  const utString &name = node.node->name, &instance = node.node->instance_name;
  std::string text = (number == 0 ? "[" : ",\n[") + reference(node.parent) + ",";
  const bool has_own_name = !instance.empty() && instance != name;
  text += has_own_name ? "[" + view_json_text(instance.view()) + "," + view_json_text(name.view()) + "]"
                       : view_json_text(name.view());
  if (node.mesh != viewScene::none && !is_empty_[node.mesh]) {
    text += "," + reference(node.mesh) + "," + (node.colour ? std::to_string(colour(*node.colour)) : "-1") + ",[" +
            numbers(node.placement.m) + "],[" + box_text(boxes_[number]) + "]";
  }
  stream.write(text + "]");
}

std::size_t viewSceneText::colour(const annColour& colour) {
  // Components are clamped to 0 to 1; NaN becomes 0.
  auto part = [](float value) { return value > 0 ? std::min(value, 1.0F) : 0.0F; };
  const std::array<float, 4> parts{part(colour.red), part(colour.green), part(colour.blue), part(colour.opacity)};
  const auto [known, is_new] = colour_numbers_.try_emplace(parts, colour_numbers_.size());
  if (is_new) colours_ += (colours_.empty() ? "[" : ",[") + numbers(parts) + "]";
  return known->second;
}
