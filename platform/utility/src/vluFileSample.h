#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "apRegularFile.h"
#include "utString.h"

// What the recognisers may see of a file: its size, a bounded head, and a bounded tail, which is read when somebody
// asks for it.
class vluFileSample {
 public:
  static constexpr std::size_t bound = std::size_t{64} << 10;

  // None for what is no regular file with at least one byte, or cannot be read. Never blocks.
  static std::optional<vluFileSample> take(const utString& path);
  vluFileSample(vluFileSample&& other) noexcept;
  vluFileSample& operator=(vluFileSample&&) = delete;

  std::uint64_t size() const { return file_.size(); }
  std::string_view head() const { return head_; }
  bool head_is_all() const { return head_.size() == size(); }

  // The end of the file; all of it when it is no longer than the bound.
  std::string_view tail() const;

  // The head as text: without a byte order mark, and without the null bytes that some writers fill the last block of a
  // file with. Empty when it holds another null byte, which text never does.
  std::string_view text() const { return text_; }

 private:
  vluFileSample(apRegularFile file, std::string head);

  apRegularFile file_;
  std::string head_;
  std::string_view text_;
  mutable std::optional<std::string> tail_;
};
