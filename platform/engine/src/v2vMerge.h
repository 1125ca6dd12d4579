#pragma once

#include <vector>

#include "annDocument.h"
#include "utString.h"
#include "v2vReport.h"

// One input after it was read.
struct v2vInputModel {
  utString file;
  annDocument document;
};

// Puts the models, in their order, into `target`, which is cleared first and takes them over. The unit is the first one
// that a model specifies; a model in another one is scaled by its placement. The numbers of a model without a unit
// count as millimetres, with a note when another one has a unit. In the same way a model with another up axis than the
// first one is turned by its placement. Unnamed nodes at the top get the name of their file
// without its extension, numbered when it has several. Of several models, each that has more than one node at the top
// becomes one node of that name.
void v2v_merge(std::vector<v2vInputModel>& models, annDocument& target, v2vReport& report);
