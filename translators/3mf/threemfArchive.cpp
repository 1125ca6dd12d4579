#include "threemfArchive.h"

#include <zip.h>

#include <algorithm>

#include "threemfPartName.h"
#include "vltNames.h"

namespace {

// XML of meshes is compressed to a tenth of its size, rarely to a fiftieth.
constexpr std::uint64_t most_unpacked_per_byte = 200;
constexpr std::uint64_t unpacked_at_least = std::uint64_t{64} << 20;
constexpr std::size_t longest_shown_name = 200;

bool fail(velabsOutput& output, const std::string& reason) {
  output.message(velabsERROR, utString(reason));
  return false;
}

}  // namespace

threemfPartBytes::threemfPartBytes(zip_file* file, std::string name, std::uint64_t size, velabsOutput& output)
    : file_(file), name_(std::move(name)), left_(size), output_(output) {}

threemfPartBytes::~threemfPartBytes() {
  zip_fclose(file_);
}

std::int64_t threemfPartBytes::read(char* to, std::size_t room) {
  const zip_int64_t count = zip_fread(file_, to, room);
  if (count < 0) {
    fail(output_, "part " + name_ + " is damaged: " + zip_error_strerror(zip_file_get_error(file_)));
    return -1;
  }
  if (static_cast<std::uint64_t>(count) > left_) {
    fail(output_, "part " + name_ + " unpacks to more bytes than the archive declares");
    return -1;
  }
  left_ -= static_cast<std::uint64_t>(count);
  return count;
}

threemfArchive::~threemfArchive() {
  if (archive_) zip_discard(archive_);
}

bool threemfArchive::open(std::string_view bytes) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  if (source) archive_ = zip_open_from_source(source, ZIP_RDONLY, &error);
  if (!archive_) {
    fail(output_, std::string("the package is no whole ZIP archive: ") + zip_error_strerror(&error));
    if (source) zip_source_free(source);
    zip_error_fini(&error);
    return false;
  }
  zip_error_fini(&error);
  budget_ = std::max(unpacked_at_least, most_unpacked_per_byte * bytes.size());
  const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive_, 0));
  for (zip_uint64_t index = 0; index < count; ++index) {
    const char* name = zip_get_name(archive_, index, ZIP_FL_ENC_RAW);
    std::optional<std::string> key = name ? threemf_part_key(name) : std::nullopt;
    if (!key) continue;
    const auto [entry, added] = entries_.try_emplace(std::move(*key), Entry{index, name, false});
    if (!added) entry->second.ambiguous = true;
  }
  return true;
}

std::uint64_t threemfArchive::size(const std::string& key) const {
  const auto entry = entries_.find(key);
  zip_stat_t stat;
  if (entry == entries_.end() || zip_stat_index(archive_, entry->second.index, 0, &stat) != 0) return 0;
  return stat.valid & ZIP_STAT_SIZE ? stat.size : 0;
}

std::string threemfArchive::shown(const std::string& key) const {
  const auto entry = entries_.find(key);
  return vlt_quoted(entry == entries_.end() ? key : entry->second.name, longest_shown_name);
}

std::unique_ptr<threemfPartBytes> threemfArchive::part(const std::string& key) {
  const std::string name = shown(key);
  const auto entry = entries_.find(key);
  if (entry == entries_.end()) {
    fail(output_, "the package has no part " + name);
    return nullptr;
  }
  if (entry->second.ambiguous) {
    fail(output_, "the package has several parts " + name);
    return nullptr;
  }
  zip_stat_t stat;
  if (zip_stat_index(archive_, entry->second.index, 0, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE)) {
    fail(output_, "part " + name + " has no size in the archive");
    return nullptr;
  }
  if ((stat.valid & ZIP_STAT_ENCRYPTION_METHOD) && stat.encryption_method != ZIP_EM_NONE) {
    fail(output_, "part " + name + " is encrypted");
    return nullptr;
  }
  if (stat.size > budget_) {
    fail(output_, "part " + name + " would unpack to " + std::to_string(stat.size) +
                      " bytes, far more than a model of this file's size can hold");
    return nullptr;
  }
  zip_file_t* file = zip_fopen_index(archive_, entry->second.index, 0);
  if (!file) {
    fail(output_, "part " + name + " cannot be unpacked: " + zip_error_strerror(zip_get_error(archive_)));
    return nullptr;
  }
  budget_ -= stat.size;
  return std::make_unique<threemfPartBytes>(file, name, stat.size, output_);
}
