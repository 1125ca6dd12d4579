#include "annUpAxis.h"

annTransform ann_turn(annUpAxis from, annUpAxis to) {
  if (from == annUP_Y && to == annUP_Z) return {{1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0}};
  if (from == annUP_Z && to == annUP_Y) return {{1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0}};
  return {};
}
