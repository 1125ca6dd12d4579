#include "stepContent.h"

#include <HeaderSection_FileSchema.hxx>
#include <Interface_HArray1OfHAsciiString.hxx>
#include <StepShape_ConnectedFaceSet.hxx>
#include <StepShape_Face.hxx>
#include <StepShape_GeometricSet.hxx>
#include <StepShape_SolidModel.hxx>
#include <TCollection_HAsciiString.hxx>
#include <string_view>

#include "vltNames.h"

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

}  // namespace

std::string step_why_empty(const Handle(StepData_StepModel) & model) {
  if (holds_shapes(*model)) return "its shapes cannot be made";
  const std::string schema = schema_of(*model);
  return "it holds no solid, shell or face; " +
         (schema.empty() ? "it names no schema" : "its schema is " + vlt_quoted(schema, 80));
}
