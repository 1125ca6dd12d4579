#include "igesReader.h"

#include <IGESCAFControl_Reader.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESEntity.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Protocol.hxx>
#include <Interface_Static.hxx>
#include <TDocStd_Document.hxx>
#include <XSControl_WorkSession.hxx>
#include <memory>
#include <utility>

#include "exaGeometry.h"
#include "exaOutput.h"
#include "exaProgress.h"
#include "exaSession.h"
#include "exaXcafReader.h"
#include "exaXcafTarget.h"
#include "igesContent.h"
#include "igesFormat.h"
#include "igesHidden.h"
#include "igesNames.h"
#include "igesNesting.h"
#include "velTrimOption.h"
#include "vltInput.h"
#include "vltScale.h"
#include "vltUp.h"

VELABS_INPUT_LIBRARY(igesReader)

namespace {

constexpr int percent_parsed = 20, percent_made = 90;

// These parameters of the kernel are global, so each reading sets all of them.
void set_parameters(const velTableInstance& resources) {
  const auto trim = resources.value<velTrimOption>("TRIM", velTRIM_AS_PREFERRED);
  const int modes[] = {0, 3, 2};  // as the file prefers, in space, in parameters
  Interface_Static::SetIVal("read.surfacecurve.mode", modes[trim]);
}

// The last line of a complete file is its terminate section: a "T" in column 73.
bool has_end(std::string_view bytes) {
  constexpr std::size_t looked_at = 1024, column = 72;
  constexpr std::string_view padding("\r\n \0", 4);
  bytes = bytes.substr(0, bytes.find_last_not_of(padding) + 1);
  std::string_view tail = bytes.substr(bytes.size() - std::min(bytes.size(), looked_at));
  while (!tail.empty()) {
    const std::size_t end = tail.find_last_not_of(padding);
    if (end == tail.npos) return false;
    tail = tail.substr(0, end + 1);
    const std::size_t start = tail.find_last_of("\r\n") + 1;
    const std::string_view line = tail.substr(start);
    if (line.size() > column) return line[column] == 'T';
    tail = tail.substr(0, start);
  }
  return false;
}

// Lower type numbers are curves, surfaces, constructed solids and placements. Boundaries of other solids refer to long
// lists of edges many times.
bool is_geometry(const Standard_Transient& entity) {
  constexpr int first_other = 200;
  const auto* const known = dynamic_cast<const IGESData_IGESEntity*>(&entity);
  return known && known->TypeNumber() < first_other;
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

  velabsResult run() {
    const bool done = session_.guarded("it cannot be read", [&] { return parse() && transfer(); });
    if (output_.cancelled()) return velabsCANCELLED;
    if (!done) return velabsFAILED;
    session_.tell_complaints();
    exaReadOptions options = exa_read_options(resources_);
    options.split_compounds = true;
    exaXcafReader reader(target_, options, std::move(hidden_), output_);
    const bool read = session_.guarded("its parts cannot be read", [&] { return reader.read(document_); });
    return read ? velabsDONE : velabsFAILED;
  }

 private:
  bool fail(const std::string& why) {
    if (!output_.cancelled()) output_.message(velabsERROR, utString(why + session_.reason()));
    return false;
  }

  bool parse() {
    reader_ = std::make_unique<IGESCAFControl_Reader>();
    set_parameters(resources_);
    reader_->SetNameMode(true);
    reader_->SetColorMode(resources_.value<utBool>("READ_MATERIALS", utTRUE) == utTRUE);
    reader_->SetLayerMode(false);
    const IFSelect_ReturnStatus status = reader_->ReadFile(file_.c_str());
    output_.progress(percent_parsed);
    if (status != IFSelect_RetDone) return fail("it is no whole IGES file");
    iges_repair_names(reader_->IGESModel());
    std::string fault = iges_nesting(reader_->IGESModel()).fault();
    if (fault.empty()) fault = exa_geometry_fault(reader_->IGESModel(), reader_->WS()->Protocol(), is_geometry);
    return fault.empty() || fail("it " + fault);
  }

  bool transfer() {
    target_ = exa_xcaf_target(reader_->IGESModel()->GlobalSection().UnitValue(), document_, output_);
    const Handle(exaProgress) progress = new exaProgress(output_, percent_parsed, percent_made);
    // The kernel reports a file without entities as a failure.
    const bool done = reader_->IGESModel()->NbEntities() == 0 || reader_->Transfer(target_, progress->Start());
    if (done) {
      iges_tell_left_out(*reader_, output_);
      hidden_ = iges_hidden(*reader_);
    }
    reader_.reset();
    return done || fail("its shapes cannot be made");
  }

  const utString& file_;
  const velTableInstance& resources_;
  annDocument& document_;
  velabsOutput& output_;
  exaSession session_;
  std::unique_ptr<IGESCAFControl_Reader> reader_;
  Handle(TDocStd_Document) target_;
  exaHidden hidden_;
};

}  // namespace

igesReader::igesReader() : vltDescribed(iges_format, "Reads solids and surfaces from IGES files.") {}

velabsResult igesReader::read(const utString& file, const velTableInstance& resources, annDocument& document,
                              velabsOutput& listener) {
  exaOutput output(listener);
  const std::optional<double> factor = vlt_scale(resources, output);
  if (!factor || !vlt_read_up(annUP_Z, resources, document, output)) return velabsFAILED;
  const std::unique_ptr<apMappedFile> mapped = vlt_open(file, output);
  if (!mapped || !vlt_is_byte_text(mapped->bytes(), output)) return velabsFAILED;
  if (!has_end(mapped->bytes())) {
    output.message(velabsERROR, "it is cut off: the terminate section is missing at its end");
    return velabsFAILED;
  }
  const velabsResult result = Reading(file, resources, document, output).run();
  document.scale(*factor);
  return result;
}
