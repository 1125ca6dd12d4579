#include "offParser.h"

#include <algorithm>
#include <cmath>

#include "vltInput.h"
#include "vltNames.h"
#include "vltNormals.h"

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 20;

// Placeholder for a vertex without a colour when others have one.
constexpr annColour no_colour{-1, -1, -1, -1};

}  // namespace

offParser::offParser(apMappedFile& file, bool materials, double factor, velabsOutput& output)
    : text_(vlt_without_mark(file.bytes())),
      materials_(materials),
      factor_(factor),
      output_(output),
      findings_(output),
      lines_(text_),
      progress_(output, text_.size(), progress_step, &file),
      palette_(*mesh_) {}

velabsResult offParser::read() {
  if (!head_.read(lines_, text_.size(), output_)) return velabsFAILED;
  normals_ = head_.normals;
  if (!read_vertices() || !read_faces()) return cancelled_ ? velabsCANCELLED : velabsFAILED;
  if (lines_.next_line()) {
    findings_.count(velabsWARNING, "more follows behind the last face: it is passed over", lines_.line());
  }
  if (!finish()) return velabsFAILED;
  findings_.tell();
  return velabsDONE;
}

bool offParser::read_vertices() {
  mesh_->vertices->points.reserve(head_.vertices);
  for (std::size_t i = 0; i < head_.vertices; ++i) {
    if (!progress_.reached(lines_.offset())) return !(cancelled_ = true);
    if (!next_line("vertex", i, head_.vertices) || !read_vertex()) return false;
  }
  return true;
}

bool offParser::read_vertex() {
  std::array<double, 12> numbers;
  std::size_t count = 0;
  while (count < 3 && lines_.take(numbers[count])) ++count;
  if (count < 3) {
    if (lines_.at_line_end()) return fail("a vertex needs three coordinates");
    return fail("the coordinate " + vlt_quoted(lines_.take_word()) + " is no number");
  }
  const annVector point = annVector{numbers[0], numbers[1], numbers[2]} * factor_;
  if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z)) {
    return fail("a coordinate is no finite number");
  }
  mesh_->vertices->points.push_back(point);
  std::vector<annColour>& colours = mesh_->vertices->colours;
  if (!colours.empty()) colours.push_back(no_colour);
  if (head_.normals) read_normal();
  if (lines_.at_line_end()) return true;

  const std::string_view before = lines_.rest();
  const std::span<double> room = std::span(numbers).subspan(3);
  if (!take_numbers(room, count)) return false;
  return read_extras(room.first(count), before.substr(0, before.size() - lines_.rest().size()));
}

void offParser::read_normal() {
  annVector normal;
  if (lines_.take(normal.x) && lines_.take(normal.y) && lines_.take(normal.z)) {
    if (normals_) mesh_->vertices->normals.push_back(normal);
    return;
  }
  normals_ = false;
  findings_.count(velabsWARNING, "a vertex has no normal, so normals are left out", lines_.line());
}

bool offParser::read_extras(std::span<const double> numbers, std::string_view text) {
  const bool textures = (head_.textures && numbers.size() >= 2) || numbers.size() == 2;
  if (textures) {
    findings_.count(velabsNOTE, "texture coordinates are left out");
    numbers = numbers.first(numbers.size() - 2);
  }
  if (numbers.size() == 3 || numbers.size() == 4) {
    std::vector<annColour>& colours = mesh_->vertices->colours;
    colours.resize(mesh_->vertices->points.size(), no_colour);
    colours.back() = vertex_colours_.take(numbers, text);
  } else if (!numbers.empty()) {
    findings_.count(velabsWARNING, "further numbers of a vertex are passed over", lines_.line());
  }
  return true;
}

bool offParser::take_numbers(std::span<double> room, std::size_t& count) {
  for (count = 0; !lines_.at_line_end(); ++count) {
    double number = 0;
    if (!lines_.take(number)) return fail(vlt_quoted(lines_.take_word()) + " is no number");
    if (count == room.size()) {
      // Too many numbers have no meaning. Skip the rest; the maximum count shows this to the caller.
      while (!lines_.at_line_end()) lines_.take_word();
      --count;
    } else {
      room[count] = number;
    }
  }
  return true;
}

