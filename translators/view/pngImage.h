#pragma once

#include <png.h>

#include <cstddef>
#include <cstdint>

#include "velabsOfStream.h"

// A picture on its way into a file, row by row from the top. Every operation is false when the memory or the stream
// gave out; nothing may follow then.
class pngImage {
 public:
  explicit pngImage(velabsOfStream& stream) : stream_(stream) {}
  ~pngImage();
  pngImage(const pngImage&) = delete;
  pngImage& operator=(const pngImage&) = delete;

  // Three bytes a pixel, or four with the opacity.
  bool begin(std::uint32_t width, std::uint32_t height, bool with_opacity);
  bool row(const std::uint8_t* bytes);
  bool end();

 private:
  static void write(png_structp png, png_bytep bytes, png_size_t size);

  velabsOfStream& stream_;
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};
