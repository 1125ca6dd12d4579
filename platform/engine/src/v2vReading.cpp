#include "v2vReading.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <thread>

#include "v2vDocumentCheck.h"
#include "v2vGuard.h"

namespace {

// Why the input could not be read. Null if its document is complete, empty if the reader already reported the error.
utString read_document(const v2vInputTask& task, v2vEmptyInput empty_input, const velabsAppInfo* app_info,
                       v2vInputOutput& output, annDocument& document) {
  if (!task.library) return task.failure;
  static const velTableInstance no_resources;
  const velTableInstance* resources = task.elements->resources();

  const std::unique_ptr<velabsLibInput> reader(task.library->read_wrapper()(app_info));
  if (!reader) return "its translator gave no reader";
  const velabsResult result =
      reader->read(task.elements->file(), resources ? *resources : no_resources, document, output);
  if (result == velabsCANCELLED) return "the reading was stopped";
  if (result != velabsDONE) return output.told_error() ? "" : "it could not be read";
  if (const utString fault = v2v_fault_of(document); !fault.is_null() || !v2v_is_empty(document)) return fault;
  const utString empty = "the model is empty: it has no vertices, faces or shapes";
  if (empty_input == v2vEmptyInput::fails) return empty;
  output.message(velabsWARNING, empty);
  document.root.children.clear();
  document.root.body = {};
  return {};
}

bool read_input(const v2vInputTask& task, v2vEmptyInput empty_input, const velabsAppInfo* app_info, v2vReport& report,
                std::size_t input, v2vInputModel& model) {
  if (report.cancelled()) return false;
  v2vInputOutput output(report, input, task.elements->file());
  utString failure;
  v2v_guarded([&] { failure = read_document(task, empty_input, app_info, output, model.document); }, failure);
  if (failure.is_null()) return true;

  model.document = annDocument();
  // The reason is not reported after a cancellation.
  if (!failure.empty() && !report.cancelled()) output.message(velabsERROR, failure);
  return false;
}

}  // namespace

bool v2v_read_inputs(const std::vector<v2vInputTask>& tasks, v2vEmptyInput empty_input, const velabsAppInfo* app_info,
                     v2vReport& report, v2vThreadComm& comm, std::vector<v2vInputModel>& models) {
  models.resize(tasks.size());
  for (std::size_t i = 0; i < tasks.size(); ++i) models[i].file = tasks[i].elements->file();

  std::atomic<std::size_t> next{0};
  std::atomic<bool> all_read{true};
  auto work = [&] {
    for (std::size_t i; (i = next.fetch_add(1)) < tasks.size();) {
      bool read = false;
      utString ignored;
      v2v_guarded([&] { read = read_input(tasks[i], empty_input, app_info, report, i, models[i]); }, ignored);
      v2v_guarded([&] { report.input_done(i); }, ignored);
      comm.count_file(!read);
      if (!read) all_read = false;
    }
  };

  {
    const std::size_t workers = std::min<std::size_t>(tasks.size(), std::max(1u, std::thread::hardware_concurrency()));
    std::vector<std::jthread> threads;
    try {
      for (std::size_t i = 1; i < workers; ++i) threads.emplace_back(work);
    } catch (const std::exception&) {
      // Continue with fewer threads.
    }
    work();
  }
  return all_read;
}
