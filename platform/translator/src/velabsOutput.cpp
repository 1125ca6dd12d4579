#include "velabsOutput.h"

velabsOutput::~velabsOutput() = default;
