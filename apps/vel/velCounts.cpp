#include "velCounts.h"

#include <algorithm>

velCounts vel_counts(const std::vector<annPlacedBody>& parts) {
  return vel_counts(parts, ann_statistics(parts, false));
}

velCounts vel_counts(const std::vector<annPlacedBody>& parts, const annStatistics& statistics) {
  velCounts counts{statistics.parts, statistics.solids, statistics.faces, std::nullopt, std::nullopt};
  const auto has_mesh = [](const annPlacedBody& part) { return part.node->body.mesh != nullptr; };
  if (std::all_of(parts.begin(), parts.end(), has_mesh)) {
    counts.triangles = statistics.triangles;
    counts.vertices = statistics.vertices;
  }
  return counts;
}

velJson vel_counts_as_json(const velCounts& counts) {
  const auto known = [](const std::optional<std::size_t>& count) { return count ? velJson(*count) : velJson(nullptr); };
  return {{"parts", counts.parts},
          {"solids", counts.solids},
          {"faces", counts.faces},
          {"triangles", known(counts.triangles)},
          {"vertices", known(counts.vertices)}};
}
