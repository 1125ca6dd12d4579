#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apIStringEncoding.h"
#include "velInstallation.h"
#include "vlnTranslatorDlls.h"

// Writing the user's cache of translators.

// A whole cache.
struct velCacheText {
  std::string text;
  std::size_t records = 0;
  std::vector<std::string> left_out;  // libraries whose own texts do not fit into a record
};

// One record for each library of both sets, in their order, from what the descriptions hold: no library is opened.
velCacheText vel_cache_text(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs,
                            const apIStringEncoding& encoding);

// Puts the text in the file's place in one step: whoever reads meanwhile sees the old file or the new one. Why it
// cannot be done, and the old file is as it was; empty when it is done.
std::string vel_replace_cache(const std::string& file, const std::string& text);

// Makes the text the user's cache, without a word when that cannot be done. A cache in force that says the same is left
// alone unless its time has to be `renewed`, and a file that the user may not write to is left alone always.
void vel_keep_cache(const velInstallation& installation, const std::string& text, bool renewed);
