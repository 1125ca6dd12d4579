#include "velDriver.h"

#include <sys/stat.h>

#include <exception>

#include "v2vTranslationElements.h"
#include "v2vVel2vel.h"
#include "velCacheFile.h"
#include "velInterrupt.h"
#include "velLoader.h"
#include "velMessages.h"
#include "velValidator.h"
#include "vlnResourceHandler.h"
#include "vlnTranslatorDllsIT.h"

velDriver::velDriver(velInstallation& installation, velConsole& console)
    : installation_(installation),
      console_(console),
      output_(console),
      discovery_(installation),
      libraries_(apILibraryLoaderOperations::system()),
      document_(std::make_shared<annDocument>()) {}

velDriver::~velDriver() {
  if (wanted_cache_.empty()) return;
  try {
    console_.send_out();
    vel_keep_cache(installation_, wanted_cache_, has_replaced_libraries_);
  } catch (const std::exception&) {
    // Without a cache the next start only takes longer.
  }
}

void velDriver::set_up_application() {
  vel_catch_interrupts();
}

std::unique_ptr<vlnDLLLoader> velDriver::create_dll_loader() {
  return std::make_unique<velLoader>(installation_.directories());
}

void velDriver::load_silently() {
  initialise(document_, std::make_shared<velValidator>(), apILibraryLoaderOperations::system(),
             apISynchOperations::system());
  has_replaced_libraries_ = describe_replaced_libraries();
  wanted_cache_ = is_any_opened() ? vel_cache_text(inputs(), outputs(), *app_info()->ut_encoding()).text : "";
}

bool velDriver::describe_replaced_libraries() const {
  struct stat cache;
  if (stat(installation_.cache_file().c_str(), &cache) != 0) return false;
  // Compare the change time of the library: the modification time of an installed file can be older than the cache.
  auto is_newer = [&](const utString& library) {
    struct stat file;
    if (stat(library.c_str(), &file) != 0) return false;
    const timespec &came = file.st_ctim, &written = cache.st_mtim;
    return came.tv_sec != written.tv_sec ? came.tv_sec > written.tv_sec : came.tv_nsec >= written.tv_nsec;
  };
  bool any = false;
  for (const vlnTranslatorDlls* set : {&inputs(), &outputs()}) {
    vlnTranslatorDllsIT translators(*set);
    while (++translators) {
      if (!translators()->from_cache() || !is_newer(translators()->file_ut())) continue;
      vlnTranslatorLoadStatus ignored(vlnLOAD_OK);
      any = translators()->load_now(ignored) || any;
    }
  }
  return any;
}

void velDriver::load() {
  load_silently();
  if (is_cache_damaged()) warn_of_damaged_cache();
  if (inputs().count() + outputs().count() > 0) return;
  const std::size_t failed = discovery_.failures(inputs(), outputs()).size();
  const std::string directory = discovery_.library_directory();
  console_.warning(failed == 0 ? vel_text(velMSG_NO_LIBRARIES, {directory})
                               : vel_text(velMSG_NO_USABLE_LIBRARY, {directory, vel_counted(failed, velMSG_LIBRARY)}));
}

void velDriver::warn_of_damaged_cache() const {
  const bool is_mended = !wanted_cache_.empty() && !installation_.user_cache_file().empty();
  console_.warning(
      vel_text(is_mended ? velMSG_CACHE_DAMAGED_MENDED : velMSG_CACHE_DAMAGED, {installation_.cache_file()}));
}

bool velDriver::is_any_opened() const {
  for (const vlnTranslatorDlls* set : {&inputs(), &outputs()}) {
    vlnTranslatorDllsIT translators(*set);
    while (++translators) {
      if (!translators()->from_cache()) return true;
    }
  }
  return inputs().count() + outputs().count() == 0;
}

bool velDriver::is_cache_damaged() const {
  // When no library had to be opened, the cache is complete and need not be read again.
  if (!is_any_opened()) return false;
  const std::string cache_file = installation_.cache_file();
  if (cache_file.empty()) return false;
  bool intact = true;
  discovery_.read_cache(cache_file, intact);
  return !intact;
}

const velResources& velDriver::resources(const utString& path) {
  return resources_.try_emplace(path, path).first->second;
}

void velDriver::set_up_resources(const vlnTranslatorInfo* info, velTableInstance& table, const Resources& requested) {
  table = resources(resource_path(info)).values;
  velValidator validator;
  for (const auto& [key, value] : requested) vlnResourceHandler(&validator, key).insert(value, table);
}

bool velDriver::translate_input_files() {
  input_tables_.clear();
  v2vTranslatorElementscoPageArr inputs;
  for (int i = 0; i < num_input_files(); ++i) {
    const auto* reader = readers_.at(static_cast<std::size_t>(i));
    const v2vTranslatorElements made = input_elements(resolve_input_file(input_file(i)), reader);
    if (made.invalid()) return false;
    // Copy the table: the next input reuses it.
    const velTableInstance& own = input_tables_.emplace_back(*made.resources());
    inputs.append({made.file(), &own, made.library(), made.is_viewer(), made.format()});
  }
  const v2vTranslationElements request(inputs, output_elements(output_file(), output_format()));
  get_thread_comm()->register_translation(request);
  return v2vVel2vel().translate(app_info(), *get_thread_comm(), libraries_, request, primary_output(),
                                secondary_output()) != 0;
}

bool velDriver::read(const utString& file, const vlnTranslatorInfo& reader) {
  v2vTranslatorElementscoPageArr inputs;
  inputs.append(input_elements(resolve_input_file(file), &reader));
  return v2vVel2vel().read(app_info(), *get_thread_comm(), libraries_, inputs, *document_, primary_output(),
                           secondary_output()) != 0;
}
