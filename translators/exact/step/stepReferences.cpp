#include "stepReferences.h"

#include <Interface_Static.hxx>
#include <STEPConstruct_ExternRefs.hxx>
#include <XSControl_WorkSession.hxx>
#include <filesystem>
#include <memory>
#include <set>
#include <system_error>
#include <vector>

#include "apMappedFile.h"
#include "stepFaults.h"
#include "stepNumbers.h"
#include "vltNames.h"
#include "vltUtf8.h"

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
  struct Reference {
    std::string name;
    fs::path from;  // the directory of the file that names it
  };
  std::error_code error;
  const fs::path directory = fs::canonical(file.str(), error).parent_path();
  std::vector<Reference> pending;
  auto add = [&](STEPControl_Reader& of, const fs::path& from) {
    std::vector<std::string> names = references_of(of);
    for (auto name = names.rbegin(); name != names.rend(); ++name) pending.push_back({std::move(*name), from});
  };
  add(reader, directory);
  std::set<fs::path> seen;
  while (!pending.empty()) {
    const Reference reference = std::move(pending.back());
    pending.pop_back();
    const std::string shown = vlt_quoted(reference.name);
    const fs::path real = fs::weakly_canonical(reference.from / reference.name, error);
    if (error || fs::path(reference.name).is_absolute() || !lies_in(directory, real)) {
      output.message(velabsERROR, utString("it refers to the file " + shown +
                                           ", which lies outside its directory; put both into one directory"));
      return false;
    }
    if (!seen.insert(real).second) continue;
    if (!fs::is_regular_file(real, error)) {
      output.message(velabsWARNING, utString("the file " + shown +
                                             " that it refers to is missing: what stands in it is left out; put it "
                                             "where the name says"));
      continue;
    }
    if (output.cancelled()) return false;
    if (seen.size() > most_files) {
      output.message(velabsERROR, utString("it refers to more than " + std::to_string(most_files) + " files"));
      return false;
    }
    apStatus status;
    const std::unique_ptr<apMappedFile> mapped = apMappedFile::open(utString(real.string()), status);
    const std::string_view bytes = mapped ? mapped->bytes() : std::string_view();
    STEPControl_Reader other;
    std::string fault = step_number_fault(bytes);
    const bool whole = fault.empty() && other.ReadFile(real.c_str()) == IFSelect_RetDone;
    if (whole) fault = step_fault(other, bytes);
    if (!fault.empty()) {
      output.message(velabsERROR, utString("the file " + shown + " that it refers to " + fault));
      return false;
    }
    if (!whole) {
      output.message(velabsWARNING,
                     utString("the file " + shown + " that it refers to is no whole STEP file: it is left out"));
      continue;
    }
    // The kernel reads all of them in one encoding, and on behind the end of a name that is in another one.
    if (!vlt_is_utf8(bytes)) Interface_Static::SetCVal("read.step.codepage", "iso8859-1");
    add(other, real.parent_path());
  }
  return true;
}
