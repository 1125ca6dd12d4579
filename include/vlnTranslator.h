#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "annDocument.h"
#include "apILibraryLoaderOperations.h"
#include "apISynchOperations.h"
#include "itIterator.h"
#include "utObserverPtr.h"
#include "utString.h"
#include "v2vOutputTranslatorElements.h"
#include "v2vThreadComm.h"
#include "v2vTranslatorElements.h"
#include "v2vTranslatorLoader.h"
#include "velTableInstance.h"
#include "velabsAppInfo.h"
#include "velabsOutput.h"
#include "vlnDLLLoader.h"
#include "vlnExport.h"
#include "vlnIAppDirMap.h"
#include "vlnTranslatorDlls.h"
#include "vlnTranslatorInfo.h"
#include "vlnValidator.h"

class vlnResourceHandler;

// One request at a time: input files, each read by the translator that suits its content, into one output file of a
// named format. An application derives from it, calls `initialise` once, names files and resources, and runs; `run` may
// be called again. One table of resource values serves all input files: it starts afresh for each, and the engine reads
// after the last one, so an application whose values differ between formats overrides `translate_input_files`.
//
//   driver.set_input_file("bracket.stl");
//   driver.output_file_and_format("bracket.obj", "OBJ");
//   if (!driver.run()) ...
class VLN_API vlnTranslator {
 public:
  using Resources = std::vector<std::pair<utString, utString>>;

  virtual ~vlnTranslator();

  // The application's own start-up, before anything else is made.
  virtual void set_up_application() = 0;
  virtual utObserverPtr<velabsAppInfo> app_info() = 0;
  // Where the engine reports what happens. Either may be null.
  virtual utObserverPtr<velabsOutput> primary_output() = 0;
  virtual utObserverPtr<velabsOutput> secondary_output() = 0;
  virtual std::unique_ptr<vlnDLLLoader> create_dll_loader() = 0;
  // The name under which an input file is looked up and translated.
  virtual utString resolve_input_file(const utString& name) = 0;

  // Starts `table` afresh from the translator's resource file and puts the given values over it. A value that does not
  // validate is ignored; the engine warns of it when the request runs.
  virtual void set_up_resources(const vlnTranslatorInfo* info, velTableInstance& table, const Resources& resources);

  // Carries the request out. False, and nothing translated, when a file has no translator, which the engine reports
  // through the outputs, or before `initialise`.
  virtual bool translate_input_files();

  vlnTranslator();
  vlnTranslator(const vlnTranslator&) = delete;
  vlnTranslator& operator=(const vlnTranslator&) = delete;

  // Replaces the list of input files.
  void set_input_file(const utString& file);
  // Appends to the list as it stands.
  void set_input_file_list(itIterator<utString> files);

  // Appended unchecked; checked when the request runs.
  void set_input_resource(const utString& name, const utString& value);
  void set_output_resource(const utString& name, const utString& value);

  void output_file_and_format(const utString& file, const utString& format);

  // True when the engine reports success.
  bool run();

  // Input files of the last run that were read, and that were not; both 0 when the run did not reach the engine.
  int num_passed();
  int num_failed();

 protected:
  // Makes everything that a request needs and fills both translator sets. What is borrowed must outlive the driver.
  void initialise(std::shared_ptr<annDocument> document, std::shared_ptr<vlnValidator> validator,
                  utObserverPtr<const apILibraryLoaderOperations> libraries,
                  utObserverPtr<const apISynchOperations> synch);

  // Throws std::out_of_range for an index outside the list, negative ones included.
  utString input_file(int index);
  int num_input_files() const { return static_cast<int>(input_files_.size()); }
  utString output_file() { return output_file_; }
  utString output_format() { return output_format_; }

  std::shared_ptr<vlnIAppDirMap> app_dirs() { return app_dirs_; }
  const std::unique_ptr<vlnTranslatorDlls>& get_input_dlls() const { return inputs_; }
  const std::unique_ptr<vlnTranslatorDlls>& get_output_dlls() const { return outputs_; }
  const std::unique_ptr<v2vThreadComm>& get_thread_comm() const { return thread_comm_; }

  // What the engine is told about one input file, or about the output. Default-made, so `invalid`, when no translator
  // suits.
  v2vTranslatorElements input_elements(const utString& file);
  // With the translator that the application chose for the file; null when none suits.
  v2vTranslatorElements input_elements(const utString& file, const vlnTranslatorInfo* translator);
  v2vOutputTranslatorElements output_elements(const utString& file, const utString& format);

  // The translator's resource file: the user's copy, else the installation's, else a "default" in the user's directory.
  // Empty for a null translator and before `initialise`.
  utString resource_path(const utObserverPtr<const vlnTranslatorInfo>& info);

  // Deletes the output file if it is there.
  void remove_output_file();

  // The warnings of the values that the set-ups of resources ignored since the run began, for a driver that makes the
  // engine's request itself.
  const std::vector<utString>& ignored_values() const { return ignored_values_; }

 private:
  const apIStringEncoding* encoding();
  void note_ignored_value(const utString& name, const utString& value, const vlnResourceHandler& handler);

  utString output_file_ = "";
  utString output_format_ = "";
  std::vector<utString> input_files_;
  std::unique_ptr<vlnTranslatorDlls> inputs_;
  std::unique_ptr<vlnTranslatorDlls> outputs_;
  std::shared_ptr<vlnIAppDirMap> app_dirs_;
  velTableInstance input_table_;
  velTableInstance output_table_;
  Resources input_resources_;
  Resources output_resources_;
  std::shared_ptr<annDocument> document_;
  std::unique_ptr<v2vThreadComm> thread_comm_;
  std::unique_ptr<v2vTranslatorLoader> libraries_;
  std::unique_ptr<vlnDLLLoader> loader_;
  std::shared_ptr<vlnValidator> validator_;
  std::vector<utString> ignored_values_;
};
