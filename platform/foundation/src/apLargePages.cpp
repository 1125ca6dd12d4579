#include "apLargePages.h"

#include <sys/mman.h>

#include <cstdint>

void ap_prefer_large_pages(const void* begin, std::size_t size) {
  constexpr std::uintptr_t page = std::uintptr_t{1} << 21;
  const auto from = reinterpret_cast<std::uintptr_t>(begin);
  const std::uintptr_t first = (from + page - 1) / page * page, last = (from + size) / page * page;
  if (first < last) madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE);
}
