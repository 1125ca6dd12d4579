#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "apFileName.h"
#include "apPathName.h"
#include "vlnTranslatorSearchPath.h"

// What the directories of a search path hold, listed once, so that thousands of names are looked up without listing
// again. A snapshot.
class vlnLibraryIndex {
 public:
  // The shared libraries that the search path's lister finds.
  static vlnLibraryIndex of_libraries(const vlnTranslatorSearchPath& search_path);

  // Every entry of the directories, whatever its extension.
  static vlnLibraryIndex of_entries(const vlnSearchPath& search_path);

  // In the order of the search path.
  const std::vector<apPathName>& files() const { return files_; }
  bool directory_missing() const { return directory_missing_; }

  // What `vlnSearchPath::search` would find.
  apPathName find(const apFileName& name) const;

 private:
  struct Place {
    std::size_t directory;
    std::size_t file;
  };

  void add_names();

  std::vector<apPathName> files_;
  bool directory_missing_ = false;
  // By folded name, the places in the order of the search path.
  std::unordered_map<std::wstring, std::vector<Place>> places_;
};
