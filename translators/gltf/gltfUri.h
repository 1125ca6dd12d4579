#pragma once

#include <optional>
#include <string>
#include <string_view>

// Names and data inside the JSON of a file.

// A relative reference with its "%20" and the like made to bytes; nothing when a "%" is followed by something else.
std::optional<std::string> gltf_percent_decoded(std::string_view uri);

// A name of a file as a reference: every byte that is no letter, digit or one of "-._~" is written as "%" and two
// digits.
std::string gltf_percent_encoded(std::string_view name);

// True for "file:", "https:" and the like: a scheme in front.
bool gltf_has_scheme(std::string_view uri);

// What stands in a "data:" URI behind ";base64,"; nothing when it is none of that form.
std::optional<std::string_view> gltf_base64_in(std::string_view uri);

// False, and where, when a character is not of base64 or the end is not as it must be.
bool gltf_decode_base64(std::string_view text, std::string& bytes, std::size_t& wrong_at);

// Appends the text for bytes, with "=" at the end unless they are a multiple of three.
void gltf_encode_base64(std::string_view bytes, char*& to);
