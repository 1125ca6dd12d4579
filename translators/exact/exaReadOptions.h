#pragma once

#include <TopoDS_Shape.hxx>

#include "exaExport.h"
#include "velTableInstance.h"
#include "velTypeOption.h"

// Which content to read from a file of exact shapes.
struct exaReadOptions {
  bool colours = true;
  bool allow_gaps = false;
  bool show_hidden = false;
  velTypeOption types = velTYPE_ALL;
  bool split_compounds = false;  // the format has no parts except members of groups
};

// From the resources READ_MATERIALS, ALLOW_GAPS, SHOW_HIDDEN and ENTITY_TYPES.
VELEXACT_API exaReadOptions exa_read_options(const velTableInstance& resources);

// A shape reduced to the requested types: itself for all types, else a compound of its solids or of its loose shells
// and faces, which may be empty.
VELEXACT_API TopoDS_Shape exa_wanted(const TopoDS_Shape& shape, velTypeOption types);
