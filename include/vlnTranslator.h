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

// The driver of one translation request: input files, each read by the translator that matches its content, and one
// output file of a named format. An application derives from it, calls `initialise` once, sets files and resources, and
// runs; `run` may be called again. All input files share one table of resource values. The table is reset for each
// file, and the engine reads it after the last one. An application whose values differ between formats therefore
// overrides `translate_input_files`.
//
//   driver.set_input_file("bracket.stl");
//   driver.output_file_and_format("bracket.obj", "OBJ");
//   if (!driver.run()) ...
class VLN_API vlnTranslator {
 public:
  using Resources = std::vector<std::pair<utString, utString>>;

  virtual ~vlnTranslator();

  // The application's own start-up. Called before any other object is created.
  virtual void set_up_application() = 0;
  virtual utObserverPtr<velabsAppInfo> app_info() = 0;
  // The outputs to which the engine reports. Either may be null.
  virtual utObserverPtr<velabsOutput> primary_output() = 0;
  virtual utObserverPtr<velabsOutput> secondary_output() = 0;
  virtual std::unique_ptr<vlnDLLLoader> create_dll_loader() = 0;
  // The path under which an input file is searched for and translated.
  virtual utString resolve_input_file(const utString& name) = 0;

  // Resets `table` to the translator's resource file and then sets the given values. A value that is not valid is
  // ignored; the engine reports a warning for it when the request runs.
  virtual void set_up_resources(const vlnTranslatorInfo* info, velTableInstance& table, const Resources& resources);

  // Runs the request. Returns false, with nothing translated, before `initialise` or if a file has no translator; the
  // engine then reports the file through the outputs.
  virtual bool translate_input_files();

  vlnTranslator();
  vlnTranslator(const vlnTranslator&) = delete;
  vlnTranslator& operator=(const vlnTranslator&) = delete;

  // Replaces the list of input files.
  void set_input_file(const utString& file);
  // Appends to the list of input files.
  void set_input_file_list(itIterator<utString> files);

  // The value is appended unchecked and validated when the request runs.
  void set_input_resource(const utString& name, const utString& value);
  void set_output_resource(const utString& name, const utString& value);

  void output_file_and_format(const utString& file, const utString& format);

  // True if the engine reports success.
  bool run();

  // The numbers of input files that the last run read and failed to read; both 0 if the run did not reach the engine.
  int num_passed();
  int num_failed();

 protected:
  // Creates everything that a request needs and fills both translator sets. Objects passed by observer pointer must
  // outlive the driver.
  void initialise(std::shared_ptr<annDocument> document, std::shared_ptr<vlnValidator> validator,
                  utObserverPtr<const apILibraryLoaderOperations> libraries,
                  utObserverPtr<const apISynchOperations> synch);

  // Throws std::out_of_range for an index outside the list, also for negative ones.
  utString input_file(int index);
  int num_input_files() const { return static_cast<int>(input_files_.size()); }
  utString output_file() { return output_file_; }
  utString output_format() { return output_format_; }

  std::shared_ptr<vlnIAppDirMap> app_dirs() { return app_dirs_; }
  const std::unique_ptr<vlnTranslatorDlls>& get_input_dlls() const { return inputs_; }
  const std::unique_ptr<vlnTranslatorDlls>& get_output_dlls() const { return outputs_; }
  const std::unique_ptr<v2vThreadComm>& get_thread_comm() const { return thread_comm_; }

  // What the engine needs to know about one input file, or about the output. `invalid` if no translator matches.
  v2vTranslatorElements input_elements(const utString& file);
  // Like the above, with the translator that the application chose for the file; null if there is none.
  v2vTranslatorElements input_elements(const utString& file, const vlnTranslatorInfo* translator);
  v2vOutputTranslatorElements output_elements(const utString& file, const utString& format);

  // The translator's resource file: the user's copy, else the installation's, else the path of a "default" file in the
  // user's directory. Empty for a null translator and before `initialise`.
  utString resource_path(const utObserverPtr<const vlnTranslatorInfo>& info);

  // Deletes the output file if it exists.
  void remove_output_file();

  // The warnings for values that `set_up_resources` ignored since the run began. For a driver that calls the engine
  // itself.
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
