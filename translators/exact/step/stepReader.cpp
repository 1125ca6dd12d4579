#include "stepReader.h"

#include <Interface_Static.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <StepData_StepModel.hxx>
#include <TDocStd_Document.hxx>
#include <XSControl_TransferReader.hxx>
#include <XSControl_WorkSession.hxx>
#include <filesystem>
#include <istream>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "exaOutput.h"
#include "exaProgress.h"
#include "exaSession.h"
#include "exaStreams.h"
#include "exaXcafReader.h"
#include "exaXcafTarget.h"
#include "stepContent.h"
#include "stepFaults.h"
#include "stepFormat.h"
#include "stepHidden.h"
#include "stepNumbers.h"
#include "stepReferences.h"
#include "stepText.h"
#include "stepUnits.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(stepReader)

namespace {

constexpr int percent_parsed = 40, percent_made = 90;

// The kernel looks for referenced files beside the path that it is given, so links are resolved.
std::string real_place(const utString& file) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(file.str(), error);
  return error ? file.str() : real.string();
}

class Reading {
 public:
  Reading(const utString& file, const velTableInstance& resources, annDocument& document, velabsOutput& output)
      : file_(file), resources_(resources), document_(document), output_(output), session_(output) {}

  // Destroying unfinished kernel objects may crash again.
  ~Reading() {
    exa_failure_of([reader = reader_.release()] { delete reader; });
  }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

  velabsResult run(std::string_view bytes) {
    bool whole = false;
    const bool done = session_.guarded("it cannot be read", [&] {
      whole = parse(bytes) && transfer();
      return true;
    });
    if (output_.cancelled()) return velabsCANCELLED;
    if (!done || !whole) return velabsFAILED;
    session_.tell_complaints();
    exaXcafReader reader(target_, exa_read_options(resources_), std::move(hidden_), output_);
    const bool read = session_.guarded("its products cannot be read", [&] { return reader.read(document_); });
    return read ? velabsDONE : velabsFAILED;
  }

 private:
  bool fail(const std::string& why) {
    if (!output_.cancelled()) output_.message(velabsERROR, utString(why + session_.reason()));
    return false;
  }

  bool parse(std::string_view bytes) {
    reader_ = std::make_unique<STEPCAFControl_Reader>();
    // These parameters of the kernel are global. Curves in the parameters of surfaces are read unchanged.
    Interface_Static::SetCVal("read.step.codepage", "UTF8");
    Interface_Static::SetIVal("read.surfacecurve.mode", 0);
    reader_->SetNameMode(true);
    reader_->SetColorMode(resources_.value<utBool>("READ_MATERIALS", utTRUE) == utTRUE);
    reader_->SetLayerMode(false);
    reader_->SetPropsMode(false);
    reader_->SetSHUOMode(false);
    reader_->SetGDTMode(false);
    reader_->SetMatMode(false);
    reader_->SetViewMode(false);
    if (const std::string fault = step_number_fault(bytes); !fault.empty()) return fail("it " + fault);
    const std::optional<std::string> repaired = step_repaired(bytes);
    exaInputBuffer buffer(repaired ? *repaired : bytes, &output_, percent_parsed);
    std::istream stream(&buffer);
    const IFSelect_ReturnStatus status = reader_->ChangeReader().ReadStream(real_place(file_).c_str(), stream);
    if (output_.cancelled()) return false;
    if (status != IFSelect_RetDone) return fail("it is no whole STEP file");
    const std::string fault = step_fault(reader_->Reader(), bytes);
    if (!fault.empty()) return fail("it " + fault);
    return step_settle_references(reader_->ChangeReader(), file_, output_);
  }

  bool transfer() {
    target_ = exa_xcaf_target(step_unit_of(reader_->Reader().StepModel()), document_, output_);
    const Handle(exaProgress) progress = new exaProgress(output_, percent_parsed, percent_made);
    const Handle(StepData_StepModel) model = reader_->Reader().StepModel();
    // The kernel reports a file without entities as a failure.
    const bool done = model->NbEntities() == 0 || reader_->Transfer(target_, progress->Start());
    if (done) {
      step_tell_left_out(model, output_);
      hidden_ = step_hidden(model, reader_->Reader().WS()->TransferReader()->TransientProcess(), output_);
    } else {
      fail(step_why_empty(model));
    }
    reader_.reset();
    return done;
  }

  const utString& file_;
  const velTableInstance& resources_;
  annDocument& document_;
  velabsOutput& output_;
  exaSession session_;
  std::unique_ptr<STEPCAFControl_Reader> reader_;
  Handle(TDocStd_Document) target_;
  exaHidden hidden_;
};

}  // namespace

stepReader::stepReader() : vltDescribed(step_format, "Reads assemblies of exact shapes from STEP files.") {}

velabsResult stepReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                              velabsOutput& listener) {
  exaOutput output(listener);
  const std::optional<double> factor = vlt_scale(resources, output);
  if (!factor || !vlt_read_up(annUP_Z, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped || !vlt_is_byte_text(mapped->bytes(), output)) return velabsFAILED;
  const velabsResult result = Reading(file, resources, document, output).run(mapped->bytes());
  document.scale(*factor);
  return result;
}
