#include "stepContent.h"

#include <HeaderSection_FileSchema.hxx>
#include <Interface_HArray1OfHAsciiString.hxx>
#include <StepShape_ConnectedFaceSet.hxx>
#include <StepShape_Face.hxx>
#include <StepShape_GeometricSet.hxx>
#include <StepShape_SolidModel.hxx>
#include <StepVisual_PresentationLayerAssignment.hxx>
#include <TCollection_HAsciiString.hxx>
#include <string_view>
#include <unordered_map>

#include "vltNames.h"
#include "vltOnce.h"

namespace {

bool holds_shapes(const StepData_StepModel& model) {
  for (int i = 1; i <= model.NbEntities(); ++i) {
    const Handle(Standard_Transient) entity = model.Value(i);
    if (entity->IsKind(STANDARD_TYPE(StepShape_Face)) || entity->IsKind(STANDARD_TYPE(StepShape_ConnectedFaceSet)) ||
        entity->IsKind(STANDARD_TYPE(StepShape_GeometricSet)) || entity->IsKind(STANDARD_TYPE(StepShape_SolidModel))) {
      return true;
    }
  }
  return false;
}

std::string schema_of(const StepData_StepModel& model) {
  const auto header =
      Handle(HeaderSection_FileSchema)::DownCast(model.HeaderEntity(STANDARD_TYPE(HeaderSection_FileSchema)));
  if (header.IsNull() || header->SchemaIdentifiers().IsNull() || header->NbSchemaIdentifiers() == 0) return "";
  const Handle(TCollection_HAsciiString) schema = header->SchemaIdentifiersValue(1);
  if (schema.IsNull()) return "";
  // Numbers in braces may follow the name.
  const std::string_view name = schema->ToCString();
  return std::string(name.substr(0, name.find(' ')));
}

// The kernel's classes are named after the entity types of the schema.
bool is_measured_or_annotated(std::string_view type) {
  for (const char* family : {"StepDimTol_", "StepShape_DimensionalLocation", "StepShape_DimensionalSize",
                             "StepShape_AngularLocation", "StepShape_AngularSize", "StepVisual_Annotation",
                             "StepVisual_DraughtingCallout", "StepVisual_TessellatedAnnotation"}) {
    if (type.starts_with(family)) return true;
  }
  return false;
}

}  // namespace

std::string step_why_empty(const Handle(StepData_StepModel) & model) {
  if (holds_shapes(*model)) return "its shapes cannot be made";
  const std::string schema = schema_of(*model);
  return "it holds no solid, shell or face; " +
         (schema.empty() ? "it names no schema" : "its schema is " + vlt_quoted(schema, 80));
}

void step_tell_left_out(const Handle(StepData_StepModel) & model, velabsOutput& output) {
  std::unordered_map<const Standard_Type*, std::size_t> types;
  std::size_t measured = 0, layers = 0;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    ++types[model->Value(i)->DynamicType().get()];
  }
  for (const auto& [type, count] : types) {
    if (is_measured_or_annotated(type->Name())) measured += count;
    if (type->SubType(STANDARD_TYPE(StepVisual_PresentationLayerAssignment))) layers += count;
  }
  vltOnce findings(output);
  if (measured > 0) findings.count(velabsNOTE, "dimensions, tolerances and annotations are left out", 0, measured);
  if (layers > 0) findings.count(velabsNOTE, "layers are left out", 0, layers);
  findings.tell();
}
