#pragma once

#include <memory>

#include "apLanguage.h"

// A shared, reference-counted pointer; may be null.
template <typename T>
using coPrf = std::shared_ptr<T>;
