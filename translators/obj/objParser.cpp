#include "objParser.h"

#include <algorithm>
#include <limits>

#include "objNumbers.h"
#include "vltFlag.h"
#include "vltInput.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltWords.h"

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 20;

}  // namespace

objParser::objParser(const utString& name, apMappedFile& file, const velTableInstance& resources, annDocument& document,
                     velabsOutput& output, double factor)
    : file_(file),
      output_(output),
      read_materials_(vlt_flag(resources, "READ_MATERIALS")),
      findings_(output),
      lines_(file.bytes()),
      vertices_(factor, file.bytes().size(), findings_, output),
      parts_(document, vertices_.shared()),
      materials_(name, findings_, output) {}

velabsResult objParser::read() {
  vltProgress progress(output_, file_.bytes().size(), progress_step, &file_);
  for (std::string_view line; lines_.next(line);) {
    if (!statement(line)) return output_.cancelled() ? velabsCANCELLED : velabsFAILED;
    if (!progress.reached(lines_.offset())) return velabsCANCELLED;
  }
  return finish() ? velabsDONE : velabsFAILED;
}

bool objParser::statement(std::string_view line) {
  const std::string_view keyword = vlt_take_word(line);
  if (keyword.empty() || keyword.starts_with('#')) return true;
  if (keyword == "v") return vertices_.position(line, lines_.line());
  if (keyword == "f" || keyword == "fo") return face(line);
  if (keyword == "vn") return vertices_.normal(line, lines_.line());
  if (keyword == "vt") {
    vertices_.texture();
  } else if (keyword == "o") {
    parts_.object(vlt_name_on_line(line));
  } else if (keyword == "g") {
    parts_.group(vlt_name_on_line(line));
  } else if (keyword == "usemtl") {
    const std::string name = vlt_name_on_line(line);
    material_ = read_materials_ && !name.empty() ? materials_.number_of(name, lines_.line()) : annMesh::no_material;
  } else if (keyword == "mtllib") {
    return !read_materials_ || materials_.load(line, lines_.line());
  } else {
    other_statement(keyword);
  }
  return true;
}

void objParser::other_statement(std::string_view keyword) {
  const std::size_t line = lines_.line();
  if (keyword == "l") {
    findings_.count(velabsWARNING, "line elements are left out", line);
  } else if (keyword == "p") {
    findings_.count(velabsWARNING, "point elements are left out", line);
  } else if (keyword == "s") {
    findings_.count(velabsNOTE, "smoothing groups are left out", line);
  } else {
    has_unknown_statements_ = true;
    findings_.count(velabsWARNING, "statement " + vlt_quoted(keyword) + " is not known and left out", line);
  }
}

bool objParser::face(std::string_view rest) {
  face_corners_.clear();
  face_normals_.clear();
  bool any_normal = false;
  take_plain_corners(rest);
  face_normals_.resize(face_corners_.size(), annMesh::no_normal);
  for (std::string_view word = vlt_take_word(rest); !word.empty() && word[0] != '#'; word = vlt_take_word(rest)) {
    Corner next{};
    if (!corner(word, next)) return false;
    face_corners_.push_back(next.vertex);
    face_normals_.push_back(next.normal);
    any_normal = any_normal || next.normal != annMesh::no_normal;
  }
  if (!any_normal) face_normals_.clear();
  if (face_corners_.size() < 3) {
    findings_.count(velabsWARNING, "faces with fewer than three corners are left out", lines_.line());
    ++faces_left_out_;
    return true;
  }
  if (parts_.current().mesh->corners.size() + face_corners_.size() > std::numeric_limits<std::uint32_t>::max()) {
    return fail("more corners than a mesh can number");
  }
  add_face();
  return true;
}

// Reads corners that are only a vertex number, up to the first one of another form. Most of a file is read here, so it
// uses plain pointers: string views take twice the time.
void objParser::take_plain_corners(std::string_view& rest) {
  constexpr std::ptrdiff_t few = 9;
  const char* at = rest.data();
  const char* const end = at + rest.size();
  const char* taken = at;
  while (true) {
    while (at != end && vlt_is_blank(*at)) ++at;
    const char* const first = at;
    std::uint32_t index = 0;
    for (; at != end && *at >= '0' && *at <= '9' && at - first < few; ++at) {
      index = 10 * index + static_cast<std::uint32_t>(*at - '0');
    }
    if (index == 0 || (at != end && !vlt_is_blank(*at))) break;
    reach(vertex_reach_, index);
    face_corners_.push_back(index - 1);
    taken = at;
  }
  rest = {taken, static_cast<std::size_t>(end - taken)};
}

// Reads "7", "7/1", "7//3" or "7/1/3". The texture coordinate in the middle is ignored.
bool objParser::corner(std::string_view word, Corner& corner) {
  const std::string_view whole = word;
  bool exists = false;
  if (!take_reference(word, vertices_.positions(), vertex_reach_, corner.vertex, exists)) {
    return fail("the corner " + vlt_quoted(whole) + " is no whole number");
  }
  if (!exists) {
    return fail("there is no vertex " + vlt_quoted(whole.substr(0, whole.find('/'))) + ", " +
                std::to_string(vertices_.positions()) + " came before");
  }
  corner.normal = annMesh::no_normal;
  if (word.starts_with('/')) {
    word.remove_prefix(1);
    long long texture = 0;
    obj_take_index(word, texture);
  }
  if (word.starts_with('/') && word.size() > 1) {
    word.remove_prefix(1);
    if (!take_reference(word, vertices_.normals(), normal_reach_, corner.normal, exists)) word = whole;
    if (!exists) findings_.count(velabsWARNING, "a corner names a normal that is not there", lines_.line());
  } else if (word == "/") {
    word = {};
  }
  return word.empty() || fail("the corner " + vlt_quoted(whole) + " is not of the form \"vertex/texture/normal\"");
}

