#include "v2vWriting.h"

#include <memory>
#include <vector>

#include "v2vGuard.h"

namespace {

// Why the document could not be written. Null if the stream has the complete document, empty if the writer already
// reported the error.
utString write_document(const v2vOutputTranslatorElements& elements, const v2vTranslatorLibrary& library,
                        const annDocument& document, const velabsAppInfo* app_info, velabsOfStream& stream,
                        v2vWritingOutput& output) {
  static const velTableInstance no_resources;
  const velTableInstance* resources = elements.resources();

  // Destroyed before the stream is committed, because a writer may flush in its destructor.
  const std::unique_ptr<velabsLibOutput> writer(library.write_wrapper()(&stream, app_info));
  if (!writer) return "its translator gave no writer";
  const velabsResult result = writer->write(document, resources ? *resources : no_resources, output);
  if (result == velabsDONE) return {};
  return output.told_error() ? "" : "its translator gave up";
}

std::vector<utString> input_files(const v2vTranslatorElementscoPageArr& inputs) {
  std::vector<utString> files;
  for (std::size_t i = 0; i < inputs.count(); ++i) files.push_back(inputs[i].file());
  return files;
}

}  // namespace

bool v2v_write_output(const v2vTranslationElements& elements, const v2vTranslatorLibrary& library,
                      const annDocument& document, const velabsAppInfo* app_info, v2vReport& report) {
  const utString& file = elements.output().file();
  velabsOfStream stream(file, input_files(elements.inputs()));
  v2vWritingOutput output(report, file);
  utString failure;
  v2v_guarded([&] { failure = write_document(elements.output(), library, document, app_info, stream, output); },
              failure);
  if (report.cancelled()) return false;

  if (failure.is_null()) v2v_guarded([&] { stream.commit(); }, failure);
  // A failed write (for example a full disk) causes other errors in the translator, so it is reported instead.
  if (const utString reason = stream.failure_of_any(); !reason.is_null()) failure = reason;
  if (!failure.empty()) report.message(velabsERROR, utString("cannot write ") + file + ": " + failure);
  const utString told = stream.told_of_companions();
  if (failure.is_null() && !told.is_null()) output.message(velabsNOTE, told);
  return failure.is_null();
}
