#include "exaNesting.h"

#include <TopoDS_Iterator.hxx>
#include <algorithm>
#include <unordered_set>

void exaNesting::add(const void* outer, const void* inner) {
  const std::uint32_t at = number_of(outer);
  const std::uint32_t below = number_of(inner);
  inner_[at].push_back(below);
}

std::uint32_t exaNesting::number_of(const void* thing) {
  const auto [known, is_new] = numbers_.try_emplace(thing, static_cast<std::uint32_t>(inner_.size()));
  if (is_new) inner_.emplace_back();
  return known->second;
}

std::string exaNesting::fault() const {
  struct Tree {
    double occurrences = 1;
    std::size_t levels = 1;
    std::size_t next = 0;
    bool is_open = false;
  };
  std::vector<Tree> trees(inner_.size());
  std::vector<std::uint32_t> open;
  for (std::uint32_t start = 0; start < trees.size(); ++start) {
    if (trees[start].next == 0) open.push_back(start);
    while (!open.empty()) {
      const std::uint32_t at = open.back();
      Tree& tree = trees[at];
      tree.is_open = true;
      if (tree.next < inner_[at].size()) {
        const std::uint32_t below = inner_[at][tree.next];
        if (trees[below].is_open) return "holds an assembly that stands in itself";
        const bool is_done = trees[below].next == inner_[below].size();
        if (!is_done) {
          open.push_back(below);
          continue;
        }
        ++tree.next;
        tree.occurrences += trees[below].occurrences;
        tree.levels = std::max(tree.levels, trees[below].levels + 1);
        if (tree.next < inner_[at].size()) continue;
      }
      if (tree.occurrences > most_occurrences) return "shows its parts more than 2000000 times";
      if (tree.levels > most_levels) return "holds assemblies in each other, more than 1000 deep";
      tree.is_open = false;
      open.pop_back();
    }
  }
  return "";
}

exaNesting exa_nesting(const TopoDS_Shape& shape) {
  exaNesting nesting;
  std::vector<TopoDS_Shape> open{shape};
  std::unordered_set<const TopoDS_TShape*> seen;
  while (!open.empty()) {
    const TopoDS_Shape outer = open.back();
    open.pop_back();
    if (outer.ShapeType() > TopAbs_COMPSOLID || !seen.insert(outer.TShape().get()).second) continue;
    for (TopoDS_Iterator it(outer, false, false); it.More(); it.Next()) {
      nesting.add(outer.TShape().get(), it.Value().TShape().get());
      open.push_back(it.Value());
    }
  }
  return nesting;
}
