#pragma once

#include <png.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

// A PNG file, decoded by the library that others write it with.
class Picture {
 public:
  using Pixel = std::array<int, 4>;  // red, green, blue, opacity

  explicit Picture(const std::string& file) {
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, file.c_str())) throw std::runtime_error(image.message);
    opaque = (image.format & PNG_FORMAT_FLAG_ALPHA) == 0;
    image.format = PNG_FORMAT_RGBA;
    bytes_.resize(PNG_IMAGE_SIZE(image));
    if (!png_image_finish_read(&image, nullptr, bytes_.data(), 0, nullptr)) throw std::runtime_error(image.message);
    width = image.width;
    height = image.height;
  }

  // By place, each from 0 to 1 from the upper left corner.
  Pixel at(double across, double down) const {
    const auto x = static_cast<std::size_t>(across * static_cast<double>(width - 1) + 0.5);
    const auto y = static_cast<std::size_t>(down * static_cast<double>(height - 1) + 0.5);
    const std::uint8_t* pixel = bytes_.data() + 4 * (y * width + x);
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
  }

  // The share of the pixels between two places across for which `test` holds.
  template <typename Test>
  double share(Test test, double from = 0, double to = 1) const {
    std::size_t found = 0, seen = 0;
    for (std::size_t y = 0; y < height; ++y) {
      for (auto x = static_cast<std::size_t>(from * static_cast<double>(width));
           x < static_cast<std::size_t>(to * static_cast<double>(width)); ++x) {
        const std::uint8_t* p = bytes_.data() + 4 * (y * width + x);
        found += test(Pixel{p[0], p[1], p[2], p[3]}) ? 1 : 0;
        ++seen;
      }
    }
    return static_cast<double>(found) / static_cast<double>(seen);
  }

  std::size_t width = 0, height = 0;
  bool opaque = false;

 private:
  std::vector<std::uint8_t> bytes_;
};

// "r", "g" or "b" where one part of a colour stands out, "w" for any grey but the darkest and "-" for all else.
inline char colour_name(const Picture::Pixel& p) {
  if (p[3] < 128) return '-';
  if (p[0] > 2 * p[1] && p[0] > 2 * p[2]) return 'r';
  if (p[1] > 2 * p[0] && p[1] > 2 * p[2]) return 'g';
  if (p[2] > 2 * p[0] && p[2] > 2 * p[1]) return 'b';
  return p[0] > 90 && p[1] > 90 && p[2] > 90 ? 'w' : '-';
}
