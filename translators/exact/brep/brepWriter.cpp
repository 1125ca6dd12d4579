#include "brepWriter.h"

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <TopoDS_Compound.hxx>
#include <ostream>

#include "brepFormat.h"
#include "exaOutput.h"
#include "exaProgress.h"
#include "exaSession.h"
#include "exaStreams.h"
#include "exaWriting.h"
#include "velFileFormat.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(brepWriter)

namespace {

TopoDS_Shape placed(const std::vector<TopoDS_Shape>& shapes, const exaProduct::Use& use) {
  return shapes[use.product].Moved(TopLoc_Location(use.location));
}

TopoDS_Shape compound_of(const std::vector<TopoDS_Shape>& shapes, const std::vector<exaProduct::Use>& uses) {
  TopoDS_Compound compound;
  BRep_Builder builder;
  builder.MakeCompound(compound);
  for (const exaProduct::Use& use : uses) {
    const TopoDS_Shape shape = placed(shapes, use);
    if (shape.ShapeType() <= TopAbs_SOLID) {
      builder.Add(compound, shape);
      continue;
    }
    // In one compound with other parts, loose faces would be read as one part with them.
    TopoDS_Compound part;
    builder.MakeCompound(part);
    builder.Add(part, shape);
    builder.Add(compound, part);
  }
  return compound;
}

TopoDS_Shape whole(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top) {
  std::vector<TopoDS_Shape> shapes;
  for (const exaProduct& product : products) {
    shapes.push_back(product.shape.IsNull() ? compound_of(shapes, product.uses) : product.shape);
  }
  return top.size() == 1 ? placed(shapes, top[0]) : compound_of(shapes, top);
}

}  // namespace

brepWriter::brepWriter(velabsOfStream* stream)
    : vltDescribed(brep_format, "Writes exact shapes to BREP files, text or binary."), stream_(*stream) {}

velabsResult brepWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& listener) {
  exaOutput output(listener);
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  const std::optional<double> factor = vlt_output_scale(resources, document, output, unit);
  if (!factor) return velabsFAILED;
  exaProducts products(document, "BREP", resources, *factor, output);
  if (!products.make()) return output.cancelled() ? velabsCANCELLED : velabsFAILED;
  exa_tell_losses(document, "BREP", false, output);
  if (products.has_colours()) output.message(velabsNOTE, "BREP holds no colours: they are not written");
  if (products.has_names()) output.message(velabsNOTE, "BREP holds no names: the parts are written without");
  vlt_note_unit("BREP", unit, document, output);

  const bool text = resources.value<velFileFormat>("FILE_FORMAT", velFORMAT_ASCII) == velFORMAT_ASCII;
  exaSession session(output);
  auto write = [&](const auto& parts, const auto& top, velabsOfStream& stream) {
    return session.guarded("it cannot be written", [&] {
      exaOutputBuffer buffer(stream);
      std::ostream bytes(&buffer);
      bytes.imbue(std::locale::classic());
      const Handle(exaProgress) progress = new exaProgress(output, 0, 100);
      if (text) {
        BRepTools::Write(whole(parts, top), bytes, false, false, TopTools_FormatVersion_VERSION_1, progress->Start());
      } else {
        BinTools::Write(whole(parts, top), bytes, false, false, BinTools_FormatVersion_VERSION_1, progress->Start());
      }
      return bytes.good() || !stream.good();
    });
  };
  const bool done = exa_write_files(products, resources, stream_, output, write);
  if (output.cancelled()) return velabsCANCELLED;
  return done ? velabsDONE : velabsFAILED;
}
