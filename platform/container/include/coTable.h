#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>

#include "apLanguage.h"

// A table with one value for each key. Reading an unknown key gives an empty value and adds nothing.
template <typename K, typename V>
class coTable {
 public:
  // The suite gives its tables an initial capacity and a growth in percent; only the capacity is used.
  explicit coTable(std::size_t room = 50, int growth_percent = 50) {
    static_cast<void>(growth_percent);
    entries_.reserve(room);
  }

  // Sets the value of a key and replaces an earlier one.
  void put(const K& key, V value) { entries_[key] = std::move(value); }

  // Returns null if the key is unknown.
  const V* find(const K& key) const {
    auto entry = entries_.find(key);
    return entry == entries_.end() ? nullptr : &entry->second;
  }
  V* find(const K& key) {
    auto entry = entries_.find(key);
    return entry == entries_.end() ? nullptr : &entry->second;
  }
  const V& read(const K& key) const {
    static const V none{};
    const V* value = find(key);
    return value ? *value : none;
  }
  void remove(const K& key) { entries_.erase(key); }
  void clear() { entries_.clear(); }
  std::size_t count() const { return entries_.size(); }

 private:
  std::unordered_map<K, V> entries_;
};
