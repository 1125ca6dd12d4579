#include "exaXcafReader.h"

#include <BRep_Builder.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDF_Tool.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "exaNames.h"
#include "exaPlacement.h"

namespace {

std::string entry(const TDF_Label& label) {
  TCollection_AsciiString text;
  TDF_Tool::Entry(label, text);
  return text.ToCString();
}

annColour colour_from(const Quantity_ColorRGBA& source) {
  double red = 0, green = 0, blue = 0;
  source.GetRGB().Values(red, green, blue, Quantity_TOC_sRGB);
  // The kernel stores linear colours as floats, so the last digits are rounding errors.
  auto rounded = [](double part) { return static_cast<float>(std::round(std::clamp(part, 0.0, 1.0) * 1e5) / 1e5); };
  return {rounded(red), rounded(green), rounded(blue), rounded(static_cast<double>(source.Alpha()))};
}

bool is_group(const TopoDS_Shape& shape) {
  if (shape.ShapeType() != TopAbs_COMPOUND) return false;
  std::size_t parts = 0;
  for (TopoDS_Iterator it(shape); it.More(); it.Next()) {
    const bool compound = it.Value().ShapeType() == TopAbs_COMPOUND && TopExp_Explorer(it.Value(), TopAbs_FACE).More();
    if (compound || it.Value().ShapeType() == TopAbs_SOLID) ++parts;
  }
  return parts > 0;
}

// The members of nested groups, flattened: solids, compounds of faces, and loose faces.
std::vector<TopoDS_Shape> members_of(const TopoDS_Shape& shape) {
  std::vector<TopoDS_Shape> members, open{shape};
  while (!open.empty()) {
    const TopoDS_Shape current = open.back();
    open.pop_back();
    if (!is_group(current)) {
      if (TopExp_Explorer(current, TopAbs_FACE).More()) members.push_back(current);
      continue;
    }
    const std::size_t first = open.size();
    for (TopoDS_Iterator it(current); it.More(); it.Next()) open.push_back(it.Value());
    std::reverse(open.begin() + static_cast<std::ptrdiff_t>(first), open.end());
  }
  return members;
}

// Counts of instances grow exponentially with the levels of a tree.
std::size_t limited_sum(std::size_t a, std::size_t b) {
  return a > std::numeric_limits<std::size_t>::max() - b ? std::numeric_limits<std::size_t>::max() : a + b;
}

// The colour of a shape whose faces all have the same colour.
std::optional<annColour> only_colour(const exaFaceColours& colours) {
  const bool all = colours.colours.size() == 1 && std::all_of(colours.of_face.begin(), colours.of_face.end(),
                                                              [](std::uint32_t number) { return number == 0; });
  return all ? std::optional(colours.colours[0]) : std::nullopt;
}

}  // namespace

exaXcafReader::exaXcafReader(const Handle(TDocStd_Document) & source, const exaReadOptions& options, exaHidden hidden,
                             velabsOutput& output)
    : shapes_(XCAFDoc_DocumentTool::ShapeTool(source->Main())),
      colours_(XCAFDoc_DocumentTool::ColorTool(source->Main())),
      options_(options),
      hidden_(std::move(hidden)),
      output_(output),
      findings_(output) {}

bool exaXcafReader::read(annDocument& document) {
  TDF_LabelSequence free;
  shapes_->GetFreeShapes(free);
  std::vector<Component> top;
  for (const TDF_Label& label : free) top.push_back({define(label), {}, {}, {}});
  for (std::size_t i = 0; i < definitions_.size(); ++i) add_components(i);
  settle_all();
  std::size_t hidden = 0;
  for (const Component& it : top) hidden = limited_sum(hidden, definitions_[it.definition]->hidden);
  std::erase_if(top, [&](const Component& it) { return !definitions_[it.definition]->worth_showing; });
  findings_.tell();
  report_hidden(hidden);
  if (!top.empty()) {
    const std::string fault = nesting_of(top).fault();
    if (fault.empty()) {
      expand(document, top);
    } else {
      output_.message(velabsERROR, utString("it " + fault));
    }
    return fault.empty();
  }
  if (free.IsEmpty()) return true;
  if (hidden > 0 && !options_.show_hidden) {
    output_.message(velabsERROR, "all of its bodies are hidden; the option show-hidden shows them");
  } else {
    output_.message(velabsERROR, options_.types == velTYPE_ALL
                                     ? "it holds no solid, shell or face"
                                     : "it holds nothing of the kinds that ENTITY_TYPES asks for");
  }
  return false;
}

