#include "igesNames.h"

#include <IGESBasic_Name.hxx>
#include <IGESData_IGESEntity.hxx>
#include <TCollection_HAsciiString.hxx>
#include <string_view>

#include "vltUtf8.h"

namespace {

// The name in UTF-8; null when it already is.
Handle(TCollection_HAsciiString) repaired(const Handle(TCollection_HAsciiString) & name) {
  if (name.IsNull()) return nullptr;
  const std::string_view bytes(name->ToCString());
  if (vlt_is_utf8(bytes)) return nullptr;
  return new TCollection_HAsciiString(vlt_utf8_or_latin1(bytes).c_str());
}

}  // namespace

void iges_repair_names(const Handle(IGESData_IGESModel) & model) {
  for (int i = 1; i <= model->NbEntities(); ++i) {
    const Handle(IGESData_IGESEntity) entity = model->Entity(i);
    if (const auto name = Handle(IGESBasic_Name)::DownCast(entity)) {
      if (const auto text = repaired(name->Value())) name->Init(name->NbPropertyValues(), text);
    }
    if (!entity->HasShortLabel()) continue;
    if (const auto text = repaired(entity->ShortLabel())) {
      entity->SetLabel(text, entity->HasSubScriptNumber() ? entity->SubScriptNumber() : -1);
    }
  }
}
