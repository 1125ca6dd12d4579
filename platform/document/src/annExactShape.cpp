#include "annExactShape.h"

annExactShape::~annExactShape() = default;
