#include "stlBinaryWriter.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>

#include "stlColours.h"
#include "stlFormat.h"
#include "stlTriangles.h"
#include "vltFlag.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltUtf8.h"
#include "vltWords.h"

static_assert(std::endian::native == std::endian::little);

namespace {

std::string head(const utString& name, std::uint32_t count, velabsOutput& output) {
  std::string remarks = name.empty() ? "binary STL" : vlt_one_line(name);
  if (remarks.size() >= 5 && vlt_same_word(std::string_view(remarks).substr(0, 5), "solid")) remarks = "STL " + remarks;
  // A name must not look like the colour of the whole model.
  for (std::size_t at = 0; (at = remarks.find("COLOR=", at)) != remarks.npos;) remarks[remarks.find('=', at)] = ' ';
  if (remarks.size() > stl_remark_size) {
    remarks = vlt_utf8_front(remarks, stl_remark_size);
    output.message(velabsNOTE,
                   utString("binary STL has room for " + std::to_string(stl_remark_size) +
                            " bytes of SOLID_NAME: " + vlt_quoted(remarks, stl_remark_size) + " is written"));
  }
  remarks.resize(stl_remark_size);
  return remarks.append(reinterpret_cast<const char*>(&count), sizeof count);
}

// Writes consecutive floats. Each is stored separately: loading a value just after it was stored in pieces stalls the
// processor.
class FloatRecord {
 public:
  explicit FloatRecord(char* to) : to_(to) {}

  void put(const annVector& v) {
    for (double value : {v.x, v.y, v.z}) {
      const auto number = static_cast<float>(value);
      std::memcpy(to_, &number, sizeof number);
      to_ += sizeof number;
      sum_ += 0 * number;  // 0 times infinity is NaN
    }
  }
  bool all_fit() const { return sum_ == 0; }

 private:
  char* to_;
  float sum_ = 0;
};

// Writes the normal, then the points; false when a coordinate is too large for a float.
bool fill(char* record, const annVector& a, const annVector& b, const annVector& c) {
  FloatRecord numbers(record);
  numbers.put(stl_normal(a, b, c));
  numbers.put(a);
  numbers.put(b);
  numbers.put(c);
  return numbers.all_fit();
}

// Writes triangle records to the stream in blocks.
class TriangleWriter {
 public:
  TriangleWriter(velabsOfStream& stream, velabsOutput& output, std::size_t count, bool colours)
      : stream_(stream), output_(output), progress_(output, count, records_in_block), colours_(colours) {}

  bool write(const vltPlacedMesh& body) {
    const bool coloured = colours_ && (body.colour || !body.mesh->face_materials.empty());
    const bool done =
        stl_for_each_triangle(body, [&](std::size_t face, const annVector& a, const annVector& b, const annVector& c) {
          if (free_ == 0) begin_block();
          const std::optional<annColour> colour = coloured ? body.face_colour(face) : std::nullopt;
          const std::uint16_t attribute = colour ? stl_attribute(*colour) : std::uint16_t{0};
          std::memcpy(record_ + stl_attribute_in_record, &attribute, sizeof attribute);
          if (!fill(record_, a, b, c)) {
            output_.message(velabsERROR,
                            "a coordinate is too large for the numbers of binary STL; FILE_FORMAT ascii or a "
                            "smaller SCALE can hold it");
            return false;
          }
          record_ += stl_record_size;
          return --free_ > 0 || end_block();
        });
    return done && end_block();
  }

  velabsResult result() const { return cancelled_ ? velabsCANCELLED : velabsFAILED; }

 private:
  static constexpr std::size_t records_in_block = 1024;

  void begin_block() {
    block_ = record_ = stream_.reserve(records_in_block * stl_record_size);
    free_ = records_in_block;
  }

  // False when the writing must stop.
  bool end_block() {
    stream_.advance(static_cast<std::size_t>(record_ - block_));
    done_ += static_cast<std::size_t>(record_ - block_) / stl_record_size;
    block_ = record_;
    free_ = 0;
    cancelled_ = !progress_.reached(done_);
    return !cancelled_ && stream_.good();
  }

  velabsOfStream& stream_;
  velabsOutput& output_;
  vltProgress progress_;
  bool colours_;
  bool cancelled_ = false;
  std::size_t done_ = 0;
  char* block_ = nullptr;
  char* record_ = nullptr;
  std::size_t free_ = 0;
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
  stream.write(head(resources.value<utString>("SOLID_NAME"), static_cast<std::uint32_t>(count), output));
  const bool colours = vlt_flag(resources, "WRITE_MATERIALS");
  TriangleWriter writer(stream, output, count, colours);
  for (const vltPlacedMesh& body : bodies) {
    if (!writer.write(body)) return writer.result();
  }
  return velabsDONE;
}
