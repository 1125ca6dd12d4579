#pragma once

#include "coDList.h"

// An array that grows at its end; the name that older interfaces use for coDList.
template <typename T>
class coDynArr : public coDList<T> {};

using utStringcoDynArr = coDynArr<utString>;
