#include "pngImage.h"

#include <csetjmp>

namespace {

// Messages of the library are meant for developers; the caller reports the error.
void pass_over(png_structp, png_const_charp) {}

}  // namespace

pngImage::~pngImage() {
  png_destroy_write_struct(&png_, &info_);
}

bool pngImage::begin(std::uint32_t width, std::uint32_t height, bool with_opacity) {
  png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, pass_over);
  if (!png_) return false;
  // On an error the library jumps here, past frames without destructors.
  if (setjmp(png_jmpbuf(png_)) != 0) return false;
  info_ = png_create_info_struct(png_);
  if (!info_) return false;
  png_set_write_fn(png_, &stream_, write, nullptr);
  png_set_IHDR(png_, info_, width, height, 8, with_opacity ? PNG_COLOR_TYPE_RGBA : PNG_COLOR_TYPE_RGB,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_sRGB(png_, info_, PNG_sRGB_INTENT_PERCEPTUAL);
  png_write_info(png_, info_);
  return true;
}

bool pngImage::row(const std::uint8_t* bytes) {
  if (setjmp(png_jmpbuf(png_)) != 0) return false;
  png_write_row(png_, bytes);
  return stream_.good();
}

bool pngImage::end() {
  if (setjmp(png_jmpbuf(png_)) != 0) return false;
  png_write_end(png_, info_);
  return stream_.good();
}

void pngImage::write(png_structp png, png_bytep bytes, png_size_t size) {
  auto* stream = static_cast<velabsOfStream*>(png_get_io_ptr(png));
  stream->write({reinterpret_cast<const char*>(bytes), size});
}
