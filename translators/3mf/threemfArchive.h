#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "velabsOutput.h"

struct zip;
struct zip_file;

// The bytes of one part, unpacked on demand.
class threemfPartBytes {
 public:
  threemfPartBytes(zip_file* file, std::string name, std::uint64_t size, velabsOutput& output);
  ~threemfPartBytes();
  threemfPartBytes(const threemfPartBytes&) = delete;
  threemfPartBytes& operator=(const threemfPartBytes&) = delete;

  // Returns the number of bytes written to `to`: 0 at the end; negative, with a message, when the part is damaged.
  std::int64_t read(char* to, std::size_t room);

 private:
  zip_file* file_;
  std::string name_;
  std::uint64_t left_;
  velabsOutput& output_;
};

// A package: an archive whose entries are identified by part keys. The total number of unpacked bytes is limited by
// the size of the file, so that a small file cannot expand without limit.
class threemfArchive {
 public:
  explicit threemfArchive(velabsOutput& output) : output_(output) {}
  ~threemfArchive();
  threemfArchive(const threemfArchive&) = delete;
  threemfArchive& operator=(const threemfArchive&) = delete;

  // `bytes` must live as long as the archive. False, with a message, when they are not an archive.
  bool open(std::string_view bytes);

  bool holds(const std::string& key) const { return entries_.contains(key); }
  // The unpacked size that the archive declares; 0 for a missing part.
  std::uint64_t size(const std::string& key) const;
  // The part's name for messages.
  std::string shown(const std::string& key) const;

  // Null, with a message, when the part cannot be read.
  std::unique_ptr<threemfPartBytes> part(const std::string& key);

 private:
  struct Entry {
    std::uint64_t index;
    std::string name;
    bool ambiguous;
  };

  velabsOutput& output_;
  zip* archive_ = nullptr;
  std::uint64_t budget_ = 0;
  std::unordered_map<std::string, Entry> entries_;
};
