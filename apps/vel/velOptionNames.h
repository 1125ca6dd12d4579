#pragma once

#include "utString.h"

// The names by which a person knows the options: "length-unit" for the key LENGTH_UNIT, which resource files use.

// The text itself when it is no key.
utString vel_option_name(const utString& key);

// The key behind a name or a key, case aside; the text itself when it is neither.
utString vel_option_key(const utString& text);
