#pragma once

#include <TopoDS_Shape.hxx>
#include <array>
#include <mutex>
#include <optional>
#include <string_view>

#include "annExactShape.h"
#include "exaExport.h"
#include "exaFaceColours.h"

// A kernel shape with the colours of its faces. Immutable and thread-safe; facets are made on a copy of the topology,
// because shapes may share parts of it. The kind is "brep".
class VELEXACT_API exaShape : public annExactShape {
 public:
  explicit exaShape(TopoDS_Shape shape, exaFaceColours colours = {}, bool allow_gaps = false);
  ~exaShape() override;

  const TopoDS_Shape& shape() const { return shape_; }
  const exaFaceColours& colours() const { return colours_; }

  // Returns the mesh of the last call with this tolerance while it is still in use. Faces that cannot be meshed are an
  // error or, where gaps are allowed, missing in the mesh and named in the status.
  std::shared_ptr<const annMesh> facets(const annTolerance& tolerance, apStatus& status,
                                        annProgress* progress) const override;
  // A hundred thousandth of the size, and one degree.
  annTolerance least_tolerance() const override;
  annShapeContent content() const override { return content_; }
  std::optional<annBox> box(const annTransform& placement) const override;
  utString kind() const override { return "brep"; }

  // The kernel's binary form, followed by the colours. It keeps numbers exactly, with half the size and a tenth of the
  // time of the text form.
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
  mutable std::weak_ptr<const annMesh> mesh_;  // for the last tolerance
  mutable annTolerance mesh_tolerance_;
  mutable std::string mesh_gaps_;
  mutable std::optional<std::array<double, 9>> turned_;  // the rotation of the shape for the last box
  mutable std::optional<annBox> box_;
};

// Parses a kernel shape from bytes of the kind "brep", text or binary. Null, with a failed status, when the bytes are
// damaged or the compounds are nested too deep or repeated too often. Repetition inside a part is not checked.
VELEXACT_API TopoDS_Shape exa_parse_shape(std::string_view bytes, apStatus& status);

// The same for one part, with the colours after the shape. Null too when it repeats its faces and edges too often.
VELEXACT_API std::shared_ptr<const exaShape> exa_parse(std::string_view bytes, apStatus& status);

// Converts any exact shape of a document to a kernel shape. Null, with a failed status, for an unknown kind.
VELEXACT_API std::shared_ptr<const exaShape> exa_shape_of(const std::shared_ptr<const annExactShape>& shape,
                                                          apStatus& status);
