#include "brepFormat.h"

const vltFormat brep_format{"BREP", vluBREP, {"*brep", "brp"}, "BREP Files (*.brep *.brp)|*.brep;*.brp", "Exact"};
