#include "vltOnce.h"

#include <algorithm>

namespace {

constexpr std::size_t most_kinds = 40;

}  // namespace

void vltOnce::count(velabsSeverity severity, std::string_view what, std::size_t line, std::size_t how_many) {
  if (auto known = kinds_.find(what); known != kinds_.end()) {
    known->second.count += how_many;
    return;
  }
  if (order_.size() == most_kinds) {
    more_ += how_many;
    more_severity_ = std::max(more_severity_, severity);
    return;
  }
  auto kind = kinds_.emplace(what, Kind{severity, line, how_many}).first;
  order_.push_back(kind->first);
}

void vltOnce::tell() {
  for (std::string_view what : order_) {
    const Kind& kind = kinds_.find(what)->second;
    std::string text;
    if (kind.first_line > 0) text += "line " + std::to_string(kind.first_line) + ": ";
    text += what;
    if (kind.count > 1) text += " (" + std::to_string(kind.count) + " times)";
    output_.message(kind.severity, utString(text));
  }
  if (more_ > 0) {
    output_.message(more_severity_, utString(std::to_string(more_) + " findings of further kinds are not named"));
  }
  kinds_.clear();
  order_.clear();
  more_ = 0;
  more_severity_ = velabsNOTE;
}
