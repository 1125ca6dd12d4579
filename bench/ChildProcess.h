#pragma once

#include <functional>

// How long some work takes in a process of its own, in seconds; less than 0 when the work says that it failed. What the
// work loads or allocates is gone afterwards.
double seconds_in_child(const std::function<bool()>& work);
