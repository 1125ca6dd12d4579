#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "vlnTranslatorDlls.h"
#include "vlnTranslatorInfo.h"

// Lists of translators, for tables and for JSON.

struct velTranslatorRow {
  std::string format;
  std::string direction;  // "input" or "output"
  std::vector<std::string> extensions;
  std::vector<std::string> file_types;
  std::string category;
  int category_order = 0;
  std::string library;  // full path
  std::string library_name;
  bool from_cache = false;
};

velTranslatorRow vel_translator_row(const vlnTranslatorInfo& info);

// Every translator of both sets once, sorted by category, format, direction and library.
std::vector<velTranslatorRow> vel_translator_rows(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs);

// The first translator that has this extension, with or without its dot, ignoring case. Null when none has it.
const vlnTranslatorInfo* vel_translator_for_extension(const vlnTranslatorDlls& set, const std::string& text);

// The first translator whose format has this name, else the first that has this extension, with or without its dot.
// Case is ignored. Null when none is found.
const vlnTranslatorInfo* vel_translator_named(const vlnTranslatorDlls& set, const std::string& text);
// The same in both sets: a format name in either set has priority over an extension.
const vlnTranslatorInfo* vel_translator_named(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs,
                                              const std::string& text);

// The sorted names of the formats of all sets, each once, joined with ", "; "none" when all sets are empty.
std::string vel_format_names(std::initializer_list<const vlnTranslatorDlls*> sets);

// The packages that the build needs for the translators of a format. `format` is a format name or an extension, `file`
// a file name with such an extension. Empty for formats that need no packages.
std::string vel_packages_for_format(const std::string& format);
std::string vel_packages_for_file(const std::string& file);
