#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "velabsOfStream.h"
#include "vltNames.h"
#include "vltPlacedMesh.h"

// The materials of the sidecar file: one for each distinct pair of name and colour in the document. Names are unique
// and a single word, because many programs read only one.
class objLooks {
 public:
  // Collects the materials of all faces, in the order of their first use.
  explicit objLooks(const std::vector<vltPlacedMesh>& bodies);

  bool empty() const { return looks_.empty(); }

  // Reports, in one note, which materials are renamed in the file.
  void tell_renamed(velabsOutput& output) const;

  // The material name for a face; empty for a face without a material if no face before it had one. After others, such
  // a face gets a plain material, because a file cannot reset the material. Call it in the order of writing.
  const std::string& name_for(const vltPlacedMesh& body, std::size_t face);

  void write(velabsOfStream& stream) const;

 private:
  struct Look {
    std::string name;
    annColour colour;
    utString own_name;  // in the document; may be empty
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
