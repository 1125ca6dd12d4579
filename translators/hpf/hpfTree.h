#pragma once

#include "annDocument.h"
#include "hpfInput.h"
#include "hpfThings.h"

// Reads the chunk of the nodes that `input` has come to. False after a failure, which was told.
bool hpf_read_tree(hpfInput& input, const hpfThings& things, annDocument& document);
