// lib3mf_judge FILE: reads a 3MF file with lib3mf in strict mode, none of our code, and prints what lib3mf finds as
// JSON:
//
//   {"warnings": [], "manifold": [true], "triangles": 12}
//
// "manifold" is of each mesh, "triangles" of all that the build items place. Ends with 1 when lib3mf refuses the file,
// and prints {"error": "..."}.

#include <cstdio>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "Model/COM/NMR_DLLInterfaces.h"

namespace {

using namespace NMR;
using nlohmann::json;

void check(LIB3MFRESULT result, PLib3MFBase* object, const char* action) {
  if (result == 0) return;
  DWORD code = 0;
  LPCSTR text = nullptr;
  lib3mf_getlasterror(object, &code, &text);
  throw std::runtime_error(std::string(action) + ": " + (text ? text : "no message"));
}

// An object of lib3mf, released at the end.
class Handle {
 public:
  Handle() = default;
  ~Handle() {
    if (pointer_) lib3mf_release(pointer_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  PLib3MFBase** out() { return &pointer_; }
  operator PLib3MFBase*() const { return pointer_; }  // NOLINT: the C interface takes pointers

 private:
  PLib3MFBase* pointer_ = nullptr;
};

json warnings_of(PLib3MFBase* reader) {
  json warnings = json::array();
  DWORD count = 0;
  lib3mf_reader_getwarningcount(reader, &count);
  for (DWORD i = 0; i < count; ++i) {
    char text[1000] = "";
    DWORD code = 0;
    ULONG size = 0;
    lib3mf_reader_getwarningutf8(reader, i, &code, text, sizeof text, &size);
    warnings.push_back(text);
  }
  return warnings;
}

template <typename Visit>
void for_each_mesh(PLib3MFBase* model, Visit visit) {
  Handle meshes;
  check(lib3mf_model_getmeshobjects(model, meshes.out()), model, "listing the meshes");
  BOOL more = 0;
  for (lib3mf_resourceiterator_movenext(meshes, &more); more; lib3mf_resourceiterator_movenext(meshes, &more)) {
    Handle object;
    check(lib3mf_resourceiterator_getcurrent(meshes, object.out()), meshes, "listing the meshes");
    visit(static_cast<PLib3MFBase*>(object));
  }
}

// All build items, merged by lib3mf into one mesh.
DWORD placed_triangles(PLib3MFBase* model) {
  Handle merged;
  check(lib3mf_model_mergetomodel(model, merged.out()), model, "placing the build items");
  DWORD all_triangles = 0;
  for_each_mesh(merged, [&](PLib3MFBase* mesh) {
    DWORD triangles = 0;
    lib3mf_meshobject_gettrianglecount(mesh, &triangles);
    all_triangles += triangles;
  });
  return all_triangles;
}

json judged(const char* file) {
  Handle model, reader;
  check(lib3mf_createmodel(model.out()), model, "making a model");
  check(lib3mf_model_queryreader(model, "3mf", reader.out()), model, "making a reader");
  check(lib3mf_reader_setstrictmodeactive(reader, 1), reader, "asking for strict mode");
  check(lib3mf_reader_readfromfileutf8(reader, file), reader, "reading");
  json result{{"warnings", warnings_of(reader)}, {"manifold", json::array()}};
  for_each_mesh(model, [&](PLib3MFBase* mesh) {
    BOOL manifold = 0;
    lib3mf_meshobject_ismanifoldandoriented(mesh, &manifold);
    result["manifold"].push_back(manifold != 0);
  });
  result["triangles"] = placed_triangles(model);
  return result;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("usage: lib3mf_judge FILE\n", stderr);
    return 2;
  }
  try {
    std::puts(judged(arguments[1]).dump().c_str());
    return 0;
  } catch (const std::exception& error) {
    std::puts(json{{"error", error.what()}}.dump().c_str());
    return 1;
  }
}
