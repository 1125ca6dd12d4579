#include "velNearest.h"

#include <algorithm>
#include <utility>

namespace {

// The edit distance: the number of letters to change, insert, delete or swap with a neighbour.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> before_last, last, row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    before_last = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      const bool crossed = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (crossed) row[j] = std::min(row[j], before_last[j - 2] + 1);
    }
  }
  return row[b.size()];
}

}  // namespace

std::string vel_nearest(std::string_view word, const std::vector<std::string>& names) {
  constexpr std::size_t longest = 40;
  if (word.size() > longest) return "";
  std::string nearest;
  std::size_t least = word.size() / 3 + 1;
  for (const std::string& name : names) {
    const std::size_t far = distance(word, name);
    if (far >= least) continue;
    least = far;
    nearest = name;
  }
  return nearest;
}
