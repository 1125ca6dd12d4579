#pragma once

#include <memory>
#include <vector>

#include "CountingLibraries.h"
#include "TemporaryDirectory.h"
#include "apFrustrumChooser.h"
#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"
#include "v2vTranslatorLoader.h"
#include "velabsAppInfo.h"
#include "vlnFindFileByExtension.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDllsFactory.h"
#include "vlnTranslatorDllsIT.h"
#include "vlnTranslatorSearchPath.h"

// A description whose fields a test may set.
class OpenInfo : public vlnSecureTranslatorInfo {
 public:
  OpenInfo(const v2vTranslatorLoader* loader, const apIStringEncoding* encoding, const apIStringCompare* compare)
      : vlnSecureTranslatorInfo(loader, encoding, compare) {}

  using vlnSecureTranslatorInfo::set_loaded;
  using vlnTranslatorInfo::add_extension;
  using vlnTranslatorInfo::add_file_type;
  using vlnTranslatorInfo::remove_forward_slashes;
  using vlnTranslatorInfo::set_file;
  using vlnTranslatorInfo::set_filter;
  using vlnTranslatorInfo::set_format_name;
  using vlnTranslatorInfo::set_from_cache;
  using vlnTranslatorInfo::set_further;
  using vlnTranslatorInfo::set_translator_category;
  using vlnTranslatorInfo::set_type;
};

// The policies and factories that everything in the registry is made with.
struct Registry {
  const apIStringEncoding* encoding = apStringEncodingChooser().ut_encoding();
  apStringCompareInsensitive compare{encoding};
  CountingLibraries libraries;
  v2vTranslatorLoader loader{&libraries};
  velabsAppInfo app_info{"test", "1", "test", "nobody", "UTF-8"};
  vlnSecureTranslatorInfoFactory descriptions{&loader, encoding, &compare};
  vlnTranslatorDllsFactory sets{encoding, &compare, &descriptions};
  vlnFindFileByExtension lister{apFrustrumChooser().file_operations(), &compare};

  apPathName path(const std::string& text) const { return apPathName(encoding->to_apString(text)); }
  std::string text(const apString& string) const { return encoding->to_utString(string).str(); }
  std::string text(const apPathName& path) const { return text(path.string()); }
  vlnTranslatorSearchPath search_path(const std::string& directories) const {
    return {vlnSearchPath(encoding->to_apString(directories)), &lister};
  }
  vlnFormatName format(const std::string& name) const { return {encoding->to_apString(name), encoding, &compare}; }

  // Without a library yet, as from a cache.
  std::unique_ptr<OpenInfo> unloaded(const std::string& file) const {
    auto made = std::make_unique<OpenInfo>(&loader, encoding, &compare);
    made->set_file(path(file));
    made->set_from_cache(1);
    return made;
  }

  std::unique_ptr<OpenInfo> info(const std::string& format_name, vlnTranslatorType type,
                                 const std::string& file = "/lib/x.dll") const {
    auto made = unloaded(file);
    made->set_from_cache(0);
    made->set_format_name(format(format_name));
    made->set_type(type);
    made->set_loaded();
    return made;
  }

  std::vector<std::string> formats(const vlnTranslatorDlls& set) const {
    std::vector<std::string> names;
    vlnTranslatorDllsIT translators(set);
    while (++translators) names.push_back(translators()->format_name().ut_string().str());
    return names;
  }
};

// Copies a fixture library into a directory, under another name when one is given.
inline std::string copy_fixture(const std::string& fixture, const std::filesystem::path& directory,
                                const std::string& name = "") {
  std::filesystem::create_directories(directory);
  const auto to = directory / (name.empty() ? fixture + ".dll" : name);
  std::filesystem::copy_file(std::filesystem::path(VEL_FIXTURES) / (fixture + ".dll"), to,
                             std::filesystem::copy_options::overwrite_existing);
  return to.string();
}
