#include "stepFormat.h"

const vltFormat step_format{"STEP", vluSTEP, {"*step", "stp"}, "STEP Files (*.step *.stp)|*.step;*.stp", "Exact"};
