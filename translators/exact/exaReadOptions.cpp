#include "exaReadOptions.h"

#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>

#include "utBool.h"

exaReadOptions exa_read_options(const velTableInstance& resources) {
  exaReadOptions options;
  options.colours = resources.value<utBool>("READ_MATERIALS", utTRUE) == utTRUE;
  options.allow_gaps = resources.value<utBool>("ALLOW_GAPS", utFALSE) == utTRUE;
  options.show_hidden = resources.value<utBool>("SHOW_HIDDEN", utFALSE) == utTRUE;
  options.types = resources.value<velTypeOption>("ENTITY_TYPES", velTYPE_ALL);
  return options;
}

TopoDS_Shape exa_wanted(const TopoDS_Shape& shape, velTypeOption types) {
  if (types == velTYPE_ALL) return shape;
  TopoDS_Compound compound;
  BRep_Builder builder;
  builder.MakeCompound(compound);
  if (types == velTYPE_SOLIDS) {
    for (TopExp_Explorer it(shape, TopAbs_SOLID); it.More(); it.Next()) builder.Add(compound, it.Current());
  } else if (types == velTYPE_SURFACES) {
    for (TopExp_Explorer it(shape, TopAbs_SHELL, TopAbs_SOLID); it.More(); it.Next()) {
      builder.Add(compound, it.Current());
    }
    for (TopExp_Explorer it(shape, TopAbs_FACE, TopAbs_SHELL); it.More(); it.Next()) {
      builder.Add(compound, it.Current());
    }
  }
  return compound;
}
