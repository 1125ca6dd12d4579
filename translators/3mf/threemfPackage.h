#pragma once

#include "threemfModelText.h"
#include "velabsOfStream.h"
#include "velabsOutput.h"
#include "velabsResult.h"

// Writes a package with one model part. The same model gives the same bytes at any time and place. The packed bytes are
// held until all are there, because an archive is not written from front to back.
velabsResult threemf_write_package(threemfModelText& model, velabsOfStream& stream, velabsOutput& output);
