#include "stlBinaryWriter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "stlColours.h"
#include "stlFormat.h"
#include "stlTriangles.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltWords.h"

static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 16;

std::string head(const utString& name, std::uint32_t count) {
  std::string remarks = name.empty() ? "binary STL" : vlt_one_line(name);
  if (remarks.size() >= 5 && vlt_same_word(std::string_view(remarks).substr(0, 5), "solid")) remarks = "STL " + remarks;
  // No name may look like the colour of the whole.
  for (std::size_t at = 0; (at = remarks.find("COLOR=", at)) != remarks.npos;) remarks[remarks.find('=', at)] = ' ';
  remarks.resize(stl_remark_size);
  return remarks.append(reinterpret_cast<const char*>(&count), sizeof count);
}

// Nine floats of points behind three of the normal; false when a coordinate is too large for a float.
bool fill(char* record, const std::array<annVector, 3>& triangle) {
  const annVector n = stl_normal(triangle);
  std::array<float, 12> numbers{static_cast<float>(n.x), static_cast<float>(n.y), static_cast<float>(n.z)};
  bool fits = true;
  std::size_t i = 3;
  for (const annVector& p : triangle) {
    for (double value : {p.x, p.y, p.z}) {
      fits = fits && std::fabs(value) <= std::numeric_limits<float>::max();
      numbers[i++] = static_cast<float>(value);
    }
  }
  std::memcpy(record, numbers.data(), sizeof numbers);
  return fits;
}

class TriangleWriter {
 public:
  TriangleWriter(velabsOfStream& stream, velabsOutput& output, std::size_t count, bool colours)
      : stream_(stream), output_(output), progress_(output, count, progress_step), colours_(colours) {}

  bool write(const vltPlacedMesh& body) {
    const bool coloured = colours_ && (body.colour || !body.mesh->face_materials.empty());
    return stl_for_each_triangle(body, [&](std::size_t face, const std::array<annVector, 3>& triangle) {
      char* record = stream_.reserve(stl_record_size);
      const std::optional<annColour> colour = coloured ? body.face_colour(face) : std::nullopt;
      const std::uint16_t attribute = colour ? stl_attribute(*colour) : std::uint16_t{0};
      std::memcpy(record + stl_attribute_in_record, &attribute, sizeof attribute);
      if (!fill(record, triangle)) {
        output_.message(velabsERROR,
                        "a coordinate is too large for the numbers of binary STL; FILE_FORMAT ascii or a "
                        "smaller SCALE can hold it");
        return false;
      }
      stream_.advance(stl_record_size);
      cancelled_ = !progress_.reached(++done_);
      return !cancelled_ && stream_.good();
    });
  }

  velabsResult result() const { return cancelled_ ? velabsCANCELLED : velabsFAILED; }

 private:
  velabsOfStream& stream_;
  velabsOutput& output_;
  vltProgress progress_;
  bool colours_;
  bool cancelled_ = false;
  std::size_t done_ = 0;
};

}  // namespace

velabsResult stl_write_binary(const std::vector<vltPlacedMesh>& bodies, const velTableInstance& resources,
                              velabsOfStream& stream, velabsOutput& output) {
  std::size_t count = 0;
  for (const vltPlacedMesh& body : bodies) count += body.mesh->triangle_count();
  if (count > std::numeric_limits<std::uint32_t>::max()) {
    output.message(velabsERROR, utString(std::to_string(count) + " triangles are more than binary STL can count"));
    return velabsFAILED;
  }
  stream.write(head(resources.value<utString>("SOLID_NAME"), static_cast<std::uint32_t>(count)));
  const bool colours = resources.value<utBool>("WRITE_MATERIALS", utTRUE) == utTRUE;
  TriangleWriter writer(stream, output, count, colours);
  for (const vltPlacedMesh& body : bodies) {
    if (!writer.write(body)) return writer.result();
  }
  return velabsDONE;
}