void exaXcafReader::report_hidden(std::size_t count) {
  if (count == 0) return;
  const bool one = count == 1;
  const std::string bodies = std::to_string(count) + (one ? " body" : " bodies") + " that the file hides ";
  const std::string verb = one ? "is " : "are ", pronoun = one ? "it" : "them";
  output_.message(velabsNOTE, utString(bodies + verb +
                                       (options_.show_hidden ? "shown like the rest"
                                                             : "left out; the option show-hidden shows " + pronoun)));
}

// Removes hidden bodies from a shape, unless the options include them.
TopoDS_Shape exaXcafReader::shown(const TopoDS_Shape& shape, Definition& definition) const {
  if (hidden_.empty()) return shape;
  std::vector<TopoDS_Shape> removed;
  const TopoDS_Shape rest = hidden_.shown(shape, removed);
  definition.bodies = members_of(shape).size();
  for (const TopoDS_Shape& it : removed) definition.hidden += members_of(it).size();
  return options_.show_hidden ? shape : rest;
}

utString exaXcafReader::own_name(const TDF_Label& label) const {
  const utString name = exa_name_of(label);
  // Where the format has no products, the kernel names most shapes by their type.
  return options_.split_compounds && exa_is_shape_type(name) ? utString() : name;
}

std::size_t exaXcafReader::define(const TDF_Label& label) {
  const auto [known, is_new] = numbers_.try_emplace(entry(label), definitions_.size());
  if (is_new) {
    definitions_.push_back(std::make_unique<Definition>());
    definitions_.back()->label = label;
  }
  return known->second;
}

void exaXcafReader::add_components(std::size_t number) {
  Definition& definition = *definitions_[number];
  definition.name = own_name(definition.label);
  definition.colour = colour_of(definition.label);
  if (!XCAFDoc_ShapeTool::IsAssembly(definition.label)) return;
  TDF_LabelSequence components;
  XCAFDoc_ShapeTool::GetComponents(definition.label, components);
  for (const TDF_Label& label : components) {
    TDF_Label referred;
    if (!XCAFDoc_ShapeTool::GetReferredShape(label, referred)) continue;
    const gp_Trsf location = XCAFDoc_ShapeTool::GetLocation(label).Transformation();
    definition.components.push_back({define(referred), exa_transform(location), exa_name_of(label), colour_of(label)});
  }
}

void exaXcafReader::settle_all() {
  // Components are resolved before their assembly. Definitions added meanwhile are already resolved.
  std::vector<std::size_t> next(definitions_.size(), 0);
  std::vector<std::size_t> open;
  for (std::size_t start = 0; start < next.size(); ++start) {
    if (next[start] > 0) continue;
    open.push_back(start);
    while (!open.empty()) {
      Definition& definition = *definitions_[open.back()];
      const std::size_t at = next[open.back()]++;
      if (at == definition.components.size()) {
        settle(definition);
        open.pop_back();
      } else if (const std::size_t below = definition.components[at].definition; next[below] == 0) {
        open.push_back(below);
      }
    }
  }
}

