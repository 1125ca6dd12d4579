#include "coResourceBase.h"

coResourceBase::~coResourceBase() = default;
