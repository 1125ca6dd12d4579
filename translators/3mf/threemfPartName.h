#pragma once

#include <optional>
#include <string>
#include <string_view>

// Names of parts as keys that are equal for equal parts: without the "/" in front, escapes resolved, in lower case.

// Nothing for a name that is none of a part: with "..", an empty segment, a backslash, an escaped slash or a scheme.
std::optional<std::string> threemf_part_key(std::string_view name);

// The part that a relationship of the part `source` (a key; empty for the package) leads to. A target that does not
// begin with "/" starts at the source's folder.
std::optional<std::string> threemf_target_key(std::string_view source, std::string_view target);

// The part that holds the relationships of a part, or, for an empty key, of the package.
std::string threemf_relationships_key(std::string_view source);
