#include "stlTextReader.h"

#include <algorithm>
#include <cmath>

#include "vltFlag.h"
#include "vltInput.h"
#include "vltNames.h"

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 20;

}  // namespace

stlTextReader::stlTextReader(apMappedFile& file, const velTableInstance& resources, annDocument& document,
                             velabsOutput& output)
    : output_(output),
      document_(document),
      words_(file.bytes()),
      progress_(output, file.bytes().size(), progress_step, &file),
      weld_(vlt_flag(resources, "WELD_POINTS")) {}

velabsResult stlTextReader::read(double factor) {
  factor_ = factor;
  for (std::string_view word = words_.next(); !word.empty(); word = words_.next()) {
    if (!vlt_same_word(word, "solid")) {
      fail_expecting(word, "\"solid\"");
      return velabsFAILED;
    }
    const velabsResult result = read_solid();
    if (result != velabsDONE) return result;
  }
  settle_empty_solids();
  return velabsDONE;
}

velabsResult stlTextReader::read_solid() {
  const std::size_t first_line = words_.line();
  const std::string name = vlt_name_on_line(words_.rest_of_line());
  annNode& node = document_.root.add_child(name.empty() ? utString() : utString(name));
  auto mesh = std::make_shared<annMesh>();
  stlCorners corners(*mesh, weld_);
  while (true) {
    if (!progress_.reached(words_.offset())) return velabsCANCELLED;
    if (words_.next_is("facet")) {
      if (!read_facet(corners)) return velabsFAILED;
      continue;
    }
    const std::string_view word = words_.next();
    if (vlt_same_word(word, "endsolid")) break;
    if (word.empty()) {
      fail("the file ends before the \"endsolid\" of the solid that begins in line " + std::to_string(first_line));
    } else {
      fail_expecting(word, "\"facet\" or \"endsolid\"");
    }
    return velabsFAILED;
  }
  words_.rest_of_line();
  corners.finish();
  if (mesh->face_count() > 0) node.body.mesh = std::move(mesh);
  return velabsDONE;
}

bool stlTextReader::read_facet(stlCorners& corners) {
  if (!skip_normal() || !expect("loop")) return false;
  for (int corner = 0; corner < 3; ++corner) {
    annVector point;
    if (!expect("vertex") || !read_point(point)) return false;
    if (!corners.add(point)) return fail("more points than a mesh can number");
  }
  return expect("endloop") && expect("endfacet");
}

bool stlTextReader::skip_normal() {
  // Up to three words: normals of facets without area are often some spelling of "nan".
  const bool has_normal = words_.next_is("normal");
  for (int i = 0; i < 3 && has_normal; ++i) {
    if (words_.next_is("outer")) return true;
    words_.next();
  }
  return expect("outer");
}

bool stlTextReader::read_point(annVector& point) {
  for (double* coordinate : {&point.x, &point.y, &point.z}) {
    if (!words_.next_number(*coordinate)) return fail_expecting(words_.next(), "a number");
    *coordinate *= factor_;
    if (!std::isfinite(*coordinate)) return fail("a coordinate is no finite number");
  }
  return true;
}

bool stlTextReader::expect(std::string_view lower) {
  return words_.next_is(lower) || fail_expecting(words_.next(), "\"" + std::string(lower) + "\"");
}

bool stlTextReader::fail(std::string_view reason) {
  return vlt_fail_at_line(output_, words_.line(), reason);
}

bool stlTextReader::fail_expecting(std::string_view found, std::string_view expected) {
  const std::string what = found.empty() ? "the file ends" : "there is " + vlt_quoted(found);
  return fail(what + " where " + std::string(expected) + " is expected");
}

void stlTextReader::settle_empty_solids() {
  auto& solids = document_.root.children;
  auto is_empty = [](const auto& node) { return node->body.empty(); };
  if (!std::all_of(solids.begin(), solids.end(), is_empty)) {
    std::erase_if(solids, [&](const auto& node) { return is_empty(node) && node->name.empty(); });
    return;
  }
  for (auto& node : solids) node->body.mesh = std::make_shared<annMesh>();
}
