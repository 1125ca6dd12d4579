#include "threemfReader.h"

#include <algorithm>

#include "threemfAssembly.h"
#include "threemfFormat.h"
#include "threemfModelParser.h"
#include "threemfRelationships.h"
#include "vltFlag.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(threemfReader)

namespace {

constexpr std::size_t progress_step = std::size_t{1} << 18;

// Reads a package, beginning with its start part.
class PackageReader {
 public:
  PackageReader(threemfArchive& archive, threemfReading& reading, velabsOutput& output)
      : archive_(archive), reading_(reading), output_(output) {}

  velabsResult read(annDocument& document) {
    if (!find_parts()) return velabsFAILED;
    std::uint64_t size = archive_.size(start_);
    for (const std::string& part : further_) size += archive_.size(part);
    vltProgress progress(output_, std::max<std::size_t>(size, 1), progress_step);
    // The start part comes first, because it refers to the other parts.
    velabsResult result = parse(start_, progress);
    for (std::size_t i = 0; result == velabsDONE && i < parts_.front().paths.size(); ++i) {
      const std::string part = parts_.front().paths[i];
      result = may_be_read(part) ? parse(part, progress) : velabsFAILED;
    }
    if (result != velabsDONE) return result;
    if (!link()) return velabsFAILED;
    document.unit = reading_.unit;
    return threemfAssembly(parts_, reading_, output_).build(document) ? velabsDONE : velabsFAILED;
  }

 private:
  bool fail(const std::string& reason) {
    output_.message(velabsERROR, utString(reason));
    return false;
  }

  bool find_parts() {
    const auto of_package = threemfRelationships::read(archive_, "", output_);
    if (!of_package) return false;
    if (of_package->models.empty()) return fail("no relationship of the package leads to a 3D model");
    if (of_package->models.size() > 1) {
      output_.message(velabsWARNING, "the package names several 3D models: the first one is read");
    }
    start_ = of_package->models.front();
    if (!archive_.holds(start_)) {
      return fail("the package has no part " + archive_.shown(start_) + ", which should hold its 3D model");
    }
    auto of_start = threemfRelationships::read(archive_, start_, output_);
    if (!of_start) return false;
    further_ = std::move(of_start->models);
    return true;
  }

  bool may_be_read(const std::string& part) {
    if (part == start_) return fail("part " + archive_.shown(part) + " refers to itself by a path");
    if (std::find(further_.begin(), further_.end(), part) != further_.end()) return true;
    return fail("part " + archive_.shown(start_) + " refers to part " + archive_.shown(part) +
                " but has no relationship to it");
  }

  velabsResult parse(const std::string& part, vltProgress& progress) {
    threemfModelParser parser(reading_, parts_.empty(), output_);
    const velabsResult result = parser.parse(archive_, part, &progress, done_);
    if (result == velabsDONE) parts_.push_back(parser.take());
    return result;
  }

  // The other parts follow the first one in the order of its paths.
  bool link() {
    for (std::size_t part = 0; part < parts_.size(); ++part) {
      for (threemfObject& object : parts_[part].objects) {
        for (threemfUse& use : object.components) {
          if (!link(use, part)) return false;
        }
      }
    }
    return std::all_of(parts_.front().items.begin(), parts_.front().items.end(),
                       [&](threemfItem& item) { return link(item.use, 0); });
  }

  bool link(threemfUse& use, std::size_t from) {
    use.part = static_cast<std::uint32_t>(from);
    if (use.path == threemfUse::own_part) return true;
    use.part = use.path + 1;
    const auto object = parts_[use.part].object_by_id.find(use.id);
    if (object == parts_[use.part].object_by_id.end()) {
      return fail("part " + archive_.shown(start_) + ", line " + std::to_string(use.line) + ": there is no object " +
                  std::to_string(use.id) + " in part " + archive_.shown(parts_.front().paths[use.path]));
    }
    use.object = object->second;
    return true;
  }

  threemfArchive& archive_;
  threemfReading& reading_;
  velabsOutput& output_;
  std::string start_;
  std::vector<std::string> further_;
  std::vector<threemfModelPart> parts_;
  std::size_t done_ = 0;
};

}  // namespace

threemfReader::threemfReader()
    : vltDescribed(threemf_format, "Reads triangle meshes, their arrangement and colours from 3MF files.") {}

velabsResult threemfReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                                 velabsOutput& output) {
  const std::optional<double> scale = vlt_scale(resources, output);
  if (!scale || !vlt_read_up(annUP_Z, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped) return velabsFAILED;
  threemfArchive archive(output);
  if (!archive.open(mapped->bytes())) return velabsFAILED;
  vltOnce findings(output);
  threemfReading reading{findings, *scale, vlt_flag(resources, "READ_MATERIALS")};
  const velabsResult result = PackageReader(archive, reading, output).read(document);
  findings.tell();
  return result;
}
