#pragma once

#include "annTransform.h"
#include "apExport.h"

// The up axis of a model. Formats of CAD and of 3D printing have +Z up, glTF has +Y up. Some formats do not define it;
// documents read from them have an unknown up axis.
enum annUpAxis { annUP_UNKNOWN, annUP_Y, annUP_Z };

// The placement that converts from the up axis `from` to the up axis `to`: a quarter turn about the X axis. The
// identity if both are equal or one is unknown.
VELPLATFORM_API annTransform ann_turn(annUpAxis from, annUpAxis to);
