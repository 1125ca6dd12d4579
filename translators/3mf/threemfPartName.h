#pragma once

#include <optional>
#include <string>
#include <string_view>

// Converts names of parts to keys, which are equal for equal parts: no leading "/", escapes decoded, lower case.

// Empty for an invalid part name: with "..", an empty segment, a backslash, an escaped slash or a scheme.
std::optional<std::string> threemf_part_key(std::string_view name);

// The target part of a relationship of the part `source` (a key; empty for the package). A target without a leading
// "/" is relative to the folder of the source.
std::optional<std::string> threemf_target_key(std::string_view source, std::string_view target);

// The part that contains the relationships of a part or, for an empty key, of the package.
std::string threemf_relationships_key(std::string_view source);
