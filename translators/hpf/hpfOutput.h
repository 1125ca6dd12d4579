#pragma once

#include "hpfPlan.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"
#include "velabsResult.h"

// Writes a whole file: its header, the chunks with their checksums, and the end.
velabsResult hpf_write_chunks(const hpfPlan& plan, velabsOfStream& stream, velabsOutput& output);
