#include "velListCommand.h"

#include <filesystem>

#include "velDriver.h"
#include "velJson.h"
#include "velMessages.h"
#include "velText.h"
#include "velTranslators.h"

namespace {

struct Listing {
  std::vector<velTranslatorRow> translators;
  std::vector<velDiscovery::Failure> failures;
  std::string library_directory;
  std::string cache_file;  // empty without a cache
  bool cache_damaged;
};

void print_json(const Listing& listing, velConsole& console) {
  velJson translators = velJson::array();
  for (const auto& row : listing.translators) {
    translators.push_back({{"format", row.format},
                           {"direction", row.direction},
                           {"extensions", row.extensions},
                           {"file_types", row.file_types},
                           {"category", row.category},
                           {"library", row.library},
                           {"from_cache", row.from_cache}});
  }
  velJson failed = velJson::array();
  for (const auto& failure : listing.failures) {
    failed.push_back({{"library", failure.library}, {"reason", failure.reason}});
  }
  velJson cache = nullptr;
  if (!listing.cache_file.empty()) cache = {{"file", listing.cache_file}, {"damaged", listing.cache_damaged}};
  vel_print_json(console, {{"library_directory", listing.library_directory},
                           {"cache", cache},
                           {"translators", translators},
                           {"failed", failed}});
}

void print_table(const Listing& listing, velConsole& console) {
  if (listing.translators.empty()) {
    std::error_code unreadable;
    const bool exists = std::filesystem::is_directory(listing.library_directory, unreadable);
    console.print_line(
        vel_text(exists ? velMSG_LIST_NO_LIBRARY : velMSG_LIST_NO_DIRECTORY, {listing.library_directory}));
  } else {
    std::vector<std::vector<std::string>> lines{
        {"FORMAT", "DIRECTION", "EXTENSIONS", "FILE TYPES", "CATEGORY", "LIBRARY", "CACHE"}};
    for (const auto& row : listing.translators) {
      lines.push_back({row.format, row.direction, vel_joined(row.extensions), vel_joined(row.file_types), row.category,
                       row.library_name, row.from_cache ? "from cache" : "opened"});
    }
    console.print(vel_columns(lines));
  }
  if (listing.failures.empty()) return;
  console.print("\nFailed:\n");
  for (const auto& failure : listing.failures) {
    console.print("  " + vel_printable(failure.library) + ": " + vel_printable(failure.reason) + "\n");
  }
}

}  // namespace

velExitCode vel_list(const velListRequest& request, velConsole& console) {
  velInstallation installation(console);
  if (!installation.found()) return velEXIT_FAILED;
  velDriver driver(installation, console);
  driver.load_silently();

  const Listing listing{vel_translator_rows(driver.inputs(), driver.outputs()),
                        driver.discovery().failures(driver.inputs(), driver.outputs()),
                        driver.discovery().library_directory(), installation.cache_file(), driver.is_cache_damaged()};
  request.json ? print_json(listing, console) : print_table(listing, console);
  if (listing.cache_damaged) driver.warn_of_damaged_cache();
  return velEXIT_DONE;
}
