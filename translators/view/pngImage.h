#pragma once

#include <png.h>

#include <cstddef>
#include <cstdint>

#include "velabsOfStream.h"

// Writes a picture to a stream, row by row from the top. Each operation returns false when memory or the stream fails;
// then no other may follow.
class pngImage {
 public:
  explicit pngImage(velabsOfStream& stream) : stream_(stream) {}
  ~pngImage();
  pngImage(const pngImage&) = delete;
  pngImage& operator=(const pngImage&) = delete;

  // Three bytes per pixel, or four with opacity.
  bool begin(std::uint32_t width, std::uint32_t height, bool with_opacity);
  bool row(const std::uint8_t* bytes);
  bool end();

 private:
  static void write(png_structp png, png_bytep bytes, png_size_t size);

  velabsOfStream& stream_;
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};