void exaXcafReader::settle(Definition& definition) {
  if (!XCAFDoc_ShapeTool::IsAssembly(definition.label)) {
    make_body(definition);
    definition.worth_showing = !definition.body.empty() || !definition.components.empty();
    return;
  }
  auto& components = definition.components;
  const bool is_hidden = hidden_.contains(XCAFDoc_ShapeTool::GetShape(definition.label));
  for (const Component& component : components) {
    const Definition& below = *definitions_[component.definition];
    definition.bodies = limited_sum(definition.bodies, below.bodies);
    definition.hidden = limited_sum(definition.hidden, is_hidden ? below.bodies : below.hidden);
  }
  if (is_hidden && !options_.show_hidden) components.clear();
  std::erase_if(components, [&](const Component& it) { return !definitions_[it.definition]->worth_showing; });
  definition.worth_showing = !components.empty();
  // A product inside another one has a name, even where its instance has none.
  const bool are_pieces = std::all_of(components.begin(), components.end(), [&](const Component& it) {
    const Definition& piece = *definitions_[it.definition];
    return exa_is_generated(it.name) && (exa_is_generated(piece.name) || exa_is_shape_type(piece.name)) &&
           !piece.body.empty();
  });
  if (are_pieces && !components.empty()) merge_pieces(definition);
}

std::optional<annColour> exaXcafReader::colour_at(const Component& component) const {
  const Definition& definition = *definitions_[component.definition];
  return component.colour && !definition.faces_have_colour ? component.colour : definition.colour;
}

void exaXcafReader::merge_pieces(Definition& definition) {
  auto& components = definition.components;
  const Component& first = components.front();
  const Definition& piece = *definitions_[first.definition];
  if (components.size() == 1 && first.location.is_identity()) {
    definition.body = piece.body;
    if (const auto colour = colour_at(first)) definition.colour = colour;
    definition.faces_have_colour = piece.faces_have_colour;
    components.clear();
    return;
  }
  TopoDS_Compound compound;
  BRep_Builder builder;
  builder.MakeCompound(compound);
  exaFaceColours colours;
  for (const Component& component : components) {
    const Definition& part = *definitions_[component.definition];
    const auto& shape = static_cast<const exaShape&>(*part.body.shape);
    builder.Add(compound, shape.shape().Moved(TopLoc_Location(exa_trsf(component.location))));
    const std::optional<annColour> whole = colour_at(component);
    for (std::size_t face = 0; face < shape.content().faces; ++face) {
      const annColour* own = shape.colours().colour(face);
      colours.add(own ? own : whole ? &*whole : nullptr);
    }
    definition.faces_have_colour = definition.faces_have_colour || part.faces_have_colour;
  }
  colours.settle();
  const std::optional<annColour> whole = only_colour(colours);
  if (whole && definition.colour.value_or(*whole) == *whole) {
    definition.colour = whole;
    colours = {};
  }
  definition.body.shape = std::make_shared<exaShape>(compound, std::move(colours), options_.allow_gaps);
  components.clear();
}

void exaXcafReader::make_body(Definition& definition) {
  const TopoDS_Shape stated = XCAFDoc_ShapeTool::GetShape(definition.label);
  const TopoDS_Shape whole = stated.IsNull() ? stated : shown(stated, definition);
  if (whole.IsNull()) return;
  const TopoDS_Shape shape = exa_wanted(whole, options_.types);
  if (!TopExp_Explorer(shape, TopAbs_FACE).More()) {
    if (TopExp_Explorer(whole, TopAbs_FACE).More()) return;
    if (TopExp_Explorer(whole, TopAbs_VERTEX).More()) {
      findings_.count(velabsNOTE, "curves and points without a surface are left out");
    }
    return;
  }

  if (options_.split_compounds) {
    const std::vector<TopoDS_Shape> members = members_of(shape);
    if (members.size() > 1) {
      make_members(definition, members);
      return;
    }
  }
  give_shape(definition, shape, colours_below(definition.label));
}

