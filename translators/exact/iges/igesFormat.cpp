#include "igesFormat.h"

const vltFormat iges_format{"IGES", vluIGES, {"*iges", "igs"}, "IGES Files (*.iges *.igs)|*.iges;*.igs", "Exact"};
