#include "v2vVel2vel.h"

#include <map>
#include <memory>
#include <vector>

#include "apStringEncodingChooser.h"
#include "v2vGuard.h"
#include "v2vMerge.h"
#include "v2vReading.h"
#include "v2vReport.h"
#include "v2vRequestCheck.h"
#include "v2vWriting.h"

namespace {

// The libraries of one request. Each is opened once, in the calling thread.
class Libraries {
 public:
  Libraries(const v2vTranslatorLoader& loader, const velabsAppInfo* app_info)
      : loader_(loader), encoding_(app_info ? app_info->ut_encoding() : apStringEncodingChooser().ut_encoding()) {}

  // Returns null, and the reason in `failure`, if the library cannot be used in that direction.
  const v2vTranslatorLibrary* find(const utString& library, bool for_output, utString& failure) {
    const apPathName path(encoding_->to_apString(library), encoding_);
    auto [entry, added] = open_.try_emplace(library);
    if (added) entry->second = loader_.load_library_path(path);
    if (!entry->second) {
      failure = utString("its translator ") + library + " cannot be used: " + loader_.failure(path);
      return nullptr;
    }
    const bool serves = for_output ? entry->second->is_output() : entry->second->is_input();
    if (!serves) failure = utString("its translator ") + library + (for_output ? " writes nothing" : " reads nothing");
    return serves ? entry->second.get() : nullptr;
  }

 private:
  const v2vTranslatorLoader& loader_;
  const apIStringEncoding* encoding_;
  std::map<utString, std::unique_ptr<v2vTranslatorLibrary>> open_;
};

std::vector<v2vInputTask> make_tasks(const v2vTranslatorElementscoPageArr& inputs, Libraries& libraries) {
  std::vector<v2vInputTask> tasks;
  for (std::size_t i = 0; i < inputs.count(); ++i) {
    v2vInputTask task{&inputs[i], nullptr, "no translator reads it"};
    if (!inputs[i].invalid()) task.library = libraries.find(inputs[i].library(), false, task.failure);
    tasks.push_back(std::move(task));
  }
  return tasks;
}

bool read_all(const v2vTranslatorElementscoPageArr& inputs, v2vEmptyInput empty_input, Libraries& libraries,
              const velabsAppInfo* app_info, v2vThreadComm& comm, v2vReport& report, annDocument& document) {
  std::vector<v2vInputModel> models;
  const bool read = v2v_read_inputs(make_tasks(inputs, libraries), empty_input, app_info, report, comm, models);
  if (!read || report.cancelled()) return false;
  v2v_merge(models, document, report);
  return true;
}

bool run(const velabsAppInfo* app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
         const v2vTranslationElements& elements, v2vReport& report) {
  for (const utString& warning : elements.warnings()) report.message(velabsWARNING, warning);
  const v2vOutputTranslatorElements& output = elements.output();
  const std::vector<utString> reasons = v2v_reasons_against(elements);
  for (const utString& reason : reasons) report.message(velabsERROR, reason);
  if (!reasons.empty()) return false;

  Libraries libraries(loader, app_info);
  utString failure;
  const v2vTranslatorLibrary* writer = libraries.find(output.library(), true, failure);
  if (!writer) {
    report.message(velabsERROR, utString("cannot write ") + output.file() + ": " + failure);
    return false;
  }

  annDocument own;
  annDocument& document = output.document() ? *output.document() : own;
  const bool written = read_all(elements.inputs(), v2vEmptyInput::fails, libraries, app_info, comm, report, document) &&
                       v2v_write_output(elements, *writer, document, app_info, report);
  if (written) {
    report.finished();
  } else if (report.cancelled()) {
    report.message(velabsERROR, output.file() + ": the translation was cancelled; nothing was written");
  }
  return written;
}

// Runs `work` on `inputs` files, catches every exception and counts every input. Inputs that were not reached are
// counted as failed. Returns 1 if the work succeeded.
template <typename Work>
int guarded_request(std::size_t inputs, v2vThreadComm& comm, utObserverPtr<velabsOutput> primary,
                    utObserverPtr<velabsOutput> secondary, Work work) {
  const int counted_before = comm.current_translation_details().num_processed();
  bool done = false;
  utString failure;
  const bool returned = v2v_guarded(
      [&] {
        v2vReport report(comm, primary, secondary, inputs);
        utString thrown;
        if (!v2v_guarded([&] { done = work(report); }, thrown)) {
          report.message(velabsERROR, utString("the translation failed: ") + thrown);
        }
      },
      failure);
  const int counted = comm.current_translation_details().num_processed() - counted_before;
  for (auto i = static_cast<std::size_t>(counted); i < inputs; ++i) comm.count_file(true);
  return returned && done ? 1 : 0;
}

}  // namespace

int v2vVel2vel::translate(utObserverPtr<velabsAppInfo> app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
                          const v2vTranslationElements& elements, utObserverPtr<velabsOutput> primary,
                          utObserverPtr<velabsOutput> secondary) const {
  return guarded_request(elements.inputs().count(), comm, primary, secondary,
                         [&](v2vReport& report) { return run(app_info.get(), comm, loader, elements, report); });
}

int v2vVel2vel::read(utObserverPtr<velabsAppInfo> app_info, v2vThreadComm& comm, const v2vTranslatorLoader& loader,
                     const v2vTranslatorElementscoPageArr& inputs, annDocument& document,
                     utObserverPtr<velabsOutput> primary, utObserverPtr<velabsOutput> secondary) const {
  return guarded_request(inputs.count(), comm, primary, secondary, [&](v2vReport& report) {
    if (inputs.empty()) {
      report.message(velabsERROR, "there is no input file");
      return false;
    }
    Libraries libraries(loader, app_info.get());
    return read_all(inputs, v2vEmptyInput::warns, libraries, app_info.get(), comm, report, document);
  });
}

void v2vVel2vel::report_input_without_translator(const utString& file, utObserverPtr<velabsOutput> primary,
                                                 utObserverPtr<velabsOutput> secondary) const {
  const v2vThreadComm comm;
  v2vReport report(comm, primary, secondary, 0);
  report.message(velabsERROR, file + ": " + v2v_reason_against_input(file));
}
