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

// Clears `target` and moves the models into it, in their order.
// - Unit: the first one that a model specifies. A model in another unit is scaled by its placement. The numbers of a
// model without a unit are taken as millimetres, with a note if another model has a unit.
// - Up axis: that of the first model. A model with another one is turned by its placement.
// - Names: unnamed top nodes are named after their file without its extension, numbered if there are several. Of
// several models, each with more than one top node becomes one node of that name.
void v2v_merge(std::vector<v2vInputModel>& models, annDocument& target, v2vReport& report);
