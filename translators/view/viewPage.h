#pragma once

#include <span>
#include <string_view>

// The page around a model, made from the files in `page` by the build: what stands before its title, between the title
// and the data, and behind them.
std::span<const std::string_view> view_page_head();
std::span<const std::string_view> view_page_body();
std::span<const std::string_view> view_page_tail();
