#include "gltfContainer.h"

#include <bit>
#include <cstring>
#include <string>

#include "gltfFormat.h"
#include "vltInput.h"
#include "vltWords.h"

static_assert(std::endian::native == std::endian::little);

namespace {

std::uint32_t number_at(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

class Unpacker {
 public:
  Unpacker(std::string_view bytes, velabsOutput& output) : bytes_(bytes), output_(output) {}

  std::optional<gltfContainer> unpack() {
    gltfContainer container;
    if (!check_head()) return std::nullopt;
    for (std::size_t at = glb_head_size; at < bytes_.size();) {
      if (bytes_.size() - at < glb_chunk_head_size) return fail(at, "the file ends within the head of a chunk");
      const std::size_t length = number_at(bytes_, at);
      const std::uint32_t kind = number_at(bytes_, at + 4);
      const std::size_t begin = at + glb_chunk_head_size;
      if (length > bytes_.size() - begin) {
        return fail(at, "a chunk of " + std::to_string(length) + " bytes is said to follow, but only " +
                            std::to_string(bytes_.size() - begin) + " do");
      }
      if (length % 4 != 0) return fail(at, "the length of a chunk is no multiple of 4: " + std::to_string(length));
      const std::string_view chunk = bytes_.substr(begin, length);
      if (at == glb_head_size) {
        if (kind != glb_json_chunk) return fail(at + 4, "the first chunk is not JSON");
        container.json = chunk;
        container.json_offset = begin;
      } else if (kind == glb_binary_chunk && !container.binary) {
        container.binary = chunk;
      }
      at = begin + length;
    }
    if (container.json_offset == 0) return fail(bytes_.size(), "the file ends before the JSON");
    return container;
  }

 private:
  bool check_head() {
    if (bytes_.size() < glb_head_size) {
      fail(bytes_.size(), "the file ends within its head");
      return false;
    }
    if (const std::uint32_t version = number_at(bytes_, 4); version != 2) {
      fail(4, "this is version " + std::to_string(version) + " of GLB; only version 2 can be read");
      return false;
    }
    const std::size_t length = number_at(bytes_, 8);
    if (length > bytes_.size() || length < glb_head_size) {
      fail(8, "the file says that it has " + std::to_string(length) + " bytes, but it has " +
                  std::to_string(bytes_.size()));
      return false;
    }
    if (length < bytes_.size()) {
      output_.message(velabsWARNING,
                      utString("byte " + std::to_string(length) + ": " + std::to_string(bytes_.size() - length) +
                               " bytes behind the end that byte 8 gives: passed over"));
      bytes_ = bytes_.substr(0, length);
    }
    return true;
  }

  std::nullopt_t fail(std::size_t at, const std::string& reason) {
    output_.message(velabsERROR, utString("byte " + std::to_string(at) + ": " + reason));
    return std::nullopt;
  }

  std::string_view bytes_;
  velabsOutput& output_;
};

}  // namespace

std::optional<gltfContainer> gltf_take_apart(std::string_view bytes, velabsOutput& output) {
  if (bytes.size() >= 4 && number_at(bytes, 0) == glb_magic) return Unpacker(bytes, output).unpack();
  if (!vlt_is_byte_text(bytes, output)) return std::nullopt;
  const std::string_view text = vlt_without_mark(bytes);
  return gltfContainer{text, bytes.size() - text.size(), std::nullopt};
}
