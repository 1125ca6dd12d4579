#include "plyColumns.h"

#include <cmath>

plyColumns::plyColumns(const plyPlan& plan) : plan_(plan) {
  const plyElement& element = plan.element();
  for (std::size_t i = 0; i < element.properties.size(); ++i) {
    if (plan.role(i) != plyNO_ROLE) offsets_[static_cast<std::size_t>(plan.role(i))] = entry_size_;
    entry_size_ += ply_size_of(element.properties[i].type);
  }
}

template <bool swapped, typename To>
void plyColumns::copy(plyRole role, const char* at, std::size_t count, To* to, std::size_t step) const {
  const int property = plan_.property_of(role);
  if (property < 0) return;
  at += offsets_[static_cast<std::size_t>(role)];
  ply_with_type(plan_.element().properties[static_cast<std::size_t>(property)].type, [&](auto zero) {
    for (std::size_t i = 0; i < count; ++i) {
      to[i * step] = static_cast<To>(ply_load<decltype(zero), swapped>(at + i * entry_size_));
    }
  });
}

template <bool swapped>
std::size_t plyColumns::append(const char* at, std::size_t count, double factor, annVertices& vertices) const {
  const std::size_t before = vertices.points.size();
  vertices.points.resize(before + count);
  annVector* const points = vertices.points.data() + before;
  copy<swapped>(plyX, at, count, &points->x, 3);
  copy<swapped>(plyY, at, count, &points->y, 3);
  copy<swapped>(plyZ, at, count, &points->z, 3);
  double sum = 0;  // 0 times NaN or infinity is NaN
  for (std::size_t i = 0; i < count; ++i) {
    points[i] = points[i] * factor;
    sum += 0 * points[i].x + 0 * points[i].y + 0 * points[i].z;
  }
  if (plan_.has(plyNX)) {
    vertices.normals.resize(before + count);
    annVector* const normals = vertices.normals.data() + before;
    copy<swapped>(plyNX, at, count, &normals->x, 3);
    copy<swapped>(plyNY, at, count, &normals->y, 3);
    copy<swapped>(plyNZ, at, count, &normals->z, 3);
  }
  if (plan_.has(plyRED)) {
    vertices.colours.resize(before + count);
    annColour* const colours = vertices.colours.data() + before;
    copy<swapped>(plyRED, at, count, &colours->red, 4);
    copy<swapped>(plyGREEN, at, count, &colours->green, 4);
    copy<swapped>(plyBLUE, at, count, &colours->blue, 4);
    copy<swapped>(plyOPACITY, at, count, &colours->opacity, 4);
  }
  if (sum == 0) return count;
  std::size_t first = 0;
  while (std::isfinite(points[first].x) && std::isfinite(points[first].y) && std::isfinite(points[first].z)) ++first;
  return first;
}

template std::size_t plyColumns::append<false>(const char*, std::size_t, double, annVertices&) const;
template std::size_t plyColumns::append<true>(const char*, std::size_t, double, annVertices&) const;