void exaXcafReader::make_members(Definition& definition, const std::vector<TopoDS_Shape>& members) {
  const exaColourMaps colours = colours_below(definition.label);
  for (const TopoDS_Shape& member : members) {
    auto part = std::make_unique<Definition>();
    TDF_Label label;
    if (shapes_->FindSubShape(definition.label, member, label)) {
      part->name = own_name(label);
      part->colour = colour_of(label);
    }
    give_shape(*part, member, colours);
    part->worth_showing = true;
    definition.components.push_back({definitions_.size(), {}, {}, {}});
    definitions_.push_back(std::move(part));
  }
}

exaColourMaps exaXcafReader::colours_below(const TDF_Label& label) const {
  exaColourMaps maps;
  TDF_LabelSequence parts;
  if (options_.colours) XCAFDoc_ShapeTool::GetSubShapes(label, parts);
  for (const TDF_Label& below : parts) {
    const std::optional<annColour> colour = colour_of(below);
    const TopoDS_Shape part = XCAFDoc_ShapeTool::GetShape(below);
    if (!colour || part.IsNull()) continue;
    auto& map = part.ShapeType() == TopAbs_FACE ? maps.of_face : maps.of_piece;
    for (TopExp_Explorer it(part, TopAbs_FACE); it.More(); it.Next()) map.Bind(it.Current(), *colour);
  }
  return maps;
}

void exaXcafReader::give_shape(Definition& definition, const TopoDS_Shape& shape, const exaColourMaps& maps) const {
  exaFaceColours colours;
  if (!maps.of_face.IsEmpty() || !maps.of_piece.IsEmpty()) {
    bool by_faces = false;
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) {
      const annColour* const own = maps.of_face.Seek(it.Current());
      const annColour* piece = maps.of_piece.Seek(it.Current());
      // A piece with the colour of its part has no separate colour.
      if (piece && definition.colour == *piece) piece = nullptr;
      by_faces = by_faces || own;
      colours.add(own ? own : piece);
    }
    colours.settle();
    if (const auto whole_colour = only_colour(colours)) {
      definition.colour = whole_colour;
      definition.faces_have_colour = by_faces;
      colours = {};
    }
  }
  definition.body.shape = std::make_shared<exaShape>(shape, std::move(colours), options_.allow_gaps);
}

std::optional<annColour> exaXcafReader::colour_of(const TDF_Label& label) const {
  Quantity_ColorRGBA colour;
  if (!options_.colours) return std::nullopt;
  for (XCAFDoc_ColorType type : {XCAFDoc_ColorSurf, XCAFDoc_ColorGen}) {
    if (colours_->GetColor(label, type, colour)) return colour_from(colour);
  }
  return std::nullopt;
}

void exaXcafReader::fill(annNode& node, const Definition& definition) const {
  node.name = definition.name;
  node.colour = definition.colour;
  node.body = definition.body;
}

exaNesting exaXcafReader::nesting_of(const std::vector<Component>& top) const {
  exaNesting nesting;
  const auto add = [&](const void* outer, const std::vector<Component>& components) {
    for (const Component& component : components) nesting.add(outer, definitions_[component.definition].get());
  };
  add(this, top);
  for (const auto& definition : definitions_) add(definition.get(), definition->components);
  return nesting;
}

void exaXcafReader::expand(annDocument& document, const std::vector<Component>& top) {
  struct Open {
    annNode* node;
    const std::vector<Component>* components;
  };
  std::vector<Open> open{{&document.root, &top}};
  while (!open.empty()) {
    const Open current = open.back();
    open.pop_back();
    for (const Component& component : *current.components) {
      const Definition& definition = *definitions_[component.definition];
      annNode& node = current.node->add_child("");
      fill(node, definition);
      if (exa_is_generated(node.name) || (exa_is_shape_type(node.name) && !exa_is_generated(component.name))) {
        node.name = exa_is_generated(component.name) ? utString("") : component.name;
      }
      if (exa_names_instance(component.name) && component.name != node.name) node.instance_name = component.name;
      node.transform = component.location;
      node.colour = colour_at(component);
      if (!definition.components.empty()) open.push_back({&node, &definition.components});
    }
  }
}
