#pragma once

#include <functional>

// The seconds that `work` takes in a separate process; less than 0 if it returns false. Nothing that `work` loads or
// allocates remains afterwards.
double seconds_in_child(const std::function<bool()>& work);
