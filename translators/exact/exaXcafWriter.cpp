#include "exaXcafWriter.h"

#include <BRepBuilderAPI_Copy.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <TDataStd_Name.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopTools_MapOfShape.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <algorithm>
#include <optional>

#include "exaPlacement.h"
#include "vltNames.h"
#include "vltUtf8.h"

namespace {

Quantity_ColorRGBA colour_of(const annColour& colour) {
  auto part = [](float value) { return std::clamp(static_cast<double>(value), 0.0, 1.0); };
  return {Quantity_Color(part(colour.red), part(colour.green), part(colour.blue), Quantity_TOC_sRGB),
          static_cast<float>(part(colour.opacity))};
}

// The kernel's decoder reads past the end of a text that ends inside a character.
TCollection_ExtendedString kernel_text(const utString& name) {
  const std::string valid = vlt_as_utf8(vlt_one_line(name));
  std::u16string text;
  for (std::string_view rest = valid; !rest.empty();) {
    const std::size_t size = vlt_utf8_size(rest);
    const char32_t code = vlt_utf8_code(rest, size);
    if (code > 0xFFFF) {
      text += static_cast<char16_t>(0xD7C0 + (code >> 10));
      text += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    } else {
      text += static_cast<char16_t>(code);
    }
    rest.remove_prefix(size);
  }
  return {text.c_str()};
}

class Writer {
 public:
  Writer(const std::vector<exaProduct>& products, double unit, bool with_colours, const exaXcafNames& names,
         velabsOutput& output)
      : products_(products),
        with_colours_(with_colours),
        names_(names),
        output_(output),
        document_(new TDocStd_Document("XmlXCAF")) {
    XCAFDoc_DocumentTool::SetLengthUnit(document_, unit, UnitsMethods_LengthUnit_Millimeter);
    shapes_ = XCAFDoc_DocumentTool::ShapeTool(document_->Main());
    colours_ = XCAFDoc_DocumentTool::ColorTool(document_->Main());
  }

  Handle(TDocStd_Document) write(const std::vector<exaProduct::Use>& top) {
    // For a single part, the location is applied to the shape.
    if (products_.size() == 1 && top.size() == 1) alone_at_ = top[0].location;
    for (const exaProduct& product : products_) add(product);
    if (alone_at_ || can_stand_alone(top)) {
      if (top.size() == 1) name_by_instance(top[0]);
    } else {
      const TDF_Label whole = shapes_->NewShape();
      name(whole, names_.whole);
      for (const exaProduct::Use& use : top) place(whole, use);
    }
    shapes_->UpdateAssemblies();
    return document_;
  }

 private:
  void add(const exaProduct& product) {
    const TDF_Label label = shapes_->NewShape();
    labels_.push_back(label);
    name(label, product.name);
    if (product.shape.IsNull()) {
      for (const exaProduct::Use& use : product.uses) place(label, use);
      return;
    }
    // The kernel merges products that have the same shape.
    TopoDS_Shape shape = alone_at_ ? exa_changed(product.shape, exa_transform(*alone_at_)) : product.shape;
    if (!known_.Add(shape.Located(TopLoc_Location()))) shape = BRepBuilderAPI_Copy(shape, false, false).Shape();
    shapes_->SetShape(label, shape);
    if (!with_colours_) return;
    if (product.colour) colours_->SetColor(label, colour_of(*product.colour), XCAFDoc_ColorSurf);
    std::size_t face = 0;
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More() && !product.face_colours.empty(); it.Next(), ++face) {
      const annColour* const colour = product.face_colours.colour(face);
      if (!colour) continue;
      const TDF_Label part = shapes_->AddSubShape(label, it.Current());
      if (!part.IsNull()) colours_->SetColor(part, colour_of(*colour), XCAFDoc_ColorSurf);
    }
  }

  void place(const TDF_Label& assembly, const exaProduct::Use& use) {
    const TDF_Label component = shapes_->AddComponent(assembly, labels_[use.product], TopLoc_Location(use.location));
    name(component, use.instance_name.empty() ? products_[use.product].name : use.instance_name);
  }

  // A single product has no assembly around it that could hold the name of its instance.
  void name_by_instance(const exaProduct::Use& use) {
    if (use.instance_name.empty()) return;
    const utString& own = products_[use.product].name;
    name(labels_[use.product], use.instance_name);
    if (own.empty() || own == use.instance_name) return;
    output_.message(velabsNOTE,
                    utString("the whole model has the name of its instance, " + vlt_quoted(use.instance_name.str()) +
                             "; its other name, " + vlt_quoted(own.str()) + ", is left out"));
  }

  // True when no assembly is needed around the products: each has one instance, at the origin of the document. Of
  // several products, only an assembly holds the names of their instances.
  bool can_stand_alone(const std::vector<exaProduct::Use>& top) const {
    std::vector<int> uses(products_.size(), 0);
    for (const exaProduct& product : products_) {
      for (const exaProduct::Use& use : product.uses) ++uses[use.product];
    }
    return std::all_of(top.begin(), top.end(), [&](const exaProduct::Use& use) {
      const bool has_name = top.size() == 1 || use.instance_name.empty();
      return has_name && use.location.Form() == gp_Identity && ++uses[use.product] == 1;
    });
  }

  void name(const TDF_Label& label, const utString& own) const {
    const utString& name = own.empty() ? names_.unnamed : own;
    if (!name.empty()) TDataStd_Name::Set(label, kernel_text(name));
  }

  const std::vector<exaProduct>& products_;
  bool with_colours_;
  const exaXcafNames& names_;
  velabsOutput& output_;
  Handle(TDocStd_Document) document_;
  Handle(XCAFDoc_ShapeTool) shapes_;
  Handle(XCAFDoc_ColorTool) colours_;
  TopTools_MapOfShape known_;
  std::vector<TDF_Label> labels_;
  std::optional<gp_Trsf> alone_at_;  // of the only product
};

}  // namespace

Handle(TDocStd_Document)
    exa_xcaf_document(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top, double unit,
                      bool with_colours, const exaXcafNames& names, velabsOutput& output) {
  return Writer(products, unit, with_colours, names, output).write(top);
}
