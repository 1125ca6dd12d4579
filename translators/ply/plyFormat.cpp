#include "plyFormat.h"

const vltFormat ply_format{"PLY", vluPLY, {"*ply"}, "PLY Files (*.ply)|*.ply", "Mesh"};
