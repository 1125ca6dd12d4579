#include "hpfFormat.h"

const vltFormat hpf_format{"HPF", vluHPF, {"*hpf"}, "HPF Files (*.hpf)|*.hpf", "Native"};
