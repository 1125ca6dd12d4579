#include "velCacheCommand.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "velDiscovery.h"
#include "velInstallation.h"
#include "velMessages.h"
#include "velText.h"
#include "velTranslators.h"
#include "vlnTranslatorCacheWriter.h"
#include "vlnTranslatorDllsIT.h"
#include "vluFileHelpers.h"

namespace {

// Writes a whole cache to a name of its own and gives it the wanted name in the end.
class Refresh {
 public:
  Refresh(velInstallation& installation, velConsole& console)
      : console_(console), discovery_(installation), encoding_(installation.app_info().ut_encoding()) {}

  bool write(const std::string& target) {
    const velDiscovery::Sets sets = discovery_.describe_all();
    const std::string temporary = target + "." + vlu_random_text().str();
    const bool done = write_records(sets, temporary) && put_in_place(temporary, target);
    if (!done) unlink(temporary.c_str());
    if (done) report(sets, target);
    return done;
  }

 private:
  bool write_records(const velDiscovery::Sets& sets, const std::string& file) {
    // The writer begins with nothing and is handed one translator after another, so that each can be told apart.
    const velDiscovery::Sets none = discovery_.empty_sets();
    int written = 0;
    vlnTranslatorLoadStatus status(vlnLOAD_OK);
    vlnTranslatorCacheWriter writer(file, *none.inputs, *none.outputs, encoding_, written, status);
    if (!status.ok()) return fail(file, vel_text(velMSG_CANNOT_BE_WRITTEN));

    for (const vlnTranslatorDlls* set : {sets.inputs.get(), sets.outputs.get()}) {
      vlnTranslatorDllsIT translators(*set);
      while (++translators) {
        const vlnTranslatorLoadStatus record = writer.write_next_dll(translators());
        if (record.types().contains(vlnLOAD_CACHE_UNWRITABLE)) return fail(file, vel_text(velMSG_CANNOT_BE_WRITTEN));
        if (record.ok()) {
          ++records_;
        } else {
          left_out_.push_back(translators()->file_ut().str());
        }
      }
    }
    return true;
  }

  bool put_in_place(const std::string& temporary, const std::string& target) {
    return std::rename(temporary.c_str(), target.c_str()) == 0 || fail(target, std::strerror(errno));
  }

  bool fail(const std::string& file, const std::string& reason) {
    console_.error(vel_text(velMSG_CACHE_KEPT, {file, reason}));
    return false;
  }

  void report(const velDiscovery::Sets& sets, const std::string& target) {
    for (const std::string& library : left_out_) {
      console_.warning(vel_text(velMSG_CACHE_TEXT_UNFIT, {library}));
    }
    for (const auto& failure : discovery_.failures(*sets.inputs, *sets.outputs)) {
      console_.warning(vel_text(velMSG_CACHE_LEFT_OUT, {failure.library, vel_sentence(failure.reason)}));
    }
    console_.print_line(vel_text(velMSG_CACHE_WRITTEN, {target, vel_counted(records_, velMSG_RECORD)}));
  }

  velConsole& console_;
  velDiscovery discovery_;
  const apIStringEncoding* encoding_;
  std::size_t records_ = 0;
  std::vector<std::string> left_out_;
};

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
  return Refresh(installation, console).write(target) ? velEXIT_DONE : velEXIT_FAILED;
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
    console.print_line(vel_text(velMSG_CACHE_NO_APP_DATA));
    return velEXIT_DONE;
  }
  if (unlink(file.c_str()) == 0) {
    console.print_line(vel_text(velMSG_CACHE_REMOVED, {file}));
  } else if (errno == ENOENT) {
    console.print_line(vel_text(velMSG_CACHE_NOT_THERE, {file}));
  } else {
    console.error(vel_text(velMSG_CACHE_NOT_REMOVED, {file, std::strerror(errno)}));
    return velEXIT_FAILED;
  }
  if (const std::string other = installation.cache_file(); !other.empty()) {
    console.print_line(vel_text(velMSG_CACHE_OTHER_IN_FORCE, {other}));
  }
  return velEXIT_DONE;
}
