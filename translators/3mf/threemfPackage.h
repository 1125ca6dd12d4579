#pragma once

#include "threemfModelText.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"
#include "velabsResult.h"

// Writes a package with one model part. The same model always gives the same bytes. The compressed bytes are kept in
// memory until all are complete, because an archive is not written sequentially.
velabsResult threemf_write_package(threemfModelText& model, velabsOfStream& stream, velabsOutput& output);
