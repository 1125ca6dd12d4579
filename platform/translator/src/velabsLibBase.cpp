#include "velabsLibBase.h"

velabsLibBase::~velabsLibBase() = default;
