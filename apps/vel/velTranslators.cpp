#include "velTranslators.h"

#include <strings.h>

#include <algorithm>
#include <set>
#include <tuple>

#include "apStringEncodingChooser.h"
#include "velText.h"
#include "vlnTranslatorDllsIT.h"
#include "vluFileTypeInfo.h"

velTranslatorRow vel_translator_row(const vlnTranslatorInfo& info) {
  velTranslatorRow row;
  row.format = info.format_name().ut_string().str();
  row.direction = info.type() == vlnTRANSLATOR_INPUT ? "input" : "output";
  auto extensions = info.get_extensions();
  while (++extensions)
    row.extensions.push_back(apStringEncodingChooser().ut_encoding()->to_utString(extensions()).str());
  intcoDList types;
  info.get_file_types(types);
  for (int type : types) row.file_types.push_back(vluFileTypeInfo::name(static_cast<vluFileType>(type)).str());
  if (const auto& category = info.translator_category()) {
    row.category = category->category_name().str();
    row.category_order = category->group_order();
  }
  row.library = info.file_ut().str();
  row.library_name = info.file_name_ut().str();
  row.from_cache = info.from_cache() != 0;
  return row;
}

std::vector<velTranslatorRow> vel_translator_rows(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs) {
  std::vector<velTranslatorRow> rows;
  for (const vlnTranslatorDlls* set : {&inputs, &outputs}) {
    vlnTranslatorDllsIT translators(*set);
    while (++translators) rows.push_back(vel_translator_row(*translators()));
  }
  const auto order = [](const velTranslatorRow& row) {
    return std::tie(row.category_order, row.category, row.format, row.direction, row.library);
  };
  std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) { return order(a) < order(b); });
  // Discovery may describe one library twice: from the cache and from the library.
  rows.erase(std::unique(rows.begin(), rows.end(), [&](const auto& a, const auto& b) { return order(a) == order(b); }),
             rows.end());
  return rows;
}

std::string vel_format_names(std::initializer_list<const vlnTranslatorDlls*> sets) {
  std::set<std::string> names;
  for (const vlnTranslatorDlls* set : sets) {
    vlnTranslatorDllsIT translators(*set);
    while (++translators) names.insert(translators()->format_name().ut_string().str());
  }
  return names.empty() ? "none" : vel_joined({names.begin(), names.end()});
}

namespace {

bool is_same(const std::string& a, const std::string& b) {
  return strcasecmp(a.c_str(), b.c_str()) == 0;
}

struct NeedyFormat {
  const char* format;
  std::vector<const char*> extensions;
  const char* packages;
};

const std::vector<NeedyFormat>& needy_formats() {
  static const std::vector<NeedyFormat> formats{{"STEP", {"step", "stp"}, "libocct-data-exchange-dev"},
                                                {"IGES", {"iges", "igs"}, "libocct-data-exchange-dev"},
                                                {"BREP", {"brep", "brp"}, "libocct-data-exchange-dev"},
                                                {"3MF", {"3mf"}, "libzip-dev and libexpat1-dev"},
                                                {"PNG", {"png"}, "libpng-dev"}};
  return formats;
}

std::string packages_for_extension(const std::string& text) {
  for (const NeedyFormat& needy : needy_formats()) {
    for (const char* extension : needy.extensions) {
      if (is_same(extension, text)) return needy.packages;
    }
  }
  return "";
}

}  // namespace

const vlnTranslatorInfo* vel_translator_for_extension(const vlnTranslatorDlls& set, const std::string& text) {
  const std::string wanted = text.starts_with('.') ? text.substr(1) : text;
  vlnTranslatorDllsIT translators(set);
  while (++translators) {
    const std::vector<std::string> known = vel_translator_row(*translators()).extensions;
    if (std::any_of(known.begin(), known.end(), [&](const auto& extension) { return is_same(extension, wanted); })) {
      return translators();
    }
  }
  return nullptr;
}

const vlnTranslatorInfo* vel_translator_named(const vlnTranslatorDlls& set, const std::string& text) {
  const vlnTranslatorInfo* named = set.translator_for_format(text);
  return named ? named : vel_translator_for_extension(set, text);
}

const vlnTranslatorInfo* vel_translator_named(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs,
                                              const std::string& text) {
  for (const vlnTranslatorDlls* set : {&inputs, &outputs}) {
    if (const vlnTranslatorInfo* named = set->translator_for_format(text)) return named;
  }
  const vlnTranslatorInfo* reader = vel_translator_for_extension(inputs, text);
  return reader ? reader : vel_translator_for_extension(outputs, text);
}

std::string vel_packages_for_format(const std::string& format) {
  for (const NeedyFormat& needy : needy_formats()) {
    if (is_same(needy.format, format)) return needy.packages;
  }
  return packages_for_extension(format.starts_with('.') ? format.substr(1) : format);
}

std::string vel_packages_for_file(const std::string& file) {
  const std::size_t dot = file.rfind('.');
  return dot == std::string::npos ? "" : packages_for_extension(file.substr(dot + 1));
}
