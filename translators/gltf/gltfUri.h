#pragma once

#include <optional>
#include <string>
#include <string_view>

// File names and data in the JSON of a file.

// Decodes "%20" and the like in a relative reference; empty when a "%" is not followed by two hexadecimal digits.
std::optional<std::string> gltf_percent_decoded(std::string_view uri);

// Encodes a file name as a reference: each byte except letters, digits and "-._~" becomes "%" and two hexadecimal
// digits.
std::string gltf_percent_encoded(std::string_view name);

// True when the URI starts with a scheme, for example "file:" or "https:".
bool gltf_has_scheme(std::string_view uri);

// The text after ";base64," in a "data:" URI; empty for other URIs.
std::optional<std::string_view> gltf_base64_in(std::string_view uri);

// False, with the position of the error, when a character is not base64 or the end is incomplete.
bool gltf_decode_base64(std::string_view text, std::string& bytes, std::size_t& wrong_at);

// Appends bytes as base64, padded with "=".
void gltf_encode_base64(std::string_view bytes, char*& to);
