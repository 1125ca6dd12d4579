#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "apLanguage.h"

// An array that grows in pages, so that the address of an element never changes until `clear`.
template <typename T>
class coPageArr {
 public:
  static constexpr std::size_t page_size = 64;

  coPageArr() = default;
  coPageArr(coPageArr&&) noexcept = default;
  coPageArr& operator=(coPageArr&&) noexcept = default;
  coPageArr(const coPageArr& other) { *this = other; }
  coPageArr& operator=(const coPageArr& other) {
    if (this == &other) return *this;
    clear();
    for (std::size_t i = 0; i < other.count(); ++i) append(other[i]);
    return *this;
  }

  T& append(T element) {
    if (pages_.empty() || pages_.back()->size() == page_size) {
      pages_.push_back(std::make_unique<Page>());
      pages_.back()->reserve(page_size);
    }
    pages_.back()->push_back(std::move(element));
    return pages_.back()->back();
  }

  // `index` must be below `count()`.
  T& operator[](std::size_t index) { return (*pages_[index / page_size])[index % page_size]; }
  const T& operator[](std::size_t index) const { return (*pages_[index / page_size])[index % page_size]; }

  std::size_t count() const { return pages_.empty() ? 0 : (pages_.size() - 1) * page_size + pages_.back()->size(); }
  bool empty() const { return pages_.empty(); }

  // Frees all pages.
  void clear() { pages_.clear(); }

  // Iterates in order, page by page, starting before the first element. The array must outlive it.
  class Iterator {
   public:
    explicit Iterator(const coPageArr& array) : array_(&array) {}
    int operator++() {
      if (!started_) {
        started_ = true;
      } else if (page_ < array_->pages_.size() && ++slot_ == array_->pages_[page_]->size()) {
        slot_ = 0;
        ++page_;
      }
      return page_ < array_->pages_.size() ? 1 : 0;
    }
    const T& operator()() const { return (*array_->pages_[page_])[slot_]; }
    const T& operator*() const { return (*this)(); }

   private:
    const coPageArr* array_;
    std::size_t page_ = 0;
    std::size_t slot_ = 0;
    bool started_ = false;
  };
  Iterator iterator() const { return Iterator(*this); }

 private:
  using Page = std::vector<T>;
  std::vector<std::unique_ptr<Page>> pages_;
};
