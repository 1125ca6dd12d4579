#pragma once

// The axis that points up in a model. Formats of CAD and of 3D printing have +Z up, glTF has +Y up; some formats have no
// rule, and so a document read from them has none.
enum annUpAxis { annUP_UNKNOWN, annUP_Y, annUP_Z };
