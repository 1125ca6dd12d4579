#pragma once

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "annDocument.h"
#include "velConsole.h"
#include "velConsoleOutput.h"
#include "velDiscovery.h"
#include "velInstallation.h"
#include "velResources.h"
#include "vlnTranslator.h"

// The program's translation driver. After `load` its two sets tell what can be read and written. What it is made from
// must outlive it.
class velDriver : public vlnTranslator {
 public:
  velDriver(velInstallation& installation, velConsole& console);
  // Sends out the results, then writes the user's cache anew when the last loading opened a library that had no record
  // there.
  ~velDriver() override;

  // Fills the sets. Warns of a damaged cache, and, when there is no translator at all, of libraries that failed.
  void load();

  // The same without a word.
  void load_silently();

  const vlnTranslatorDlls& inputs() const { return *get_input_dlls(); }
  const vlnTranslatorDlls& outputs() const { return *get_output_dlls(); }
  const velDiscovery& discovery() const { return discovery_; }

  // True when there is a cache file and it is damaged.
  bool is_cache_damaged() const;
  void warn_of_damaged_cache() const;

  // The translators of the input files of the next `run`, in the order of the files.
  void use_readers(const std::vector<const vlnTranslatorInfo*>& readers) { readers_ = readers; }

  // Reads one file into the document and writes nothing. False when it cannot be read.
  bool read(const utString& file, const vlnTranslatorInfo& reader);

  // The model of the last `run` or `read`.
  const annDocument& document() const { return *document_; }

  // The errors that translators and the engine told, for the caller to show.
  std::vector<std::string> errors() const { return output_.errors(); }

  using vlnTranslator::app_dirs;
  using vlnTranslator::resource_path;

  // What a resource file says; each is read once.
  const velResources& resources(const utString& path);

  void set_up_application() override;
  utObserverPtr<velabsAppInfo> app_info() override { return &installation_.app_info(); }
  utObserverPtr<velabsOutput> primary_output() override { return &output_; }
  utObserverPtr<velabsOutput> secondary_output() override { return nullptr; }
  std::unique_ptr<vlnDLLLoader> create_dll_loader() override;
  // A file is named as its user named it.
  utString resolve_input_file(const utString& name) override { return name; }
  void set_up_resources(const vlnTranslatorInfo* info, velTableInstance& table, const Resources& requested) override;
  // Each input has resources of its own, so that what one format's file says does not reach another format.
  bool translate_input_files() override;

 private:
  // A library that came after the cache was written says anew what it is. True when there is any.
  bool describe_replaced_libraries() const;
  bool is_any_opened() const;

  velInstallation& installation_;
  velConsole& console_;
  velConsoleOutput output_;
  velDiscovery discovery_;
  v2vTranslatorLoader libraries_;
  std::shared_ptr<annDocument> document_;
  // What the cache should hold after the last loading, taken before a use of a library touches its description; empty
  // when the cache spared every library its opening.
  std::string wanted_cache_;
  bool has_replaced_libraries_ = false;
  std::vector<const vlnTranslatorInfo*> readers_;
  std::map<utString, velResources> resources_;  // by path
  std::deque<velTableInstance> input_tables_;   // of the last request; the engine keeps their addresses
};
