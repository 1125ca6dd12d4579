#include "v2vRequestCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "apFrustrumChooser.h"
#include "apRegularFile.h"
#include "apStringEncodingChooser.h"

namespace {

apString full_path(const utString& file) {
  const apString path = apStringEncodingChooser().ut_encoding()->to_apString(file);
  return apFrustrumChooser().file_operations()->full_path(apPathName(path)).string();
}

// Whether both names refer to the same file. If a file does not exist, whether the names are equal.
bool is_same_file(const utString& input, const utString& output) {
  struct stat in;
  struct stat out;
  if (stat(input.c_str(), &in) == 0 && stat(output.c_str(), &out) == 0) {
    return in.st_dev == out.st_dev && in.st_ino == out.st_ino;
  }
  return full_path(input) == full_path(output);
}

bool may_write(const std::string& path, int how) {
  return faccessat(AT_FDCWD, path.c_str(), how, AT_EACCESS) == 0;
}

// Why `file` cannot be created; null if it can.
utString reason_against_place(const utString& file) {
  struct stat status;
  const bool exists = stat(file.c_str(), &status) == 0;
  if (file.str().back() == '/' || (exists && S_ISDIR(status.st_mode))) {
    return "it is a directory; name a file in it";
  }
  if (!exists && errno == ELOOP) return "it is a link that leads back to itself; remove it or name another output";
  if (exists && !may_write(file.str(), W_OK)) return "it may not be written to; name another output";
  if (exists && !S_ISREG(status.st_mode)) return {};

  const std::size_t separator = file.str().rfind('/');
  const std::string directory = separator == std::string::npos ? "." : file.str().substr(0, separator + 1);
  if (stat(directory.c_str(), &status) != 0) return "its directory does not exist; make it first";
  if (!S_ISDIR(status.st_mode)) return "it lies below a file; name another output";
  if (!may_write(directory, W_OK | X_OK)) return "its directory may not be written to; name another output";
  return {};
}

}  // namespace

std::vector<utString> v2v_reasons_against(const v2vTranslationElements& elements) {
  std::vector<utString> reasons;
  const v2vOutputTranslatorElements& output = elements.output();
  if (elements.inputs().empty()) reasons.push_back("there is no input; name a file to translate");
  if (output.invalid()) {
    const utString what = output.file().empty() ? utString("the output") : output.file();
    reasons.push_back(what + ": no translator writes this format; choose another one");
    return reasons;
  }
  if (output.file().empty()) {
    reasons.push_back("the output has no name; name a file to write");
    return reasons;
  }
  for (std::size_t i = 0; i < elements.inputs().count(); ++i) {
    if (!is_same_file(elements.inputs()[i].file(), output.file())) continue;
    reasons.push_back(output.file() + ": it is an input too; name another output");
    return reasons;
  }
  const utString reason = reason_against_place(output.file());
  if (!reason.is_null()) reasons.push_back(output.file() + ": " + reason);
  return reasons;
}

utString v2v_reason_against_input(const utString& file) {
  apStatus status;
  const apRegularFile regular(file, status);
  if (!regular.good()) return utString("it cannot be read: ") + status.failure() + "; name another input";
  if (regular.size() == 0) return "it is empty; name another input";
  return "no translator reads its content; name another input or install a translator for it";
}
