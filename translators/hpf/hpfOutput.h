#pragma once

#include "hpfPlan.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"
#include "velabsResult.h"

// Writes a whole file: its head, the chunks, each summed while it is written, and the end.
velabsResult hpf_write_chunks(const hpfPlan& plan, velabsOfStream& stream, velabsOutput& output);
