#include "gltfPlanText.h"

#include <charconv>

#include "apNumberText.h"
#include "gltfJsonText.h"

namespace {

constexpr std::size_t vertex_target = 34962;
constexpr std::size_t index_target = 34963;

// The linear value with the fewest digits that gives the same displayed colour.
double short_linear(float shown) {
  constexpr int enough_digits = 17;
  const double exact = gltf_linear(shown);
  for (int digits = 1; digits < enough_digits; ++digits) {
    char text[ap_number_room];
    const char* end = std::to_chars(text, text + sizeof text, exact, std::chars_format::general, digits).ptr;
    double rounded = 0;
    std::from_chars(text, end, rounded);
    if (gltf_shown(rounded) == shown) return rounded;
  }
  return exact;
}

class TextMaker {
 public:
  explicit TextMaker(const gltfPlan& plan) : plan_(plan) {}

  std::string make() {
    json_.open('{').key("asset").open('{').key("version").text("2.0").key("generator").text("vel").close('}');
    json_.line().key("scene").number(std::size_t{0}).line().key("scenes").open('[').open('{').key("nodes");
    numbers(plan_.roots);
    json_.close('}').close(']');
    list("nodes", plan_.nodes, [&](const gltfPlan::Node& node) { write(node); });
    list("meshes", plan_.meshes, [&](const gltfPlan::Mesh& mesh) { write(mesh); });
    list("materials", plan_.materials, [&](const gltfPlan::Material& material) { write(material); });
    list("accessors", plan_.accessors, [&](const gltfPlan::Accessor& accessor) { write(accessor); });
    list("bufferViews", plan_.accessors, [&](const gltfPlan::Accessor& accessor) { write_view(accessor); });
    if (plan_.data_size > 0) {
      json_.line().key("buffers").open('[').open('{').key("byteLength").number(plan_.data_size);
    }
    return json_.str();
  }

 private:
  template <typename List, typename Write>
  void list(const char* key, const List& elements, Write write_element) {
    if (elements.empty()) return;
    json_.line().key(key).open('[');
    for (const auto& element : elements) {
      json_.line().open('{');
      write_element(element);
      json_.close('}');
    }
    json_.close(']');
  }

  template <typename Numbers>
  void numbers(const Numbers& numbers) {
    json_.open('[');
    for (auto number : numbers) json_.number(number);
    json_.close(']');
  }

  void write(const gltfPlan::Node& node) {
    if (!node.node) write_turn(node);
    if (node.node && !node.node->label().empty()) json_.key("name").text(node.node->label().view());
    if (!node.placement.is_identity()) {
      json_.key("matrix").open('[');
      for (std::size_t column = 0; column < 4; ++column) {
        for (std::size_t row = 0; row < 3; ++row) json_.number(node.placement.m[4 * row + column]);
        json_.number(std::size_t{column == 3});
      }
      json_.close(']');
    }
    if (node.mesh) json_.key("mesh").number(*node.mesh);
    if (node.children.empty()) return;
    json_.key("children");
    numbers(node.children);
  }

  // Only the rotation that glTF requires is marked; one that the user requests stays when the file is read.
  void write_turn(const gltfPlan::Node& node) {
    if (node.placement != ann_turn(annUP_Z, annUP_Y)) return;
    json_.key("name").text("Z up").key("extras").open('{').key(gltf_up_key).text(gltf_up_z).close('}');
  }

  void write(const gltfPlan::Mesh& mesh) {
    const gltfPlan::Pool& pool = plan_.pools[mesh.pool];
    if (mesh.name && !mesh.name->empty()) json_.key("name").text(mesh.name->view());
    json_.key("primitives").open('[');
    for (const gltfPlan::Group& group : mesh.groups) {
      json_.open('{').key("attributes").open('{').key("POSITION").number(pool.positions);
      if (pool.normals) json_.key("NORMAL").number(*pool.normals);
      if (pool.colours) json_.key("COLOR_0").number(*pool.colours);
      json_.close('}').key("indices").number(group.indices);
      if (group.material) json_.key("material").number(*group.material);
      json_.close('}');
    }
    json_.close(']');
  }

  void write(const gltfPlan::Material& material) {
    if (material.look && !material.look->name.empty()) json_.key("name").text(material.look->name.view());
    json_.key("pbrMetallicRoughness").open('{');
    if (material.look) {
      const annColour& colour = material.look->colour;
      json_.key("baseColorFactor").open('[');
      for (float part : {colour.red, colour.green, colour.blue}) json_.number(short_linear(part));
      json_.number(colour.opacity).close(']');
    }
    json_.key("metallicFactor").number(std::size_t{0}).close('}');
    if (material.blends) json_.key("alphaMode").text("BLEND");
    if (material.double_sided) json_.key("doubleSided").flag(true);
  }

  void write(const gltfPlan::Accessor& accessor) {
    constexpr const char* types[] = {"", "SCALAR", "VEC2", "VEC3", "VEC4"};
    json_.key("bufferView").number(number_of(accessor)).key("componentType").number(std::size_t{accessor.type});
    json_.key("count").number(accessor.count).key("type").text(types[accessor.components]);
    if (!accessor.range) return;
    json_.key("min");
    numbers((*accessor.range)[0]);
    json_.key("max");
    numbers((*accessor.range)[1]);
  }

  void write_view(const gltfPlan::Accessor& accessor) {
    json_.key("buffer").number(std::size_t{0}).key("byteOffset").number(accessor.offset);
    json_.key("byteLength").number(accessor.size());
    json_.key("target").number(accessor.components == 1 ? index_target : vertex_target);
  }

  std::size_t number_of(const gltfPlan::Accessor& accessor) const {
    return static_cast<std::size_t>(&accessor - plan_.accessors.data());
  }

  const gltfPlan& plan_;
  gltfJsonText json_;
};

}  // namespace

std::string gltf_text_of(const gltfPlan& plan) {
  return TextMaker(plan).make();
}

std::string gltf_end_of_text(const gltfPlan& plan) {
  return plan.data_size > 0 ? "}]}" : "}";
}
