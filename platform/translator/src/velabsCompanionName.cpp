#include "velabsCompanionName.h"

#include <sys/stat.h>

#include <algorithm>
#include <optional>
#include <string>

#include "velabsNamedFiles.h"

namespace {

// Decides whether existing files, with the names of sidecar files of one target and extension, may be replaced.
class Owner {
 public:
  Owner(const utString& target, const velabsNumberedNames& names, const std::vector<utString>& inputs)
      : target_(target), names_(names), inputs_(inputs) {}

  // Whether the regular file at `path`, which has this number, is named by the target and not used by an input.
  bool owns(unsigned number, const std::string& path) {
    struct stat status;
    if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    if (std::any_of(inputs_.begin(), inputs_.end(), [&](const utString& input) { return is_file(input, status); })) {
      return false;
    }
    if (!of_target_) of_target_ = velabs_named_in(target_, names_);
    if (!of_target_->contains(number)) return false;
    if (!of_inputs_) collect_of_inputs();
    return !of_inputs_->contains(number);
  }

 private:
  static bool is_file(const utString& name, const struct stat& file) {
    struct stat status;
    return stat(name.c_str(), &status) == 0 && status.st_dev == file.st_dev && status.st_ino == file.st_ino;
  }

  void collect_of_inputs() {
    of_inputs_.emplace();
    for (const utString& input : inputs_) of_inputs_->merge(velabs_named_in(input, names_));
  }

  const utString& target_;
  const velabsNumberedNames& names_;
  const std::vector<utString>& inputs_;
  std::optional<std::set<unsigned>> of_target_, of_inputs_;
};

bool is_there(const std::string& path) {
  struct stat status;
  return lstat(path.c_str(), &status) == 0;
}

}  // namespace

velabsCompanionName::velabsCompanionName(const utString& target, const utString& extension,
                                         const std::vector<utString>& inputs) {
  const std::string& path = target.str();
  const std::size_t last = path.rfind('/') + 1;
  const std::size_t dot = path.rfind('.');
  const bool has_extension = dot != path.npos && dot > last;
  const velabsNumberedNames names{path.substr(last, has_extension ? dot - last : path.npos), "." + extension.str()};

  Owner owner(target, names, inputs);
  auto path_of = [&](unsigned number) { return path.substr(0, last) + names.name(number); };
  auto may_be = [&](unsigned number) {
    const std::string candidate = path_of(number);
    return candidate == path || !is_there(candidate) || owner.owns(number, candidate);
  };
  unsigned number = 0;
  while (!may_be(number)) ++number;
  wished = path_of(0);
  name = path_of(number);
}
