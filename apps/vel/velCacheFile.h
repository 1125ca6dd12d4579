#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "apIStringEncoding.h"
#include "velInstallation.h"
#include "vlnTranslatorDlls.h"

// Writing the user's cache of translators.

// The text of a cache file.
struct velCacheText {
  std::string text;
  std::size_t records = 0;
  std::vector<std::string> left_out;  // libraries whose descriptions do not fit into a record
};

// Makes one record for each library of both sets, in their order, from the descriptions. Opens no library.
velCacheText vel_cache_text(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs,
                            const apIStringEncoding& encoding);

// Replaces the file atomically: a concurrent reader sees either the old file or the new one. Returns an empty text, or
// the reason of a failure, which keeps the old file.
std::string vel_replace_cache(const std::string& file, const std::string& text);

// Writes the text as the user's cache. Failures are not reported. When the cache in use already has this text, it is
// written only if its time must be `renewed`. A file that the user may not write to is never replaced.
void vel_keep_cache(const velInstallation& installation, const std::string& text, bool renewed);
