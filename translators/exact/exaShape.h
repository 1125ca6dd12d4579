#pragma once

#include <TopoDS_Shape.hxx>
#include <array>
#include <mutex>
#include <optional>
#include <string_view>

#include "annExactShape.h"
#include "exaExport.h"
#include "exaFaceColours.h"

// A shape of the kernel with the colours of its faces. Unchanging, so every operation may be called from several
// threads; facets are made on a copy of the shape's topology, as shapes may share parts of it. The kind is "brep".
class VELEXACT_API exaShape : public annExactShape {
 public:
  explicit exaShape(TopoDS_Shape shape, exaFaceColours colours = {}, bool allow_gaps = false);
  ~exaShape() override;

  const TopoDS_Shape& shape() const { return shape_; }
  const exaFaceColours& colours() const { return colours_; }

  // The same mesh as long as somebody holds that of the last call with this tolerance. Faces that cannot be meshed are
  // a failure, or, where gaps are allowed, missing in the mesh and named in the status.
  std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus& status,
                                        annProgress* progress) const override;
  // A hundred thousandth of its size, and a degree.
  annTolerance least_tolerance() const override;
  annShapeContent content() const override { return content_; }
  std::optional<annBox> box(const annTransform& placement) const override;
  utString kind() const override { return "brep"; }

  // The kernel's binary form: it gives every number back as it was, in half the bytes and a tenth of the time of the
  // text form. Colours stand behind it.
  std::string save(apStatus& status) const override;

 private:
  double size() const;

  TopoDS_Shape shape_;
  exaFaceColours colours_;
  bool allow_gaps_;
  annShapeContent content_;

  mutable std::once_flag measured_;
  mutable double size_ = 0;
  mutable std::mutex lock_;
  mutable std::weak_ptr<const annMesh> mesh_;  // of the last tolerance
  mutable annTolerance mesh_tolerance_;
  mutable std::string mesh_gaps_;
  mutable std::optional<std::array<double, 9>> turned_;  // how the shape was turned for the last box
  mutable std::optional<annBox> box_;
};

// The kernel's shape in bytes of the kind "brep", in its text or binary form. Null, and a failed status, when they are
// not whole or its compounds cannot be walked through. How often they repeat the shapes of a part is not looked at.
VELEXACT_API TopoDS_Shape exa_parse_shape(std::string_view bytes, apStatus& status);

// The same as one part, with the colours that stand behind it; null too when it repeats its faces and edges too often.
VELEXACT_API std::shared_ptr<const exaShape> exa_parse(std::string_view bytes, apStatus& status);

// Any exact shape of a document as one of the kernel's; null, and a failed status, when it is of another kind.
VELEXACT_API std::shared_ptr<const exaShape> exa_shape_of(const std::shared_ptr<const annExactShape>& shape,
                                                          apStatus& status);
