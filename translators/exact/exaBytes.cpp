#include <BRepBuilderAPI_Copy.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <istream>
#include <sstream>

#include "exaBrepCheck.h"
#include "exaCensus.h"
#include "exaNesting.h"
#include "exaSession.h"
#include "exaShape.h"
#include "exaStreams.h"

// Saves and parses shapes of the kind "brep".

namespace {

// A copy without the flags that algorithms leave in a shape, so that equal shapes give equal bytes.
TopoDS_Shape without_marks(const TopoDS_Shape& shape) {
  const TopoDS_Shape copy = BRepBuilderAPI_Copy(shape, false, false).Shape();
  TopTools_IndexedMapOfShape parts;
  TopExp::MapShapes(copy, parts);
  for (int i = 1; i <= parts.Extent(); ++i) {
    TopoDS_Shape part = parts(i);
    part.Checked(false);
    part.Modified(false);
  }
  return copy;
}

}  // namespace

std::string exaShape::save(apStatus& status) const {
  std::ostringstream bytes;
  bytes.imbue(std::locale::classic());
  const std::string failure = exa_failure_of([&] {
    BinTools::Write(without_marks(shape_), bytes, false, false, BinTools_FormatVersion_CURRENT,
                    Message_ProgressRange());
  });
  if (!failure.empty() || !bytes) {
    status.set_failure(failure.empty() ? "the shape cannot be written" : failure);
    return {};
  }
  return std::move(bytes).str() + colours_.text();
}

TopoDS_Shape exa_parse_shape(std::string_view bytes, apStatus& status) {
  if (const std::string fault = exa_brep_fault(bytes); !fault.empty()) {
    status.set_failure("the bytes of the shape are damaged: " + fault);
    return {};
  }
  exaInputBuffer buffer(bytes);
  std::istream stream(&buffer);
  stream.imbue(std::locale::classic());
  stream.exceptions(std::ios_base::badbit | std::ios_base::failbit);
  TopoDS_Shape shape;
  const std::string failure = exa_failure_of([&] {
    if (exa_is_binary_brep(bytes)) {
      BinTools::Read(shape, stream);
    } else {
      BRepTools::Read(shape, stream, BRep_Builder());
    }
  });
  if (!failure.empty() || shape.IsNull()) {
    status.set_failure("the bytes of the shape are not whole" + (failure.empty() ? "" : ": " + failure));
    return {};
  }
  if (const std::string fault = exa_nesting(shape).fault(); !fault.empty()) {
    status.set_failure("it " + fault);
    return {};
  }
  return shape;
}

std::shared_ptr<const exaShape> exa_parse(std::string_view bytes, apStatus& status) {
  const TopoDS_Shape shape = exa_parse_shape(bytes, status);
  if (shape.IsNull()) return nullptr;
  exaCensus census;
  const exaCensus::Count count = census.of(shape);
  if (const std::string fault = census.fault(count.all); !fault.empty()) {
    status.set_failure("it " + fault);
    return nullptr;
  }
  return std::make_shared<exaShape>(shape, exaFaceColours::from_text(bytes, static_cast<std::size_t>(count.faces)));
}

std::shared_ptr<const exaShape> exa_shape_of(const std::shared_ptr<const annExactShape>& shape, apStatus& status) {
  if (auto own = std::dynamic_pointer_cast<const exaShape>(shape)) return own;
  if (shape->kind() != "brep") {
    status.set_failure(utString("exact shapes of the kind \"") + shape->kind() + "\" are not known here");
    return nullptr;
  }
  const std::string bytes = shape->save(status);
  return status.ok() ? exa_parse(bytes, status) : nullptr;
}
