#include "vluFileTypeInfo.h"

namespace {

struct TypeName {
  vluFileType type;
  const char* name;
};

constexpr TypeName type_names[] = {
    {vluUNKNOWN, "Unknown"}, {vluSTL, "STL"}, {vluOBJ, "OBJ"}, {vluPLY, "PLY"},   {vluOFF, "OFF"},   {vluGLTF, "glTF"},
    {vluGLB, "GLB"},         {vlu3MF, "3MF"}, {vluHPF, "HPF"}, {vluSTEP, "STEP"}, {vluIGES, "IGES"}, {vluBREP, "BREP"},
};

}  // namespace

utString vluFileTypeInfo::name(vluFileType type) {
  for (const TypeName& entry : type_names) {
    if (entry.type == type) return entry.name;
  }
  return type_names[0].name;
}

bool vluFileTypeInfo::type_by_name(const utString& name, vluFileType& type) {
  for (const TypeName& entry : type_names) {
    if (name != entry.name) continue;
    type = entry.type;
    return true;
  }
  return false;
}
