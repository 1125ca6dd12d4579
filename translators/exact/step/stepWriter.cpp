#include "stepWriter.h"

#include <Interface_Static.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <StepData_Protocol.hxx>
#include <StepData_StepModel.hxx>
#include <StepData_StepWriter.hxx>
#include <StepShape_Face.hxx>
#include <XSControl_TransferWriter.hxx>
#include <XSControl_WorkSession.hxx>

#include "exaOutput.h"
#include "exaProgress.h"
#include "exaSession.h"
#include "exaUnits.h"
#include "exaWriting.h"
#include "exaXcafWriter.h"
#include "stepFormat.h"
#include "stepHeader.h"
#include "stepInstances.h"
#include "stepStatedUnits.h"
#include "stepStyleOrder.h"
#include "stepText.h"
#include "utBool.h"
#include "velAngularUnit.h"
#include "velStepAPOption.h"
#include "velTrimOption.h"
#include "vltScale.h"

VELABS_OUTPUT_LIBRARY(stepWriter)

namespace {

struct UnitName {
  velLengthUnit unit;
  const char* name;
};

constexpr UnitName unit_names[] = {
    {velLENGTH_MICROMETRE, "UM"}, {velLENGTH_MILLIMETRE, "MM"}, {velLENGTH_CENTIMETRE, "CM"}, {velLENGTH_METRE, "M"},
    {velLENGTH_KILOMETRE, "KM"},  {velLENGTH_MICROINCH, "UIN"}, {velLENGTH_MIL, "MIL"},       {velLENGTH_INCH, "INCH"},
    {velLENGTH_FOOT, "FT"},       {velLENGTH_YARD, "FT"},       {velLENGTH_MILE, "MI"}};

const char* name_of(velLengthUnit unit) {
  for (const UnitName& entry : unit_names) {
    if (entry.unit == unit) return entry.name;
  }
  return "MM";
}

const char* schema_of(velStepAPOption protocol) {
  if (protocol == velSTEP_AP203) return "AP203";
  return protocol == velSTEP_AP242 ? "AP242DIS" : "AP214IS";
}

velAngularUnit angle_of(const velTableInstance& resources) {
  return resources.value<velAngularUnit>("ANGULAR_UNIT", velANGLE_RADIAN);
}

// These parameters of the kernel are global, so each writing sets all of them.
void set_parameters(const velTableInstance& resources, velLengthUnit unit) {
  const auto protocol = resources.value<velStepAPOption>("STEP_AP", velSTEP_AP214);
  const auto trim = resources.value<velTrimOption>("TRIM", velTRIM_AS_PREFERRED);
  Interface_Static::SetCVal("write.step.schema", schema_of(protocol));
  Interface_Static::SetCVal("write.step.unit", name_of(unit));
  // The parameters of round surfaces are angles, which the kernel writes in radians.
  const bool parameters = trim != velTRIM_MODEL_SPACE && angle_of(resources) == velANGLE_RADIAN;
  Interface_Static::SetIVal("write.surfacecurve.mode", parameters ? 1 : 0);
  Interface_Static::SetCVal("write.step.product.name", "part");
}

std::size_t face_count(const StepData_StepModel& model) {
  std::size_t count = 0;
  for (int i = 1; i <= model.NbEntities(); ++i) count += model.Value(i)->IsKind(STANDARD_TYPE(StepShape_Face));
  return count;
}

class Writing {
 public:
  Writing(const velTableInstance& resources, velLengthUnit unit, utString name, velabsOutput& output)
      : resources_(resources), unit_(unit), name_(std::move(name)), output_(output), session_(output) {}

  bool write(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top, velabsOfStream& stream) {
    return session_.guarded("it cannot be written", [&] { return put(products, top, stream); });
  }

 private:
  bool put(const std::vector<exaProduct>& products, const std::vector<exaProduct::Use>& top, velabsOfStream& stream) {
    const bool with_colours = resources_.value<utBool>("WRITE_MATERIALS", utTRUE) == utTRUE;
    // The kernel cannot write yards, so it writes these numbers as feet.
    const velLengthUnit made = unit_ == velLENGTH_YARD ? velLENGTH_FOOT : unit_;
    const Handle(TDocStd_Document) source =
        exa_xcaf_document(products, top, exa_millimetres(made), with_colours, {name_, "part"}, output_);
    STEPCAFControl_Writer writer;
    set_parameters(resources_, unit_);
    // The schema is read when a model is made.
    writer.ChangeWriter().Model(true);
    writer.SetColorMode(with_colours);
    writer.SetNameMode(true);
    writer.SetLayerMode(false);
    writer.SetPropsMode(false);
    writer.SetSHUOMode(false);
    writer.SetDimTolMode(false);
    writer.SetMaterialMode(false);
    const Handle(exaProgress) progress = new exaProgress(output_, 10, 80);
    const bool done = writer.Transfer(source, STEPControl_AsIs, nullptr, progress->Start());
    if (output_.cancelled()) return false;
    if (!done) {
      output_.message(velabsERROR, utString("its shapes cannot be written as STEP" + session_.reason()));
      return false;
    }
    const Handle(StepData_StepModel) model = writer.ChangeWriter().Model();
    if (output_.cancelled()) return false;
    if (!exa_tell_missing(exa_face_count(products), face_count(*model), "STEP", session_.reason(), output_))
      return false;
    step_name_instances(source, writer.ChangeWriter().WS()->TransferWriter()->FinderProcess(), model);
    if (unit_ == velLENGTH_YARD) step_state_yards(model);
    step_state_angles(model, angle_of(resources_));
    step_order_styles(model);
    step_make_repeatable(model, exa_stem(stream.target()));
    StepData_StepWriter text(model);
    text.SendModel(Handle(StepData_Protocol)::DownCast(model->Protocol()));
    return step_print(text, stream, output_);
  }

  const velTableInstance& resources_;
  velLengthUnit unit_;
  utString name_;
  velabsOutput& output_;
  exaSession session_;
};

}  // namespace

stepWriter::stepWriter(velabsOfStream* stream)
    : vltDescribed(step_format, "Writes assemblies of exact shapes to STEP files."), stream_(*stream) {}

velabsResult stepWriter::write(const annDocument& document, const velTableInstance& resources, velabsOutput& listener) {
  exaOutput output(listener);
  const velLengthUnit unit = exa_written_unit(resources, document);
  const std::optional<double> factor = vlt_output_scale_to(unit, resources, document, output);
  if (!factor) return velabsFAILED;
  exaProducts products(document, "STEP", resources, *factor, output);
  if (!products.make()) return output.cancelled() ? velabsCANCELLED : velabsFAILED;
  exa_tell_losses(document, "STEP", true, output);
  const utString name = document.root.name.empty() ? exa_stem(stream_.target()) : document.root.name;
  Writing writing(resources, unit, name, output);
  const bool done = exa_write_files(
      products, resources, stream_, output,
      [&](const auto& parts, const auto& top, velabsOfStream& stream) { return writing.write(parts, top, stream); });
  if (output.cancelled()) return velabsCANCELLED;
  return done ? velabsDONE : velabsFAILED;
}
