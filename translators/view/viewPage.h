#pragma once

#include <span>
#include <string_view>

// The page around a model, which the build makes from the files in `page`: the parts before the title, between the
// title and the data, and after the data.
std::span<const std::string_view> view_page_head();
std::span<const std::string_view> view_page_body();
std::span<const std::string_view> view_page_tail();
