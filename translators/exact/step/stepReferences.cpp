#include "stepReferences.h"

#include <Interface_Static.hxx>
#include <STEPConstruct_ExternRefs.hxx>
#include <XSControl_WorkSession.hxx>
#include <algorithm>
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

constexpr std::size_t most_files = 10'000, most_levels = 100;

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

// The resolved paths of the directory and its files are compared, so links cannot lead outside it.
bool lies_in(const fs::path& directory, const fs::path& file) {
  const fs::path relative = file.lexically_relative(directory);
  return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

bool step_settle_references(STEPControl_Reader& reader, const utString& file, velabsOutput& output) {
  // A file that is referred to while it is on this stack contains itself.
  struct Open {
    fs::path file;
    std::vector<std::string> names;
    std::size_t next = 0;
  };
  std::error_code error;
  const fs::path start = fs::canonical(file.str(), error);
  const fs::path directory = start.parent_path();
  std::vector<Open> open;
  open.push_back({start, references_of(reader)});
  std::set<fs::path> seen{start};
  while (!open.empty()) {
    if (open.back().next == open.back().names.size()) {
      open.pop_back();
      continue;
    }
    const std::string name = open.back().names[open.back().next++];
    const std::string shown = vlt_quoted(name);
    const fs::path real = fs::weakly_canonical(open.back().file.parent_path() / name, error);
    if (error || fs::path(name).is_absolute() || !lies_in(directory, real)) {
      output.message(velabsERROR, utString("it refers to the file " + shown +
                                           ", which lies outside its directory; put both into one directory"));
      return false;
    }
    if (std::any_of(open.begin(), open.end(), [&](const Open& outer) { return outer.file == real; })) {
      output.message(velabsERROR, utString("the file " + shown +
                                           " that it refers to stands in itself: take its name out of one of the "
                                           "files that refer to each other"));
      return false;
    }
    if (!seen.insert(real).second) continue;
    if (open.size() > most_levels) {
      output.message(velabsERROR,
                     utString("it refers to files in each other, more than " + std::to_string(most_levels) + " deep"));
      return false;
    }
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
    // The kernel reads all files in one encoding, and reads past the end of a name in another encoding.
    if (!vlt_is_utf8(bytes)) Interface_Static::SetCVal("read.step.codepage", "iso8859-1");
    open.push_back({real, references_of(other)});
  }
  return true;
}
