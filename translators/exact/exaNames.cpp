#include "exaNames.h"

#include <TDataStd_Name.hxx>
#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace {

bool is_number(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

}  // namespace

utString exa_name_of(const TDF_Label& label) {
  Handle(TDataStd_Name) name;
  if (!label.FindAttribute(TDataStd_Name::GetID(), name)) return {};
  std::string text(static_cast<std::size_t>(name->Get().LengthOfCString()) + 1, '\0');
  Standard_PCharacter bytes = text.data();
  name->Get().ToUTF8CString(bytes);
  text.resize(text.find('\0'));
  return utString(text);
}

bool exa_is_generated(const utString& name) {
  return name.empty() || name.str().starts_with("=>[");
}

bool exa_is_shape_type(const utString& name) {
  constexpr std::array types{"COMPOUND", "COMPSOLID", "SOLID", "SHELL", "FACE", "WIRE", "EDGE", "VERTEX"};
  return std::any_of(types.begin(), types.end(), [&](const char* type) { return name == type; });
}

bool exa_names_instance(const utString& name) {
  constexpr std::string_view counted = "NAUO";
  const std::string_view text = name.view();
  if (exa_is_generated(name) || is_number(text)) return false;
  return !text.starts_with(counted) || !is_number(text.substr(counted.size()));
}
