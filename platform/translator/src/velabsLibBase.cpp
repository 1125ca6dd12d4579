#include "velabsLibBase.h"

#include "velabsOutput.h"

velabsLibBase::~velabsLibBase() = default;
velabsOutput::~velabsOutput() = default;
