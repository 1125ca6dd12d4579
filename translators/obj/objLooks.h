#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "velabsOfStream.h"
#include "vltNames.h"
#include "vltPlacedMesh.h"

// The materials of the companion file: one for each distinct pair of name and colour in the document, under a name that
// is one word, because many programs read no other, and unique.
class objLooks {
 public:
  // Collects them from all faces, in the order of their first use.
  explicit objLooks(const std::vector<vltPlacedMesh>& bodies);

  bool empty() const { return looks_.empty(); }

  // Says in one note which names of materials are others in the file.
  void tell_renamed(velabsOutput& output) const;

  // The name for a face; empty for one without a look when nothing before it had one. Behind others such a face gets a
  // plain look of its own, because a file cannot take a material back. To be asked in the order of writing.
  const std::string& name_for(const vltPlacedMesh& body, std::size_t face);

  void write(velabsOfStream& stream) const;

 private:
  struct Look {
    std::string name;
    annColour colour;
    utString own_name;  // in the document, if it has one there
  };

  std::size_t look_of(const annMaterial& material);
  std::size_t number_of(const vltPlacedMesh& body, std::size_t face);

  std::vector<Look> looks_;
  vltUniqueNames names_;
  std::unordered_map<std::string, std::size_t> by_name_and_colour_;
  std::unordered_map<const annMesh*, std::vector<std::size_t>> of_mesh_;
  std::size_t plain_;
  bool coloured_ = false;
};
