#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// A point of the picture in samples, from the upper left corner to the right and down; z increases towards the eye.
struct pngPoint {
  float x = 0, y = 0, z = 0;
};

// Red, green and blue, 0 to 1.
struct pngColour {
  float red = 0, green = 0, blue = 0;
};

struct pngCorner {
  pngPoint at;
  pngColour colour;
};

struct pngTriangle {
  pngCorner corners[3];
  float opacity = 1;
};

// Some rows of the picture, with several samples per pixel in each direction. Triangles that share an edge leave no
// gap and do not overlap.
class pngBand {
 public:
  // Each pixel has `side` x `side` samples.
  pngBand(std::size_t width, std::size_t rows, std::size_t side);

  // Clears the band and sets its first row in the picture.
  void begin(std::size_t first_row);

  // True when anything between these two heights may be in the band.
  bool reaches(float top, float bottom) const {
    return bottom >= first_ && top <= first_ + static_cast<float>(height_);
  }

  // An opaque triangle hides what is behind it. A transparent one is blended and does not change the depth.
  void draw(const pngTriangle& triangle);

  // `width` is in samples. The line is drawn slightly nearer to the eye than its points.
  void draw_line(const pngPoint& from, const pngPoint& to, float width, const pngColour& colour, float opacity);

  // One row of pixels, counted from the band's first: red, green, blue and opacity in a byte each.
  void resolve(std::size_t row, std::vector<std::uint8_t>& pixels) const;

 private:
  struct Sample {
    float depth;
    std::uint8_t red, green, blue, opacity;  // colours times opacity
  };
  struct Plane;

  void fill(const pngTriangle& triangle, const pngCorner* const* sorted, const Plane& plane);
  void put(Sample& sample, float depth, const float* colour, float opacity);

  std::size_t width_, height_, side_;
  float first_ = 0;
  std::vector<Sample> samples_;
};
