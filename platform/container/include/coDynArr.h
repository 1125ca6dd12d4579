#pragma once

#include "coDList.h"

// An array that grows at its end; a list by another name in the older interfaces.
template <typename T>
class coDynArr : public coDList<T> {};

using utStringcoDynArr = coDynArr<utString>;
