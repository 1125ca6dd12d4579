#include "vlnFile.h"

#include <algorithm>
#include <fstream>

#include "apPathName.h"
#include "vluFileHelpers.h"

vlnFile::vlnFile(const utString& path, const apIStringEncoding* encoding, const apIFileOperations* file_operations)
    : encoding_(encoding), file_operations_(file_operations) {
  full_path_ = full_path(path);
  get_path_elements(full_path_, directory_, name_, extension_);
  type_ = file_type(full_path_);
}

utString vlnFile::full_path(const utString& path) const {
  if (!encoding_ || !file_operations_) return "";
  const apPathName given(encoding_->to_apString(path), encoding_);
  return encoding_->to_utString(file_operations_->full_path(given).string());
}

void vlnFile::get_path_elements(const utString& path, utString& directory, utString& name, utString& extension) const {
  if (!encoding_) {
    directory = name = extension = "";
    return;
  }
  const apPathName whole(encoding_->to_apString(path));
  const apFileName last = whole.basename();
  directory = encoding_->to_utString(whole.dirname().string());
  name = encoding_->to_utString(last.without_extension());
  extension = last.has_extension() ? encoding_->to_utString(last.extension()) : utString("");
}

const utString& vlnFile::get_path_element(vlnFilePathElement element) const {
  static const utString none("");
  switch (element) {
    case vlnFileDirectory:
      return directory_;
    case vlnFileName:
      return name_;
    case vlnFileExtension:
      return extension_;
    default:
      return none;
  }
}

vlnFileType vlnFile::file_type(const utString& path) {
  switch (vlu_check_file_exists(path)) {
    case vluFILE_IS_FILE:
      return vlnFileTypeFile;
    case vluFILE_IS_NO_FILE:
      return vlnFileTypeOther;
    default:
      return vlnFileTypeNone;
  }
}

int vlnFile::create_file(vlnFileCreateMode mode) const {
  // Opening a pipe for writing would block.
  if (file_type(full_path_) != vlnFileTypeOther) {
    const std::ofstream stream(full_path_.str(), mode == vlnFileCreateTruncate ? std::ios::trunc : std::ios::app);
  }
  type_ = file_type(full_path_);
  return type_ == vlnFileTypeFile ? 1 : 0;
}

utString vlnFile::backslashify(const utString& text) {
  std::string result = text.str();
  std::replace(result.begin(), result.end(), '/', '\\');
  return result;
}

bool vlnFile::are_equal(const vlnFile& other) const {
  return name_.case_compare(other.name_) && extension_.case_compare(other.extension_) &&
         directory_.case_compare(other.directory_);
}
