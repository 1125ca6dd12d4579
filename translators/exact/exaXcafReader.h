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

// Colours of the sub-shapes of a part. Those of pieces hold for all of their faces, those of faces for themselves.
struct exaColourMaps {
  NCollection_DataMap<TopoDS_Shape, annColour, TopTools_ShapeMapHasher> of_piece;
  NCollection_DataMap<TopoDS_Shape, annColour, TopTools_ShapeMapHasher> of_face;
};

// Turns the kernel's document into nodes: a product becomes a node named after it wherever it occurs, its shape one
// body that all of these share. Each node also has the name of its instance where the file gives one. The pieces that
// the kernel makes of a part of several representations become one body again. What has no faces is left out, and so is
// what the file hides unless the options ask for it; notes report both.
//
// Faces and solids that have a colour of their own keep it wherever they stand. The others take that of the occurrence
// that they stand in, and where it has none that of their product.
class exaXcafReader {
 public:
  exaXcafReader(const Handle(TDocStd_Document) & source, const exaReadOptions& options, exaHidden hidden,
                velabsOutput& output);

  // False, and a message, when there is nothing to show or the tree is too big or too deep.
  bool read(annDocument& document);

 private:
  struct Component {
    std::size_t definition;
    annTransform location;
    utString name;  // null when nobody gave it one
    std::optional<annColour> colour;
  };
  struct Definition {
    TDF_Label label;
    utString name;
    std::optional<annColour> colour;
    bool faces_have_colour = false;  // the colour is the one that all of its faces have of their own
    annBody body;
    std::vector<Component> components;
    bool worth_showing = false;
  };

  utString own_name(const TDF_Label& label) const;
  std::size_t define(const TDF_Label& label);
  void add_components(std::size_t number);
  void settle_all();
  void settle(Definition& definition);
  std::optional<annColour> colour_at(const Component& component) const;
  void merge_pieces(Definition& definition);
  void make_body(Definition& definition);
  TopoDS_Shape shown(const TopoDS_Shape& shape);
  void report_hidden();
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
  std::size_t hidden_count_ = 0;
  velabsOutput& output_;
  vltOnce findings_;
  std::vector<std::unique_ptr<Definition>> definitions_;
  std::unordered_map<std::string, std::size_t> numbers_;
};
