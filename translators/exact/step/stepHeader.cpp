#include "stepHeader.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <Interface_HArray1OfHAsciiString.hxx>
#include <StepRepr_NextAssemblyUsageOccurrence.hxx>
#include <TCollection_HAsciiString.hxx>
#include <string>

#include "exaWriting.h"
#include "vltUtf8.h"

namespace {

Handle(TCollection_HAsciiString) text(const std::string& value) {
  return new TCollection_HAsciiString(value.c_str());
}

Handle(Interface_HArray1OfHAsciiString) list(const char* value) {
  const Handle(Interface_HArray1OfHAsciiString) result = new Interface_HArray1OfHAsciiString(1, 1);
  result->SetValue(1, text(value));
  return result;
}

}  // namespace

void step_make_repeatable(const Handle(StepData_StepModel) & model, const utString& name) {
  APIHeaderSection_MakeHeader header(model);
  header.SetName(text(vlt_as_utf8(name.view())));
  header.SetTimeStamp(text(exa_time_stamp("%Y-%m-%dT%H:%M:%S")));
  header.SetAuthor(list(""));
  header.SetOrganization(list(""));
  header.SetPreprocessorVersion(text("Open CASCADE 7"));
  header.SetOriginatingSystem(text("vel"));
  header.SetAuthorisation(text(""));
  header.SetDescription(list("model"));
  header.Apply(model);

  int number = 0;
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const auto use = Handle(StepRepr_NextAssemblyUsageOccurrence)::DownCast(model->Value(i));
    if (!use.IsNull()) use->SetId(text(std::to_string(++number)));
  }
}
