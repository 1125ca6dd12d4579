#pragma once

#include "annTransform.h"
#include "apExport.h"

// The axis that points up in a model. Formats of CAD and of 3D printing have +Z up, glTF has +Y up; some formats have
// no rule, and so a document read from them has none.
enum annUpAxis { annUP_UNKNOWN, annUP_Y, annUP_Z };

// The placement that turns what has `from` up so that it has `to` up: a quarter turn about the X axis. The identity
// when both are the same, and when one of them is unknown.
VELPLATFORM_API annTransform ann_turn(annUpAxis from, annUpAxis to);
