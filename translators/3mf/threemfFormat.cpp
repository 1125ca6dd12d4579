#include "threemfFormat.h"

const vltFormat threemf_format{"3MF", vlu3MF, {"*3mf"}, "3MF Files (*.3mf)|*.3mf", "Mesh"};
