#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "velabsOutput.h"

struct zip;
struct zip_file;

// The bytes of one part, unpacked as they are asked for.
class threemfPartBytes {
 public:
  threemfPartBytes(zip_file* file, std::string name, std::uint64_t size, velabsOutput& output);
  ~threemfPartBytes();
  threemfPartBytes(const threemfPartBytes&) = delete;
  threemfPartBytes& operator=(const threemfPartBytes&) = delete;

  // How many bytes were put at `to`: 0 at the end, less than 0, and a message, when the part is damaged.
  std::int64_t read(char* to, std::size_t room);

 private:
  zip_file* file_;
  std::string name_;
  std::uint64_t left_;
  velabsOutput& output_;
};

// A package: an archive whose entries are known by the keys of part names. What all reading of it together may unpack
// is bounded by the size of the file, so that a small file cannot stand for an endless one.
class threemfArchive {
 public:
  explicit threemfArchive(velabsOutput& output) : output_(output) {}
  ~threemfArchive();
  threemfArchive(const threemfArchive&) = delete;
  threemfArchive& operator=(const threemfArchive&) = delete;

  // `bytes` must live as long as the archive. False, and a message, when they are no archive.
  bool open(std::string_view bytes);

  bool holds(const std::string& key) const { return entries_.contains(key); }
  // Unpacked, as the archive declares it; 0 for a part that is not there.
  std::uint64_t size(const std::string& key) const;
  // The part's name for messages.
  std::string shown(const std::string& key) const;

  // Null, and a message, when the part cannot be read.
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
