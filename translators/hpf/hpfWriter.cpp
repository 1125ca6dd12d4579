#include "hpfWriter.h"

#include <unordered_set>

#include "hpfFormat.h"
#include "hpfOutput.h"
#include "hpfPlan.h"
#include "vltFacets.h"
#include "vltFlag.h"

VELABS_OUTPUT_LIBRARY(hpfWriter)

namespace {

// A shape whose facets cannot be made is written without them, so errors about facets become notes.
class MissingFacets : public velabsOutput {
 public:
  explicit MissingFacets(velabsOutput& output) : output_(output) {}

  void message(velabsSeverity severity, const utString& text) override {
    if (severity != velabsERROR) return output_.message(severity, text);
    if (shapes_++ == 0) first_ = text;
  }
  void progress(int percent) override { output_.progress(percent); }
  bool cancelled() const override { return output_.cancelled(); }

  void tell() const {
    if (shapes_ == 0) return;
    const std::string count = shapes_ == 1 ? "one shape" : std::to_string(shapes_) + " shapes";
    output_.message(velabsNOTE, utString(count + " kept without facets; the first: ") + first_);
  }

 private:
  velabsOutput& output_;
  std::size_t shapes_ = 0;
  utString first_;
};

}  // namespace

hpfWriter::hpfWriter(velabsOfStream* stream)
    : vltDescribed(hpf_format, "Writes whole documents to HPF files."), stream_(*stream) {}

velabsResult hpfWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& output) {
  const bool with_facets = vlt_flag(resources, "WRITE_FACETS");
  MissingFacets missing(output);
  vltFacets facets(document, resources, missing);
  std::unordered_set<const annExactShape*> without;
  auto mesh_of = [&](const annNode& node) -> std::shared_ptr<const annMesh> {
    if (node.body.mesh || !node.body.shape || !with_facets) return node.body.mesh;
    if (without.contains(node.body.shape.get())) return nullptr;
    std::shared_ptr<const annMesh> made = facets.of(node);
    if (!made) without.insert(node.body.shape.get());
    return made;
  };

  hpfPlan plan;
  std::string failure;
  if (!plan.make(document, mesh_of, failure)) {
    output.message(velabsERROR, utString(failure));
    return velabsFAILED;
  }
  missing.tell();
  return output.cancelled() ? velabsCANCELLED : hpf_write_chunks(plan, stream_, output);
}
