#include "stlTextWriter.h"

#include "stlTriangles.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltRenames.h"
#include "vltTextOutput.h"

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 14;

class SolidWriter {
 public:
  SolidWriter(velabsOfStream& stream, velabsOutput& output, int digits, std::size_t triangles)
      : stream_(stream), output_(output), text_(stream, digits), progress_(output, triangles, progress_step) {}

  void begin(const std::string& name) { name_line("solid", name); }
  void end(const std::string& name) { name_line("endsolid", name); }

  bool facets(const vltPlacedMesh& body) {
    return stl_for_each_triangle(body, [&](std::size_t, const annVector& a, const annVector& b, const annVector& c) {
      const annVector n = stl_normal(a, b, c);
      text_.text("facet normal");
      for (double value : {n.x, n.y, n.z}) {
        text_.text(" ");
        text_.number(static_cast<float>(value));
      }
      text_.text("\n outer loop\n");
      if (!vertex(a) || !vertex(b) || !vertex(c)) return false;
      text_.text(" endloop\nendfacet\n");
      cancelled_ = !progress_.reached(++done_);
      return !cancelled_ && stream_.good();
    });
  }

  velabsResult result() const { return cancelled_ ? velabsCANCELLED : velabsFAILED; }

 private:
  bool vertex(const annVector& point) {
    text_.text("  vertex");
    for (double value : {point.x, point.y, point.z}) {
      if (!std::isfinite(value)) {
        output_.message(velabsERROR, "a coordinate is too large for a number once it is placed and scaled");
        return false;
      }
      text_.text(" ");
      text_.number(value);
    }
    text_.text("\n");
    return true;
  }

  void name_line(std::string_view keyword, const std::string& name) {
    text_.text(keyword);
    if (!name.empty()) text_.text(" ");
    text_.text(name);
    text_.text("\n");
  }

  velabsOfStream& stream_;
  velabsOutput& output_;
  vltTextOutput text_;
  vltProgress progress_;
  bool cancelled_ = false;
  std::size_t done_ = 0;
};

}  // namespace

velabsResult stl_write_text(const std::vector<vltPlacedMesh>& bodies, const velTableInstance& resources,
                            velabsOfStream& stream, velabsOutput& output) {
  const std::optional<int> digits = vlt_digits(resources, output);
  if (!digits) return velabsFAILED;
  std::size_t triangles = 0;
  for (const vltPlacedMesh& body : bodies) triangles += body.mesh->triangle_count();
  SolidWriter writer(stream, output, *digits, triangles);
  const std::string all = vlt_name_for_line(resources.value<utString>("SOLID_NAME"));
  const bool one = !all.empty() || bodies.empty();
  vltRenames renames;
  if (one) writer.begin(all);
  for (const vltPlacedMesh& body : bodies) {
    const std::string name = vlt_name_for_line(body.node->label());
    if (!one) {
      renames.take(body.node->label().view(), name);
      writer.begin(name);
    }
    if (!writer.facets(body)) return writer.result();
    if (!one) writer.end(name);
  }
  if (one) writer.end(all);
  renames.tell("text STL names each part by one line, in which no \"#\" stands alone", output);
  return velabsDONE;
}
