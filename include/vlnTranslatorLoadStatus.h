#pragma once

#include <set>
#include <vector>

#include "apPathName.h"
#include "itIterator.h"
#include "vlnExport.h"
#include "vlnTranslatorLoadStatusType.h"

// The result of finding, describing, caching and loading translators. Every step returns one, and the caller merges it
// into its own, so that failures collect instead of stopping the work at the first one. A value: copies are
// independent.
//
//   vlnTranslatorLoadStatus status(vlnLOAD_OK);
//   status.merge_status(next_step());
//   if (!status.ok()) ...
class VLN_API vlnTranslatorLoadStatus {
 public:
  // A status without a result: it is never `ok` and always `invalid`.
  vlnTranslatorLoadStatus();

  // `ok` only for vlnLOAD_OK; `invalid` only for vlnLOAD_NOT_SET.
  explicit vlnTranslatorLoadStatus(vlnTranslatorLoadStatusType type);

  // A library file that could not be loaded as a translator: vlnLOAD_FILE_FAILED, with its path.
  explicit vlnTranslatorLoadStatus(apPathName file);

  // Adds every failure of `other`: not `ok` afterwards if `other` is not. Its failed files are appended (duplicates are
  // kept) and its types added. `invalid` does not change. Merging a status into itself changes nothing.
  void merge_status(const vlnTranslatorLoadStatus& other);

  bool ok() const { return ok_; }
  bool invalid() const { return invalid_; }

  bool files_failed_to_load() const { return !failed_files_.empty(); }
  // The libraries that failed to load, in the order in which they were recorded. The status must outlive the iterator
  // and not change meanwhile.
  itIterator<apPathName> translator_files_failed_to_load() { return itIterator<apPathName>(failed_files_); }

  // Every kind of result that went into this status, in ascending order.
  const std::set<vlnTranslatorLoadStatusType>& types() const { return types_; }

 private:
  bool ok_ = false;
  bool invalid_ = false;
  std::vector<apPathName> failed_files_;
  std::set<vlnTranslatorLoadStatusType> types_;
};
