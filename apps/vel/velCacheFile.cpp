#include "velCacheFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <unordered_map>

#include "apRegularFile.h"
#include "velMessages.h"
#include "vlnTranslatorCacheWriter.h"
#include "vlnTranslatorDllsIT.h"
#include "vluFileHelpers.h"

namespace {

bool holds(const std::string& file, const std::string& text) {
  apStatus status;
  const apRegularFile regular(file, status);
  if (!regular.good() || regular.size() != text.size()) return false;
  std::string held(text.size(), '\0');
  return regular.read_at(0, held.data(), held.size(), status) == held.size() && held == text;
}

bool write_file(const std::string& file, const std::string& text) {
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
  stream.close();
  return stream.good();
}

}  // namespace

velCacheText vel_cache_text(const vlnTranslatorDlls& inputs, const vlnTranslatorDlls& outputs,
                            const apIStringEncoding& encoding) {
  struct Library {
    std::string name;
    std::string record;
  };
  std::vector<Library> libraries;
  std::unordered_map<apString, std::size_t> places;
  for (const vlnTranslatorDlls* set : {&inputs, &outputs}) {
    vlnTranslatorDllsIT translators(*set);
    while (++translators) {
      const vlnTranslatorInfo& info = *translators();
      const auto [place, is_new] = places.try_emplace(info.file().string(), libraries.size());
      if (is_new) libraries.push_back({info.file_ut().str(), ""});
      // Discovery may describe one library twice. The description from the library replaces that from the cache.
      if (!is_new && info.from_cache()) continue;
      libraries[place->second].record = vlnTranslatorCacheWriter::record_text(info, encoding);
    }
  }

  velCacheText cache;
  for (const Library& library : libraries) {
    if (library.record.empty()) {
      cache.left_out.push_back(library.name);
      continue;
    }
    cache.text += library.record;
    ++cache.records;
  }
  return cache;
}

std::string vel_replace_cache(const std::string& file, const std::string& text) {
  const std::string temporary = file + "." + vlu_random_text().str();
  errno = 0;
  if (write_file(temporary, text) && std::rename(temporary.c_str(), file.c_str()) == 0) return "";
  const std::string reason = errno ? std::strerror(errno) : vel_text(velMSG_CANNOT_BE_WRITTEN);
  unlink(temporary.c_str());
  return reason;
}

void vel_keep_cache(const velInstallation& installation, const std::string& text, bool renewed) {
  const std::string file = installation.user_cache_file();
  if (file.empty() || (!renewed && holds(installation.cache_file(), text))) return;
  const bool is_locked = access(file.c_str(), F_OK) == 0 && access(file.c_str(), W_OK) != 0;
  if (is_locked || !installation.directories()->get_schema_dir(vlnSchemaTranslators).create_user_dir()) return;
  vel_replace_cache(file, text);
}
