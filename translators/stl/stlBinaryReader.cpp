#include "stlBinaryReader.h"

#include <array>
#include <bit>
#include <cstring>

#include "stlColours.h"
#include "stlCorners.h"
#include "stlFormat.h"
#include "vltFlag.h"
#include "vltNames.h"
#include "vltProgress.h"
#include "vltUtf8.h"
#include "vltWords.h"

static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 20;

// Returns nothing if the text has control characters.
utString name_in_remarks(std::string_view remarks) {
  remarks = remarks.substr(0, remarks.find('\0'));
  if (!vlt_same_word(vlt_take_word(remarks), "solid")) return {};
  const std::string_view name = vlt_trimmed(remarks);
  for (char c : name) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) return {};
  }
  return name.empty() ? utString() : utString(vlt_utf8_or_latin1(name));
}

std::string with_plural(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " triangle" : " triangles");
}

}  // namespace

velabsResult stlBinaryReader::read(double factor) {
  if (!count_triangles()) return velabsFAILED;
  auto mesh = std::make_shared<annMesh>();
  annNode& node = document_.root.add_child(name_in_remarks(bytes_.substr(0, stl_remark_size)));
  const velabsResult result = read_triangles(*mesh, node, factor);
  node.body.mesh = std::move(mesh);
  return result;
}

bool stlBinaryReader::count_triangles() {
  if (bytes_.size() < stl_head_size) {
    output_.message(velabsERROR,
                    utString("neither text that begins with \"solid\" nor long enough for the binary form: " +
                             std::to_string(bytes_.size()) + " bytes"));
    return false;
  }
  std::uint32_t said = 0;
  std::memcpy(&said, bytes_.data() + stl_remark_size, sizeof said);
  const std::size_t body = bytes_.size() - stl_head_size;
  const std::size_t held = body / stl_record_size;
  count_ = said;
  if (said > held) {
    const bool text = bytes_.substr(0, stl_head_size).find('\0') == bytes_.npos;
    output_.message(velabsERROR, utString((text ? "no text that begins with \"solid\", and as binary " : "") +
                                          ("byte 80: the count says " + with_plural(said)) + ", the file holds " +
                                          std::to_string(held)));
    return false;
  }
  if (said == 0 && body == 0) return true;
  if (said == 0 && body % stl_record_size == 0) {
    output_.message(velabsWARNING, utString("byte 80: the count says 0 triangles; the " + std::to_string(held) +
                                            " behind it are read"));
    count_ = held;
  } else if (said == 0) {
    output_.message(velabsERROR, utString("byte 80: the count says 0 triangles, but " + std::to_string(body) +
                                          " bytes follow that are no whole number of triangles"));
    return false;
  } else if (const std::size_t stray = body - said * stl_record_size; stray > 0) {
    output_.message(velabsWARNING,
                    utString("byte " + std::to_string(bytes_.size() - stray) + ": " + std::to_string(stray) +
                             (stray == 1 ? " byte" : " bytes") + " behind the last triangle: passed over"));
  }
  return true;
}

velabsResult stlBinaryReader::read_triangles(annMesh& mesh, annNode& node, double factor) {
  const bool weld = vlt_flag(resources_, "WELD_POINTS");
  const bool colours = vlt_flag(resources_, "READ_MATERIALS");
  if (3 * count_ > annMesh::no_material - 1) {
    output_.message(velabsERROR, utString("byte 80: " + with_plural(count_) + " are more than a mesh can number"));
    return velabsFAILED;
  }
  stlCorners corners(mesh, weld, count_);
  stlColourReader colour_reader(colours ? bytes_.substr(0, stl_remark_size) : std::string_view(), mesh);
  node.colour = colour_reader.whole();
  vltProgress progress(output_, bytes_.size(), progress_step, &file_);

  for (std::size_t i = 0; i < count_; ++i) {
    const std::size_t at = stl_head_size + i * stl_record_size;
    if (!progress.reached(at)) return velabsCANCELLED;
    std::array<float, 9> c;
    std::memcpy(c.data(), bytes_.data() + at + stl_points_in_record, sizeof c);
    double sum = 0;  // 0 times NaN or infinity is NaN
    for (float value : c) sum += 0 * (value * factor);
    if (sum != 0) {
      output_.message(velabsERROR, utString("triangle " + std::to_string(i + 1) + " at byte " + std::to_string(at) +
                                            ": a coordinate is no finite number"));
      return velabsFAILED;
    }
    for (std::size_t corner = 0; corner < 9; corner += 3) {
      corners.add(annVector{c[corner], c[corner + 1], c[corner + 2]} * factor);
    }
    std::uint16_t attribute = 0;
    std::memcpy(&attribute, bytes_.data() + at + stl_attribute_in_record, sizeof attribute);
    if (colours) colour_reader.take(i, attribute);
  }
  corners.finish();
  if (colour_reader.finish()) {
    output_.message(velabsNOTE, "the attribute bytes of the triangles are no colours and are left out");
  }
  return velabsDONE;
}
