#include "stlFormat.h"

const vltFormat stl_format{"STL", vluSTL, {"*stl"}, "STL Files (*.stl)|*.stl", "Mesh"};
