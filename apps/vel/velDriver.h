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

// The program's translation driver. After `load` its two sets hold the translators that read and those that write. The
// installation and the console must outlive it.
class velDriver : public vlnTranslator {
 public:
  velDriver(velInstallation& installation, velConsole& console);
  // If the last loading opened a library that the cache did not describe, flushes the results and then writes the
  // user's cache.
  ~velDriver() override;

  // Fills the sets. Warns of a damaged cache and, when both sets are empty, of libraries that failed.
  void load();

  // The same without warnings.
  void load_silently();

  const vlnTranslatorDlls& inputs() const { return *get_input_dlls(); }
  const vlnTranslatorDlls& outputs() const { return *get_output_dlls(); }
  const velDiscovery& discovery() const { return discovery_; }

  // True when there is a cache file and it is damaged.
  bool is_cache_damaged() const;
  void warn_of_damaged_cache() const;

  // Sets the readers for the next `run`, one for each input file, in the order of the files.
  void use_readers(const std::vector<const vlnTranslatorInfo*>& readers) { readers_ = readers; }

  // Reads one file into the document and writes nothing. Returns false when the file cannot be read.
  bool read(const utString& file, const vlnTranslatorInfo& reader);

  // The model of the last `run` or `read`.
  const annDocument& document() const { return *document_; }

  // The errors from the translators and the engine. The caller reports them.
  std::vector<std::string> errors() const { return output_.errors(); }

  using vlnTranslator::app_dirs;
  using vlnTranslator::resource_path;

  // The contents of a resource file. Each file is read once.
  const velResources& resources(const utString& path);

  void set_up_application() override;
  utObserverPtr<velabsAppInfo> app_info() override { return &installation_.app_info(); }
  utObserverPtr<velabsOutput> primary_output() override { return &output_; }
  utObserverPtr<velabsOutput> secondary_output() override { return nullptr; }
  std::unique_ptr<vlnDLLLoader> create_dll_loader() override;
  // Messages show the file name as the user gave it.
  utString resolve_input_file(const utString& name) override { return name; }
  void set_up_resources(const vlnTranslatorInfo* info, velTableInstance& table, const Resources& requested) override;
  // Gives each input a separate resource table, so that the resource file of one format does not affect another format.
  bool translate_input_files() override;

 private:
  // Opens and describes libraries that are newer than the cache. Returns true when there was any.
  bool describe_replaced_libraries() const;
  bool is_any_opened() const;

  velInstallation& installation_;
  velConsole& console_;
  velConsoleOutput output_;
  velDiscovery discovery_;
  v2vTranslatorLoader libraries_;
  std::shared_ptr<annDocument> document_;
  // The text that the cache should hold after the last loading; empty when no library had to be opened. It is made
  // before the use of a library can change its description.
  std::string wanted_cache_;
  bool has_replaced_libraries_ = false;
  std::vector<const vlnTranslatorInfo*> readers_;
  std::map<utString, velResources> resources_;  // by path
  std::deque<velTableInstance> input_tables_;   // of the last request; the engine keeps their addresses
};
