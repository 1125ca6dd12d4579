#include "hpfReader.h"

#include "hpfFormat.h"
#include "hpfInput.h"
#include "hpfThings.h"
#include "hpfTree.h"
#include "vltInput.h"
#include "vltNames.h"

VELABS_INPUT_LIBRARY(hpfReader)

namespace {

// Reads the chunks of a file and passes each to the class for its type.
class ChunkReader {
 public:
  ChunkReader(hpfInput& input, annDocument& document, velabsOutput& output)
      : input_(input), document_(document), output_(output), tree_(document) {}

  bool read_all() {
    if (!input_.begin()) return false;
    while (input_.next()) {
      if (!read_chunk()) return false;
    }
    if (!input_.good()) return false;
    if (passed_over_ > 0) {
      const std::string which = vlt_quoted(first_passed_over_) + (passed_over_ > 1 ? " and others" : "");
      output_.message(velabsNOTE,
                      utString("the file was written by a newer version, HPF 1." + std::to_string(input_.minor()) +
                               ": what its chunk " + which + " holds is left out"));
    }
    if (tree_.has_nodes()) return true;
    output_.message(velabsERROR, "the file has no tree of parts");
    return false;
  }

 private:
  bool read_chunk() {
    const std::string_view name = input_.name();
    if (is(hpf_vertices_chunk)) return things_.read_vertices(input_);
    if (is(hpf_pool_chunk)) return things_.read_normal_pool(input_);
    if (is(hpf_mesh_chunk)) return things_.read_mesh(input_);
    if (is(hpf_corner_normals_chunk)) return things_.read_corner_normals(input_);
    if (is(hpf_shape_chunk)) return things_.read_shape(input_);
    if (is(hpf_tree_chunk)) return tree_.read_nodes(input_, things_);
    if (is(hpf_instance_names_chunk)) return tree_.read_instance_names(input_);
    if (is(hpf_up_chunk)) return tree_.read_up_axis(input_);
    if (is(hpf_end_chunk)) return true;
    if (input_.is_critical()) {
      return input_.fail(
          "this program does not know it, and the file cannot be understood without; read it with the "
          "program that wrote it");
    }
    if (passed_over_++ == 0) first_passed_over_ = name;
    return true;
  }

  bool is(const std::array<char, 4>& name) const { return input_.name() == std::string_view(name.data(), name.size()); }

  hpfInput& input_;
  annDocument& document_;
  velabsOutput& output_;
  hpfThings things_;
  hpfTree tree_;
  std::size_t passed_over_ = 0;
  std::string first_passed_over_;
};

}  // namespace

hpfReader::hpfReader() : vltDescribed(hpf_format, "Reads whole documents from HPF files.") {}

velabsResult hpfReader::read(const utString& file, const velTableInstance&, annDocument& document,
                             velabsOutput& output) {
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped) return velabsFAILED;
  hpfInput input(*mapped, output);
  if (ChunkReader(input, document, output).read_all()) return velabsDONE;
  return input.cancelled() ? velabsCANCELLED : velabsFAILED;
}
