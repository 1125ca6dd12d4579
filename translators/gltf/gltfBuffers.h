#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "apMappedFile.h"
#include "gltfModel.h"
#include "gltfWork.h"

// The binary data of a file: in the file itself, as text in its JSON or in files beside it. Each buffer is loaded at
// its first use. References to files outside the file's directory are errors.
class gltfBuffers {
 public:
  // A piece of a buffer; `stride` is 0 when its elements have no gaps.
  struct View {
    std::string_view bytes;
    std::size_t offset = 0;  // in its buffer
    std::size_t stride = 0;
  };

  gltfBuffers(const gltfModel& model, std::string directory, std::optional<std::string_view> binary_chunk,
              gltfWork& work)
      : model_(model), directory_(std::move(directory)), binary_chunk_(binary_chunk), work_(work) {}

  // The view with this number; false, with a message, when it or its buffer is invalid.
  bool view(std::size_t index, View& view);

 private:
  struct Buffer {
    bool is_loaded = false;
    std::string decoded;
    std::string_view bytes;
  };

  bool load(std::size_t index);
  bool load_text(const gltfValue& value, std::string_view uri, Buffer& buffer);
  bool load_file(const gltfValue& value, std::string_view uri, Buffer& buffer);

  const gltfModel& model_;
  std::string directory_;
  std::optional<std::string_view> binary_chunk_;
  gltfWork& work_;
  std::vector<Buffer> buffers_;
  std::map<std::string, std::unique_ptr<apMappedFile>> files_;
};
