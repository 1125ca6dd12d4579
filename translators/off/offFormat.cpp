#include "offFormat.h"

const vltFormat off_format{"OFF", vluOFF, {"*off"}, "OFF Files (*.off)|*.off", "Mesh"};
