#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "apExport.h"
#include "apFileName.h"
#include "apPath.h"

// The entries of one directory: files and directories, without "." and "..". Sorted by the bytes of their names, so
// that the order is the same on every machine. The directory is read once, by the constructor.
class VELPLATFORM_API apFileFinderEx {
 public:
  explicit apFileFinderEx(const apPath& path);

  // True when the directory cannot be opened.
  bool invalid() const { return invalid_; }

  // Moves to the next entry. Starts before the first one.
  int operator++();
  apFileName file_name() const;
  // The listed directory joined with the entry's name.
  apPathName path() const;
  bool is_directory() const;

 private:
  struct Entry {
    std::size_t begin;  // of the name in `names_`
    std::size_t length;
    std::uint64_t key;
    bool directory;
  };

  void sort();
  std::string_view name_of(const Entry& entry) const {
    return std::string_view(names_).substr(entry.begin, entry.length);
  }

  std::wstring directory_;  // ends in a separator
  const apIStringEncoding* encoding_;
  std::string names_;
  std::vector<Entry> entries_;
  std::size_t position_ = 0;  // one after the current entry
  bool invalid_ = false;
};
