#include "objFormat.h"

const vltFormat obj_format{"OBJ", vluOBJ, {"*obj"}, "OBJ Files (*.obj)|*.obj", "Mesh"};
