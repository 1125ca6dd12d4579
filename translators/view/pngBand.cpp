#include "pngBand.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr float farthest = -std::numeric_limits<float>::max();

// The x coordinate of an edge at a height; `upper` is the upper end. Both triangles at an edge pass its ends in the
// same order, so they get the same result.
float crossing(const pngPoint& upper, const pngPoint& lower, float y) {
  return upper.x + (y - upper.y) * ((lower.x - upper.x) / (lower.y - upper.y));
}

bool is_above(const pngPoint& a, const pngPoint& b) {
  return a.y != b.y ? a.y < b.y : a.x < b.x;
}

// The first sample whose centre is not before a position.
std::ptrdiff_t first_sample(float place) {
  return static_cast<std::ptrdiff_t>(std::ceil(place - 0.5F));
}

}  // namespace

// The gradients of depth and colour over a triangle.
struct pngBand::Plane {
  explicit Plane(const pngTriangle& triangle) {
    const pngCorner &a = triangle.corners[0], &b = triangle.corners[1], &c = triangle.corners[2];
    const float bx = b.at.x - a.at.x, by = b.at.y - a.at.y, cx = c.at.x - a.at.x, cy = c.at.y - a.at.y;
    const float area = bx * cy - by * cx;
    const float inverse = area == 0 ? 0 : 1 / area;
    auto set = [&](std::size_t i, float at_a, float at_b, float at_c) {
      const float db = at_b - at_a, dc = at_c - at_a;
      across[i] = (db * cy - dc * by) * inverse;
      down[i] = (dc * bx - db * cx) * inverse;
      start[i] = at_a - across[i] * a.at.x - down[i] * a.at.y;
      least[i] = std::min({at_a, at_b, at_c});
      most[i] = std::max({at_a, at_b, at_c});
    };
    set(0, a.at.z, b.at.z, c.at.z);
    set(1, a.colour.red, b.colour.red, c.colour.red);
    set(2, a.colour.green, b.colour.green, c.colour.green);
    set(3, a.colour.blue, b.colour.blue, c.colour.blue);
  }

  // Clamped to the range of the corners, because the gradients of a sliver are inaccurate.
  float value(std::size_t i, float x, float y) const {
    return std::clamp(start[i] + across[i] * x + down[i] * y, least[i], most[i]);
  }

  float start[4], across[4], down[4], least[4], most[4];
};

pngBand::pngBand(std::size_t width, std::size_t rows, std::size_t side)
    : width_(width * side), height_(rows * side), side_(side), samples_(width_ * height_) {}

void pngBand::begin(std::size_t first_row) {
  first_ = static_cast<float>(first_row * side_);
  std::fill(samples_.begin(), samples_.end(), Sample{farthest, 0, 0, 0, 0});
}

void pngBand::draw(const pngTriangle& triangle) {
  const pngCorner* sorted[] = {&triangle.corners[0], &triangle.corners[1], &triangle.corners[2]};
  std::sort(sorted, sorted + 3, [](const pngCorner* a, const pngCorner* b) { return is_above(a->at, b->at); });
  if (!reaches(sorted[0]->at.y, sorted[2]->at.y)) return;
  fill(triangle, sorted, Plane(triangle));
}

void pngBand::fill(const pngTriangle& triangle, const pngCorner* const* sorted, const Plane& plane) {
  const pngPoint &top = sorted[0]->at, &middle = sorted[1]->at, &bottom = sorted[2]->at;
  const std::ptrdiff_t from = std::max<std::ptrdiff_t>(first_sample(top.y - first_), 0);
  const std::ptrdiff_t to =
      std::min<std::ptrdiff_t>(first_sample(bottom.y - first_), static_cast<std::ptrdiff_t>(height_));
  for (std::ptrdiff_t row = from; row < to; ++row) {
    const float y = first_ + static_cast<float>(row) + 0.5F;
    const float one = crossing(top, bottom, y);
    const float other = y < middle.y ? crossing(top, middle, y) : crossing(middle, bottom, y);
    const std::ptrdiff_t left = std::max<std::ptrdiff_t>(first_sample(std::min(one, other)), 0);
    const std::ptrdiff_t right =
        std::min<std::ptrdiff_t>(first_sample(std::max(one, other)), static_cast<std::ptrdiff_t>(width_));
    Sample* const samples = samples_.data() + static_cast<std::size_t>(row) * width_;
    for (std::ptrdiff_t column = left; column < right; ++column) {
      const float x = static_cast<float>(column) + 0.5F;
      const float depth = plane.value(0, x, y);
      if (depth < samples[column].depth) continue;
      const float colour[] = {plane.value(1, x, y), plane.value(2, x, y), plane.value(3, x, y)};
      put(samples[column], depth, colour, triangle.opacity);
    }
  }
}

void pngBand::put(Sample& sample, float depth, const float* colour, float opacity) {
  auto over = [&](std::uint8_t behind, float own) {
    const float mixed = own * opacity * 255 + static_cast<float>(behind) * (1 - opacity);
    return static_cast<std::uint8_t>(mixed + 0.5F);
  };
  if (opacity >= 1) {
    sample.depth = depth;
    auto byte = [](float own) { return static_cast<std::uint8_t>(own * 255 + 0.5F); };
    sample.red = byte(colour[0]);
    sample.green = byte(colour[1]);
    sample.blue = byte(colour[2]);
    sample.opacity = 255;
    return;
  }
  sample.red = over(sample.red, colour[0]);
  sample.green = over(sample.green, colour[1]);
  sample.blue = over(sample.blue, colour[2]);
  sample.opacity = over(sample.opacity, 1);
}

void pngBand::draw_line(const pngPoint& from, const pngPoint& to, float width, const pngColour& colour, float opacity) {
  const float dx = to.x - from.x, dy = to.y - from.y;
  const float length = std::hypot(dx, dy);
  // A line seen end-on is covered by its neighbours.
  if (!(length > 0)) return;
  const float half = width / 2, across_x = -dy / length * half, across_y = dx / length * half;
  const float along_x = dx / length * half, along_y = dy / length * half;
  auto corner = [&](const pngPoint& end, float along, float across) {
    return pngCorner{
        {end.x + along * along_x + across * across_x, end.y + along * along_y + across * across_y, end.z + 2 * width},
        colour};
  };
  const pngCorner a = corner(from, -1, 1), b = corner(from, -1, -1), c = corner(to, 1, -1), d = corner(to, 1, 1);
  draw({{a, b, c}, opacity});
  draw({{a, c, d}, opacity});
}

void pngBand::resolve(std::size_t row, std::vector<std::uint8_t>& pixels) const {
  const std::size_t count = side_ * side_;
  for (std::size_t pixel = 0; pixel < width_ / side_; ++pixel) {
    std::size_t red = 0, green = 0, blue = 0, opacity = 0;
    for (std::size_t i = 0; i < side_; ++i) {
      const Sample* sample = samples_.data() + (row * side_ + i) * width_ + pixel * side_;
      for (const Sample* end = sample + side_; sample != end; ++sample) {
        red += sample->red;
        green += sample->green;
        blue += sample->blue;
        opacity += sample->opacity;
      }
    }
    auto plain = [&](std::size_t sum) {
      return static_cast<std::uint8_t>(opacity == 0 ? 0
                                                    : std::min<std::size_t>((sum * 255 + opacity / 2) / opacity, 255));
    };
    std::uint8_t* const to = pixels.data() + 4 * pixel;
    to[0] = plain(red);
    to[1] = plain(green);
    to[2] = plain(blue);
    to[3] = static_cast<std::uint8_t>((opacity + count / 2) / count);
  }
}
