#pragma once

#include <cstddef>
#include <vector>

#include "apExport.h"

// Tells the system that a region, not touched yet, will be used as a whole, so that it may come in pages of megabytes:
// fewer faults while it fills and fewer look-ups of addresses when it is read at random. Advice only; of a region
// smaller than a large page nothing comes.
VELPLATFORM_API void ap_prefer_large_pages(const void* begin, std::size_t size);

// Room for `count` elements at once, in large pages.
template <typename T>
void ap_reserve_large(std::vector<T>& elements, std::size_t count) {
  if (count <= elements.capacity()) return;
  elements.reserve(count);
  ap_prefer_large_pages(elements.data() + elements.size(), (elements.capacity() - elements.size()) * sizeof(T));
}
