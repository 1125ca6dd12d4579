#include "velCacheCommand.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "velCacheFile.h"
#include "velDiscovery.h"
#include "velInstallation.h"
#include "velMessages.h"
#include "velText.h"
#include "velTranslators.h"

namespace {

void report(const velCacheText& cache, const std::vector<velDiscovery::Failure>& failures, const std::string& file,
            velConsole& console) {
  for (const std::string& library : cache.left_out) {
    console.warning(vel_text(velMSG_CACHE_TEXT_UNFIT, {library}));
  }
  for (const auto& failure : failures) {
    console.warning(vel_text(velMSG_CACHE_LEFT_OUT, {failure.library, vel_sentence(failure.reason)}));
  }
  console.report(vel_text(velMSG_CACHE_WRITTEN, {file, vel_counted(cache.records, velMSG_RECORD)}));
}

}  // namespace

velExitCode vel_cache_refresh(velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  const std::string target = installation.user_cache_file();
  if (target.empty()) {
    console.error(vel_text(velMSG_CACHE_NO_PLACE));
    return velEXIT_FAILED;
  }
  const vlnSchemaDir directory = installation.directories()->get_schema_dir(vlnSchemaTranslators);
  if (!directory.create_user_dir()) {
    console.error(vel_text(velMSG_CACHE_NO_DIRECTORY, {directory.user_dir().view()}));
    return velEXIT_FAILED;
  }
  const velDiscovery discovery(installation);
  const velDiscovery::Sets sets = discovery.describe_all();
  const velCacheText cache = vel_cache_text(*sets.inputs, *sets.outputs, *installation.app_info().ut_encoding());
  if (const std::string reason = vel_replace_cache(target, cache.text); !reason.empty()) {
    console.error(vel_text(velMSG_CACHE_KEPT, {target, reason}));
    return velEXIT_FAILED;
  }
  report(cache, discovery.failures(*sets.inputs, *sets.outputs), target, console);
  return velEXIT_DONE;
}

velExitCode vel_cache_show(velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  const std::string file = installation.cache_file();
  if (file.empty()) {
    console.print_line(vel_text(velMSG_CACHE_NONE));
    return velEXIT_DONE;
  }
  const velDiscovery discovery(installation);
  bool intact = true;
  const auto records = discovery.read_cache(file, intact);
  const bool own = file == installation.user_cache_file();
  console.print_line(
      vel_text(own ? velMSG_CACHE_OWN : velMSG_CACHE_INSTALLED, {file, vel_counted(records.size(), velMSG_RECORD)}));

  std::vector<std::vector<std::string>> lines;
  for (const auto& record : records) {
    if (!record.info) {
      lines.push_back({record.library.empty() ? "?" : record.library, vel_text(velMSG_CACHE_RECORD_UNUSABLE)});
      continue;
    }
    const velTranslatorRow row = vel_translator_row(*record.info);
    lines.push_back({row.library_name, row.format, row.direction, vel_joined(row.extensions), row.category});
  }
  console.print(vel_columns(lines));
  if (!intact) console.warning(vel_text(velMSG_CACHE_TO_MEND, {file}));
  return velEXIT_DONE;
}

velExitCode vel_cache_clear(velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  const std::string file = installation.user_cache_file();
  if (file.empty()) {
    console.report(vel_text(velMSG_CACHE_NO_APP_DATA));
    return velEXIT_DONE;
  }
  if (unlink(file.c_str()) == 0) {
    console.report(vel_text(velMSG_CACHE_REMOVED, {file}));
  } else if (errno == ENOENT) {
    console.report(vel_text(velMSG_CACHE_NOT_THERE, {file}));
  } else {
    console.error(vel_text(velMSG_CACHE_NOT_REMOVED, {file, std::strerror(errno)}));
    return velEXIT_FAILED;
  }
  if (const std::string other = installation.cache_file(); !other.empty()) {
    console.report(vel_text(velMSG_CACHE_OTHER_IN_FORCE, {other}));
  }
  return velEXIT_DONE;
}
