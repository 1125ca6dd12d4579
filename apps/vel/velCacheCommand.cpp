#include "velCacheCommand.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "velDiscovery.h"
#include "velInstallation.h"
#include "velText.h"
#include "velTranslators.h"
#include "vlnTranslatorCacheWriter.h"
#include "vlnTranslatorDllsIT.h"
#include "vluFileHelpers.h"

namespace {

constexpr char no_place[] =
    "there is no application data directory to keep the cache in. Set QRM_HOME to a directory that you may write.";

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
    if (!status.ok()) return fail(file, "it cannot be written");

    for (const vlnTranslatorDlls* set : {sets.inputs.get(), sets.outputs.get()}) {
      vlnTranslatorDllsIT translators(*set);
      while (++translators) {
        const vlnTranslatorLoadStatus record = writer.write_next_dll(translators());
        if (record.types().contains(vlnLOAD_CACHE_UNWRITABLE)) return fail(file, "it cannot be written");
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
    console_.error(file + ": " + reason + ". The cache is as it was.");
    return false;
  }

  void report(const velDiscovery::Sets& sets, const std::string& target) {
    for (const std::string& library : left_out_) {
      console_.warning(library +
                       ": left out of the cache: a text that it gives of itself does not fit there. It is opened at "
                       "every start.");
    }
    for (const auto& failure : discovery_.failures(*sets.inputs, *sets.outputs)) {
      console_.warning(failure.library + ": left out of the cache: " + vel_sentence(failure.reason));
    }
    console_.print(vel_printable(target) + ": " + vel_counted(records_, "record", "records") + " written.\n");
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
    console.error(no_place);
    return velEXIT_FAILED;
  }
  const vlnSchemaDir directory = installation.directories()->get_schema_dir(vlnSchemaTranslators);
  if (!directory.create_user_dir()) {
    console.error(directory.user_dir().str() + ": this directory cannot be made. The cache is as it was.");
    return velEXIT_FAILED;
  }
  return Refresh(installation, console).write(target) ? velEXIT_DONE : velEXIT_FAILED;
}

velExitCode vel_cache_show(velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  const std::string file = installation.cache_file();
  if (file.empty()) {
    console.print("No cache: every library is opened at every start. `vel cache refresh` makes one.\n");
    return velEXIT_DONE;
  }
  const velDiscovery discovery(installation);
  bool intact = true;
  const auto records = discovery.read_cache(file, intact);
  const bool own = file == installation.user_cache_file();
  console.print(vel_printable(file) + (own ? " (yours)" : " (the installation's)") + ": " +
                vel_counted(records.size(), "record", "records") + "\n");

  std::vector<std::vector<std::string>> lines;
  for (const auto& record : records) {
    if (!record.info) {
      lines.push_back({record.library.empty() ? "?" : record.library, "passed over: no such library, or damaged"});
      continue;
    }
    const velTranslatorRow row = vel_translator_row(*record.info);
    lines.push_back({row.library_name, row.format, row.direction, vel_joined(row.extensions), row.category});
  }
  console.print(vel_columns(lines));
  if (!intact) console.warning(file + ": this file is damaged. Run `vel cache refresh` to mend it.");
  return velEXIT_DONE;
}

velExitCode vel_cache_clear(velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  const std::string file = installation.user_cache_file();
  if (file.empty()) {
    console.print("Nothing to clear: there is no application data directory.\n");
    return velEXIT_DONE;
  }
  if (unlink(file.c_str()) == 0) {
    console.print(vel_printable(file) + ": removed.\n");
  } else if (errno == ENOENT) {
    console.print("Nothing to clear: there is no " + vel_printable(file) + ".\n");
  } else {
    console.error(file + ": it cannot be removed: " + std::strerror(errno) + ".");
    return velEXIT_FAILED;
  }
  if (const std::string other = installation.cache_file(); !other.empty()) {
    console.print("The installation's own cache, " + vel_printable(other) + ", is in force.\n");
  }
  return velEXIT_DONE;
}
