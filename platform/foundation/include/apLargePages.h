#pragma once

#include <cstddef>
#include <vector>

#include "apExport.h"

// Advises the system to use large pages (megabytes) for a region that is not touched yet. This gives fewer page faults
// while it is filled and fewer address translations when it is read at random. Advice only; no effect on a region
// smaller than a large page.
VELPLATFORM_API void ap_prefer_large_pages(const void* begin, std::size_t size);

// Reserves capacity for `count` elements, in large pages.
template <typename T>
void ap_reserve_large(std::vector<T>& elements, std::size_t count) {
  if (count <= elements.capacity()) return;
  elements.reserve(count);
  ap_prefer_large_pages(elements.data() + elements.size(), (elements.capacity() - elements.size()) * sizeof(T));
}
