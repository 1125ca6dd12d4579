#pragma once

#include <NCollection_DataMap.hxx>
#include <TDocStd_Document.hxx>
#include <TopTools_ShapeMapHasher.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "annDocument.h"
#include "exaHidden.h"
#include "exaNesting.h"
#include "exaReadOptions.h"
#include "exaShape.h"
#include "velabsOutput.h"
#include "vltOnce.h"

// Colours of the sub-shapes of a part. The colour of a piece applies to all its faces, that of a face to the face.
struct exaColourMaps {
  NCollection_DataMap<TopoDS_Shape, annColour, TopTools_ShapeMapHasher> of_piece;
  NCollection_DataMap<TopoDS_Shape, annColour, TopTools_ShapeMapHasher> of_face;
};

// Converts the kernel's document to nodes. A product becomes a node with its name for each instance, and its shape one
// body that they share. Each node also gets the name of its instance where the file has one. If the kernel splits a
// part with several representations, its pieces are merged into one body. Shapes without faces are skipped, and so are
// bodies that the file hides unless the options include them; notes report both.
//
// Faces and solids with a separate colour keep it in every instance. All others have the colour of their instance, or
// of their product where the instance has none.
class exaXcafReader {
 public:
  exaXcafReader(const Handle(TDocStd_Document) & source, const exaReadOptions& options, exaHidden hidden,
                velabsOutput& output);

  // False, with a message, when there is nothing to show or the tree is too large or too deep.
  bool read(annDocument& document);

 private:
  struct Component {
    std::size_t definition;
    annTransform location;
    utString name;  // empty for an instance without a name
    std::optional<annColour> colour;
  };
  struct Definition {
    TDF_Label label;
    utString name;
    std::optional<annColour> colour;
    bool faces_have_colour = false;  // the colour is the common colour of its faces
    annBody body;
    std::vector<Component> components;
    bool worth_showing = false;
    // Counts in one instance, with its components. Both are 0 in a file that hides nothing.
    std::size_t bodies = 0, hidden = 0;
  };

  utString own_name(const TDF_Label& label) const;
  std::size_t define(const TDF_Label& label);
  void add_components(std::size_t number);
  void settle_all();
  void settle(Definition& definition);
  std::optional<annColour> colour_at(const Component& component) const;
  void merge_pieces(Definition& definition);
  void make_body(Definition& definition);
  TopoDS_Shape shown(const TopoDS_Shape& shape, Definition& definition) const;
  void report_hidden(std::size_t count);
  void make_members(Definition& definition, const std::vector<TopoDS_Shape>& members);
  void give_shape(Definition& definition, const TopoDS_Shape& shape, const exaColourMaps& colours) const;
  exaColourMaps colours_below(const TDF_Label& label) const;
  std::optional<annColour> colour_of(const TDF_Label& label) const;
  void fill(annNode& node, const Definition& definition) const;
  exaNesting nesting_of(const std::vector<Component>& top) const;
  void expand(annDocument& document, const std::vector<Component>& top);

  Handle(XCAFDoc_ShapeTool) shapes_;
  Handle(XCAFDoc_ColorTool) colours_;
  exaReadOptions options_;
  exaHidden hidden_;
  velabsOutput& output_;
  vltOnce findings_;
  std::vector<std::unique_ptr<Definition>> definitions_;
  std::unordered_map<std::string, std::size_t> numbers_;
};
