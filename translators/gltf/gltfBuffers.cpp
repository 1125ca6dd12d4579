#include "gltfBuffers.h"

#include "gltfUri.h"
#include "vltBeside.h"
#include "vltNames.h"

namespace {

constexpr std::size_t least_stride = 4;
constexpr std::size_t largest_stride = 252;

}  // namespace

bool gltfBuffers::view(std::size_t index, View& view) {
  const gltfValue value = model_.item(gltfVIEWS, index);
  std::optional<std::size_t> buffer, length;
  std::size_t offset = 0, stride = 0;
  if (!model_.refer(value, "buffer", gltfBUFFERS, buffer) || !value.read("byteOffset", offset) ||
      !value.read("byteLength", length) || !value.read("byteStride", stride)) {
    return false;
  }
  if (!buffer) return value.fail("the number of its buffer is missing");
  if (!length) return value.fail("its byteLength is missing");
  if (value.has("byteStride") && (stride < least_stride || stride > largest_stride)) {
    return value.fail("byteStride", std::to_string(stride) + " is not between 4 and 252");
  }
  if (!load(*buffer)) return false;
  const std::string_view bytes = buffers_[*buffer].bytes;
  if (offset > bytes.size() || *length > bytes.size() - offset) {
    return value.fail(std::to_string(*length) + " bytes at " + std::to_string(offset) +
                      " lead out of its buffer, which has " + std::to_string(bytes.size()));
  }
  view = {bytes.substr(offset, *length), offset, stride};
  return true;
}

bool gltfBuffers::load(std::size_t index) {
  buffers_.resize(model_.count(gltfBUFFERS));
  Buffer& buffer = buffers_[index];
  if (buffer.is_loaded) return true;
  const gltfValue value = model_.item(gltfBUFFERS, index);
  std::optional<std::size_t> length;
  std::string_view uri;
  if (!value.read("byteLength", length) || !value.read("uri", uri)) return false;
  if (!length) return value.fail("its byteLength is missing");
  if (value.has("uri")) {
    if (!(uri.starts_with("data:") ? load_text(value, uri, buffer) : load_file(value, uri, buffer))) return false;
  } else if (index == 0 && binary_chunk_) {
    buffer.bytes = *binary_chunk_;
    work_.add_bytes(buffer.bytes.size());
  } else {
    return value.fail("it has no uri, so its bytes are nowhere");
  }
  if (buffer.bytes.size() < *length) {
    return value.fail("byteLength", std::to_string(*length) + " bytes are promised, there are " +
                                        std::to_string(buffer.bytes.size()));
  }
  buffer.bytes = buffer.bytes.substr(0, *length);
  buffer.is_loaded = true;
  return true;
}

bool gltfBuffers::load_text(const gltfValue& value, std::string_view uri, Buffer& buffer) {
  const std::optional<std::string_view> text = gltf_base64_in(uri);
  if (!text) return value.fail("uri", "of data within the JSON only base64 can be read");
  std::size_t wrong_at = 0;
  if (!gltf_decode_base64(*text, buffer.decoded, wrong_at)) {
    return value.fail("uri", "the base64 is wrong at character " + std::to_string(wrong_at + 1));
  }
  buffer.bytes = buffer.decoded;
  work_.add_bytes(buffer.bytes.size());
  return true;
}

bool gltfBuffers::load_file(const gltfValue& value, std::string_view uri, Buffer& buffer) {
  const std::optional<std::string> name = gltf_percent_decoded(uri);
  if (!name || name->empty()) return value.fail("uri", vlt_quoted(uri) + " is no name of a file");
  if (gltf_has_scheme(uri) || name->front() == '/' || name->find('\\') != name->npos ||
      ("/" + *name + "/").find("/../") != name->npos) {
    return value.fail("uri", vlt_quoted(uri) + " leads out of the directory of the file; only files there are read");
  }
  const std::string path = vlt_path_beside(directory_, *name);
  if (path.empty()) {
    return value.fail("uri", "the file " + vlt_quoted(*name) + " is not there, or is a link that leads elsewhere");
  }
  std::unique_ptr<apMappedFile>& file = files_[path];
  if (!file) {
    apStatus status;
    file = apMappedFile::open(utString(path), status);
    if (!file) return value.fail("uri", vlt_quoted(*name) + ": " + status.failure().str());
    work_.add_bytes(file->bytes().size());
  }
  buffer.bytes = file->bytes();
  return true;
}
