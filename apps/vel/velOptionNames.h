#pragma once

#include "utString.h"

// Option names for users, such as "length-unit", and the corresponding keys of resource files, such as LENGTH_UNIT.

// The name for a key. A text that is not a key is returned unchanged.
utString vel_option_name(const utString& key);

// The key for a name or a key, ignoring case. Any other text is returned unchanged.
utString vel_option_key(const utString& text);