bool offParser::read_faces() {
  mesh_->corners.reserve(std::min(3 * head_.faces, (text_.size() - lines_.offset()) / 2));
  for (std::size_t i = 0; i < head_.faces; ++i) {
    if (!progress_.reached(lines_.offset())) return !(cancelled_ = true);
    if (!next_line("face", i, head_.faces) || !read_face()) return false;
  }
  return true;
}

bool offParser::read_face() {
  long long count = 0;
  if (!lines_.take(count))
    return fail("the number of corners " + vlt_quoted(lines_.take_word()) + " is no whole number");
  if (count < 0) return fail("a face of " + std::to_string(count) + " corners");
  if (!read_corners(count)) return false;
  if (count < 3) {
    ++faces_left_out_;
    findings_.count(velabsWARNING, "faces with fewer than three corners are left out", lines_.line());
    return true;
  }
  if (mesh_->corners.size() + corners_.size() >= annMesh::no_material)
    return fail("more corners than a mesh can number");
  mesh_->add_face(corners_);
  return lines_.at_line_end() || read_face_colour();
}

bool offParser::read_corners(long long count) {
  corners_.clear();
  for (long long i = 0; i < count; ++i) {
    long long number = 0;
    if (!lines_.take(number)) {
      if (!lines_.at_line_end()) return fail("the corner " + vlt_quoted(lines_.take_word()) + " is no whole number");
      return fail("a face of " + std::to_string(count) + " corners names " + std::to_string(i));
    }
    if (number < 0 || static_cast<unsigned long long>(number) >= head_.vertices) {
      return fail("there is no vertex " + std::to_string(number) + ": the file has " + std::to_string(head_.vertices) +
                  ", counted from 0");
    }
    corners_.push_back(static_cast<std::uint32_t>(number));
  }
  return true;
}

bool offParser::read_face_colour() {
  const std::string_view before = lines_.rest();
  std::array<double, 5> numbers;
  std::size_t count = 0;
  if (!take_numbers(numbers, count)) return false;
  if (count == 1) {
    findings_.count(velabsNOTE, "faces name colours of a table that the file does not hold: they are left out",
                    lines_.line());
  } else if (count == 3 || count == 4) {
    const std::string_view text = before.substr(0, before.size() - lines_.rest().size());
    const annColour raw = face_colours_.take(std::span(numbers).first(count), text);
    if (materials_) mesh_->set_face_material(mesh_->face_count() - 1, palette_.number_of(raw));
  } else {
    findings_.count(velabsWARNING, "what stands behind the corners of a face is no colour and passed over",
                    lines_.line());
  }
  return true;
}

bool offParser::next_line(const char* what, std::size_t number, std::size_t of) {
  return lines_.next_line() || fail("the file ends before " + std::string(what) + " " + std::to_string(number + 1) +
                                    " of " + std::to_string(of));
}

bool offParser::fail(std::string_view reason) {
  return vlt_fail_at_line(output_, lines_.line(), reason);
}

bool offParser::finish() {
  if (faces_left_out_ > 0 && mesh_->face_count() == 0) {
    output_.message(velabsERROR, "no face of the file has three corners");
    return false;
  }
  if (mesh_->face_count() == 0 && head_.vertices > 0) {
    findings_.count(velabsWARNING, "the file holds no faces: its vertices alone are kept");
  }
  if (!normals_) mesh_->vertices->normals = {};
  vlt_settle_normals(mesh_->vertices->normals, findings_);
  finish_colours();
  return true;
}

void offParser::finish_colours() {
  for (annColour& colour : mesh_->vertices->colours) {
    colour = colour == no_colour ? annColour{1, 1, 1, 1} : vertex_colours_.settled(colour);
  }
  for (annMaterial& material : mesh_->materials) material.colour = face_colours_.settled(material.colour);
  if (vertex_colours_.any_odd() || (materials_ && face_colours_.any_odd())) {
    findings_.count(velabsWARNING, "a colour that is no number is taken as 0");
  }
}
