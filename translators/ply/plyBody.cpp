#include "plyBody.h"

#include <algorithm>
#include <bit>

#include "plyBinary.h"
#include "plyColumns.h"
#include "plyText.h"
#include "plyTriangles.h"
#include "vltInput.h"
#include "vltNames.h"

static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 20;
constexpr std::size_t entries_at_once = 2048;

std::size_t count_of_vertices(const plyHead& head) {
  const plyElement* vertices = head.find("vertex");
  return vertices ? vertices->count : 0;
}

plyKind kind_of(const plyElement& element) {
  if (element.name == "vertex") return plyKind::vertices;
  if (element.name == "face") return plyKind::faces;
  return element.name == "tristrips" ? plyKind::strips : plyKind::other;
}

}  // namespace

plyBody::plyBody(apMappedFile& file, const plyHead& head, bool materials, double factor, velabsOutput& output)
    : bytes_(file.bytes()),
      head_(head),
      materials_(materials),
      output_(output),
      findings_(output),
      mesh_(count_of_vertices(head), factor, findings_),
      progress_(output, bytes_.size(), progress_step, &file) {}

velabsResult plyBody::read() {
  if (!make_plans()) return velabsFAILED;
  switch (head_.form) {
    case plyForm::ascii:
      return read_from(plyText(bytes_.substr(head_.size), head_.body_line, findings_));
    case plyForm::little_endian:
      return read_from(plyBinary<false>(bytes_, head_.size));
    case plyForm::big_endian:
      break;
  }
  return read_from(plyBinary<true>(bytes_, head_.size));
}

bool plyBody::make_plans() {
  for (const plyElement& element : head_.elements) {
    const plyKind kind = element.is_first ? kind_of(element) : plyKind::other;
    const plyPlan plan(element, kind, materials_ || element.name == "vertex");
    const bool lacks_corners = plan.kind() != plyKind::vertices && !plan.has_corners();
    plans_.push_back(lacks_corners ? plyPlan(element, plyKind::other, false) : plan);
  }
  auto is_usable = [](const plyPlan& plan) { return plan.kind() == plyKind::vertices && plan.has(plyX); };
  if (std::none_of(plans_.begin(), plans_.end(), is_usable)) {
    output_.message(velabsERROR, "no vertex element with x, y and z: the file holds no mesh");
    return false;
  }
  if (mesh_.vertex_count() < annMesh::no_material) return true;
  return vlt_fail_at_line(output_, head_.find("vertex")->line, "more vertices than a mesh can number");
}

template <typename Source>
velabsResult plyBody::read_from(Source source) {
  for (const plyPlan& plan : plans_) {
    plan.tell_left_out(findings_);
    if (!read_element(source, plan)) return cancelled_ ? velabsCANCELLED : velabsFAILED;
  }
  if (!source.at_end()) {
    output_.message(velabsWARNING,
                    utString(source.place() + ": more follows behind the last element: it is passed over"));
  }
  mesh_.finish();
  if (!has_geometry()) return velabsFAILED;
  findings_.tell();
  return velabsDONE;
}

template <typename Source>
bool plyBody::read_element(Source& source, const plyPlan& plan) {
  const plyElement& element = plan.element();
  if (element.properties.empty()) return true;
  if (plan.kind() == plyKind::faces || plan.kind() == plyKind::strips) face_entries_ += element.count;
  mesh_.begin(plan, bytes_.size() - source.offset());

  std::optional<plyTriangles> triangles;
  if constexpr (!std::is_same_v<Source, plyText>) {
    if (plan.kind() == plyKind::vertices && !element.has_lists()) return read_vertices(source, plan);
    if (plan.kind() == plyKind::faces) triangles = plyTriangles::make(plan);
  }
  for (std::size_t i = 0; i < element.count;) {
    if (!progress_.reached(source.offset())) return !(cancelled_ = true);
    if (triangles && mesh()->all_triangles()) {
      if (const std::size_t taken = read_triangles(source, *triangles, element.count - i); taken > 0) {
        i += taken;
        continue;
      }
    }
    if (!read_entry(source, plan, i)) return false;
    ++i;
  }
  return true;
}

template <typename Source>
std::size_t plyBody::read_triangles(Source& source, const plyTriangles& triangles, std::size_t most) {
  if constexpr (std::is_same_v<Source, plyText>) {
    return 0;
  } else {
    const std::size_t taken = triangles.take<Source::swapped>(source.rest(), std::min(most, entries_at_once), mesh_);
    source.advance(taken * triangles.entry_size());
    return taken;
  }
}

template <typename Source>
bool plyBody::read_vertices(Source& source, const plyPlan& plan) {
  const plyColumns columns(plan);
  const std::size_t count = plan.element().count;
  for (std::size_t i = 0; i < count;) {
    if (!progress_.reached(source.offset())) return !(cancelled_ = true);
    const std::string_view rest = source.rest();
    const std::size_t most = std::min({count - i, entries_at_once, rest.size() / columns.entry_size()});
    if (most == 0) return fail(source.place(), plan, i, "the file ends here");
    const std::size_t good =
        columns.append<Source::swapped>(rest.data(), most, mesh_.factor(), *mesh_.mesh()->vertices);
    source.advance(good * columns.entry_size());
    i += good;
    if (good < most) return fail(source.place(), plan, i, "a coordinate is no finite number");
  }
  return true;
}

template <typename Source>
bool plyBody::read_entry(Source& source, const plyPlan& plan, std::size_t number) {
  if (!source.begin_entry() || !read_values(source, plan)) return fail(source.place(), plan, number, source.reason());
  if (!take(plan)) return fail(source.place(), plan, number, mesh_.reason());
  source.end_entry();
  return true;
}

template <typename Source>
bool plyBody::read_values(Source& source, const plyPlan& plan) {
  const std::vector<plyProperty>& properties = plan.element().properties;
  for (std::size_t i = 0; i < properties.size(); ++i) {
    const plyProperty& property = properties[i];
    if (!property.is_list) {
      double value = 0;
      if (!source.number(property.type, value)) return false;
      if (plan.role(i) != plyNO_ROLE) entry_.values[static_cast<std::size_t>(plan.role(i))] = value;
      continue;
    }
    std::size_t count = 0;
    if (!source.count(property.count_type, property.type, count)) return false;
    if (!plan.is_corners(i)) {
      if (!source.skip(property.type, count)) return false;
      continue;
    }
    entry_.corners.resize(count);
    for (long long& corner : entry_.corners) {
      if (!source.whole(property.type, corner)) return false;
    }
  }
  return true;
}

bool plyBody::take(const plyPlan& plan) {
  switch (plan.kind()) {
    case plyKind::vertices:
      return mesh_.vertex(entry_);
    case plyKind::faces:
      return mesh_.face(entry_);
    case plyKind::strips:
      return mesh_.strip(entry_);
    case plyKind::other:
      break;
  }
  return true;
}

bool plyBody::fail(const std::string& place, const plyPlan& plan, std::size_t number, const std::string& reason) {
  output_.message(velabsERROR, utString(place + ": entry " + std::to_string(number + 1) + " of " +
                                        std::to_string(plan.element().count) + " of the element " +
                                        vlt_quoted(plan.element().name) + ": " + reason));
  return false;
}

bool plyBody::has_geometry() {
  if (mesh()->face_count() > 0) return true;
  if (mesh_.faces_left_out() > 0) {
    output_.message(velabsERROR, "no face of the file has three corners");
    return false;
  }
  if (mesh_.vertex_count() > 0) findings_.count(velabsWARNING, "the file holds no faces: its vertices alone are kept");
  return true;
}
