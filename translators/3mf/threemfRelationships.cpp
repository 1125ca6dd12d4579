#include "threemfRelationships.h"

#include "threemfFormat.h"
#include "threemfPartName.h"
#include "threemfXml.h"
#include "vltNames.h"

namespace {

class Parser : public threemfXml {
 public:
  Parser(const std::string& source, velabsOutput& output) : threemfXml(output), source_(source) {}

  threemfRelationships take() { return std::move(result_); }

 protected:
  void start(const char* name, const char** attributes) override {
    if (name != std::string_view(THREEMF_RELATIONSHIPS "|Relationship")) return;
    std::string_view type, target, mode;
    for (const char** a = attributes; *a; a += 2) {
      const std::string_view attribute = a[0];
      if (attribute == "Type") type = a[1];
      if (attribute == "Target") target = a[1];
      if (attribute == "TargetMode") mode = a[1];
    }
    // These types exist in several versions, so only their ends are compared.
    if (type.ends_with("/keystore") || type.ends_with("/encryptedfile")) {
      return fail("the package has encrypted parts (secure content), which cannot be read");
    }
    if (type != THREEMF_MODEL_RELATION) return;
    std::optional<std::string> key = threemf_target_key(source_, target);
    if (!key || mode == "External")
      return fail("the model part " + vlt_quoted(target) + " lies outside of the package");
    result_.models.push_back(std::move(*key));
  }

  void end() override {}

 private:
  const std::string& source_;
  threemfRelationships result_;
};

}  // namespace

std::optional<threemfRelationships> threemfRelationships::read(threemfArchive& archive, const std::string& source,
                                                               velabsOutput& output) {
  const std::string key = threemf_relationships_key(source);
  if (!archive.holds(key)) return threemfRelationships();
  Parser parser(source, output);
  std::size_t done = 0;
  if (parser.parse(archive, key, nullptr, done) != velabsDONE) return std::nullopt;
  return parser.take();
}
