#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "apRegularFile.h"
#include "utString.h"

// The input of the recognisers: the size of a file, a bounded head, and a bounded tail, which is read on request.
class vluFileSample {
 public:
  static constexpr std::size_t bound = std::size_t{64} << 10;

  // None if it is not a regular file with at least one byte, or cannot be read. Never blocks.
  static std::optional<vluFileSample> take(const utString& path);
  vluFileSample(vluFileSample&& other) noexcept;
  vluFileSample& operator=(vluFileSample&&) = delete;

  std::uint64_t size() const { return file_.size(); }
  std::string_view head() const { return head_; }
  bool head_is_all() const { return head_.size() == size(); }

  // The end of the file; the whole file if it is not longer than the bound.
  std::string_view tail() const;

  // The head as text: without a byte order mark, and without the null bytes with which some writers fill the last block
  // of a file. Empty if it contains any other null byte, because text does not.
  std::string_view text() const { return text_; }

 private:
  vluFileSample(apRegularFile file, std::string head);

  apRegularFile file_;
  std::string head_;
  std::string_view text_;
  mutable std::optional<std::string> tail_;
};
