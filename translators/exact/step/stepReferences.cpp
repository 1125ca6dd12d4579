#include "stepReferences.h"

#include <STEPConstruct_ExternRefs.hxx>
#include <XSControl_WorkSession.hxx>
#include <filesystem>
#include <set>
#include <system_error>
#include <vector>

#include "vltNames.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_files = 10'000;

std::vector<std::string> references_of(STEPControl_Reader& reader) {
  STEPConstruct_ExternRefs references(reader.WS());
  references.LoadExternRefs();
  std::vector<std::string> names;
  for (int i = 1; i <= references.NbExternRefs(); ++i) {
    const char* name = references.FileName(i);
    if (name && *name) names.emplace_back(name);
  }
  return names;
}

// The real places of the directory and of what lies in it are compared, so links lead nowhere else.
bool lies_in(const fs::path& directory, const fs::path& file) {
  const fs::path relative = file.lexically_relative(directory);
  return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

bool step_settle_references(STEPControl_Reader& reader, const utString& file, velabsOutput& output) {
  std::vector<std::string> pending = references_of(reader);
  if (pending.empty()) return true;
  std::error_code error;
  const fs::path directory = fs::canonical(file.str(), error).parent_path();
  std::set<std::string> seen;
  while (!pending.empty()) {
    const std::string name = pending.back();
    pending.pop_back();
    if (!seen.insert(name).second) continue;
    const std::string shown = vlt_quoted(name);
    const fs::path real = fs::weakly_canonical(directory / name, error);
    if (error || fs::path(name).is_absolute() || !lies_in(directory, real)) {
      output.message(velabsERROR, utString("it refers to the file " + shown +
                                           ", which lies outside its directory; put both into one directory"));
      return false;
    }
    if (!fs::is_regular_file(real, error)) {
      output.message(velabsWARNING, utString("the file " + shown + " that it refers to is missing: its part is empty"));
      continue;
    }
    if (output.cancelled()) return false;
    if (seen.size() > most_files) {
      output.message(velabsERROR, utString("it refers to more than " + std::to_string(most_files) + " files"));
      return false;
    }
    STEPControl_Reader other;
    if (other.ReadFile(real.c_str()) != IFSelect_RetDone) {
      output.message(velabsWARNING, utString("the file " + shown + " that it refers to is no whole STEP file"));
      continue;
    }
    for (std::string& below : references_of(other)) pending.push_back(std::move(below));
  }
  return true;
}