// False when there is no integer. `exists` is known for an index relative to the end; for others it is checked at the
// end of the file.
bool objParser::take_reference(std::string_view& word, std::size_t known, Reach& so_far, std::uint32_t& number,
                               bool& exists) {
  long long index = 0;
  if (!obj_take_index(word, index)) return false;
  const auto count = static_cast<long long>(known);
  if (index < 0) index = index < -count ? 0 : index + count + 1;
  exists = index > 0 && index < std::numeric_limits<std::uint32_t>::max();
  if (!exists) return true;
  reach(so_far, static_cast<std::size_t>(index));
  number = static_cast<std::uint32_t>(index - 1);
  return true;
}

void objParser::add_face() {
  ++faces_;
  objPart& part = parts_.current();
  annMesh& mesh = *part.mesh;
  // Corners before the first normal have none.
  if (!face_normals_.empty()) {
    mesh.corner_normals.resize(mesh.corners.size(), annMesh::no_normal);
    mesh.corner_normals.insert(mesh.corner_normals.end(), face_normals_.begin(), face_normals_.end());
  }
  mesh.add_face(face_corners_);
  if (material_ == annMesh::no_material) return;
  const auto next = static_cast<std::uint32_t>(part.materials.size());
  const auto [local, is_new] = part.local_material_of.try_emplace(material_, next);
  if (is_new) part.materials.push_back(material_);
  mesh.set_face_material(mesh.face_count() - 1, local->second);
}

bool objParser::fail(std::string_view reason) const {
  return vlt_fail_at_line(output_, lines_.line(), reason);
}

bool objParser::finish() {
  if (vertex_reach_.needed > vertices_.positions()) {
    return vlt_fail_at_line(output_, vertex_reach_.line,
                            "there is no vertex " + std::to_string(vertex_reach_.needed) + ", the file has " +
                                std::to_string(vertices_.positions()));
  }
  if (vertices_.positions() == 0 && has_unknown_statements_) {
    output_.message(velabsERROR, "the file holds no geometry: no line of it is a vertex");
    return false;
  }
  if (faces_ == 0 && faces_left_out_ > 0) {
    output_.message(velabsERROR, "no face of the file has three corners");
    return false;
  }
  if (faces_ == 0 && vertices_.positions() > 0) {
    // The file has only lines or points: keep the vertices.
    parts_.object(parts_.first_name());
    parts_.current();
    findings_.count(velabsWARNING, "the file holds no faces");
  }
  if (vertices_.textures() > 0) findings_.count(velabsNOTE, "texture coordinates are left out");
  vertices_.finish_colours();
  finish_materials();
  finish_normals();
  findings_.tell();
  return true;
}

void objParser::finish_materials() {
  for (objPart& part : parts_.all()) {
    for (std::uint32_t number : part.materials) part.mesh->materials.push_back(materials_.use(number));
  }
}

void objParser::finish_normals() {
  if (normal_reach_.needed > vertices_.normals()) {
    findings_.count(velabsWARNING, "a corner names a normal that is not there", normal_reach_.line);
  }
  bool has_normals = false;
  for (const objPart& part : parts_.all()) {
    std::vector<std::uint32_t>& normals = part.mesh->corner_normals;
    for (std::uint32_t& normal : normals) normal = vertices_.pool_index(normal);
    auto is_none = [](std::uint32_t normal) { return normal == annMesh::no_normal; };
    if (std::all_of(normals.begin(), normals.end(), is_none)) normals = {};
    if (!normals.empty()) normals.resize(part.mesh->corners.size(), annMesh::no_normal);
    has_normals = has_normals || !normals.empty();
  }
  if (has_normals && !give_normals_to_vertices()) return;
  // Either each vertex has one normal, or no corner has any.
  vertices_.shared()->normal_pool = {};
  for (const objPart& part : parts_.all()) part.mesh->corner_normals = {};
}

bool objParser::give_normals_to_vertices() {
  constexpr annVector any_direction{0, 0, 1};
  annVertices& vertices = *vertices_.shared();
  const std::vector<annVector>& pool = vertices.normal_pool;
  std::vector<std::uint32_t> normal_of(vertices.points.size(), annMesh::no_normal);
  for (const objPart& part : parts_.all()) {
    const annMesh& mesh = *part.mesh;
    if (mesh.corner_normals.size() != mesh.corners.size()) return false;
    for (std::size_t i = 0; i < mesh.corners.size(); ++i) {
      const std::uint32_t normal = mesh.corner_normals[i];
      std::uint32_t& known = normal_of[mesh.corners[i]];
      if (known == annMesh::no_normal) known = normal;
      if (normal == annMesh::no_normal || (known != normal && pool[known] != pool[normal])) return false;
    }
  }
  vertices.normals.reserve(normal_of.size());
  for (std::uint32_t normal : normal_of) {
    vertices.normals.push_back(normal == annMesh::no_normal ? any_direction : pool[normal]);
  }
  return true;
}
