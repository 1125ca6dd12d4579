#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "vlnTranslatorDlls.h"
#include "vlnTranslatorInfo.h"

// Translators as lists for people and for data.

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

// Every translator of both sets once, ordered by category, format, direction and library.
std::vector<velTranslatorRow> vel_translator_rows(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs);

// The first translator that has this extension, with or without its dot, case aside. Null when there is none.
const vlnTranslatorInfo* vel_translator_for_extension(const vlnTranslatorDlls& set, const std::string& text);

// The first translator whose format has this name, else the first that has this extension, with or without its dot;
// case aside. Null when there is none.
const vlnTranslatorInfo* vel_translator_named(const vlnTranslatorDlls& set, const std::string& text);
// The same in both sets: a name in either goes before an extension.
const vlnTranslatorInfo* vel_translator_named(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs,
                                              const std::string& text);

// The names of the formats of all sets, each once and sorted, with ", " between them; "none" when there is none.
std::string vel_format_names(std::initializer_list<const vlnTranslatorDlls*> sets);

// The packages without which the translators of a format are left out of the build, by the format's name or extension,
// or by a file name with one of its extensions; empty for formats that need none.
std::string vel_packages_for_format(const std::string& format);
std::string vel_packages_for_file(const std::string& file);
