#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "ChildProcess.h"
#include "TemporaryDirectory.h"
#include "apFrustrumChooser.h"
#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"
#include "velabsLibInput.h"
#include "velabsLibOutput.h"
#include "vlnFindFileByExtension.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDllsFactory.h"
#include "vlnTranslatorSearchPath.h"

namespace {

constexpr int copies_of_each = 25;

// Copies of the real translators, so that there are many libraries to open. The directories are those of an
// installation, because some translators find shared libraries by a relative path.
const std::string& libraries() {
  static const TemporaryDirectory root;
  static const std::string path = [] {
    namespace fs = std::filesystem;
    const fs::path built = fs::path(VEL_TRANSLATORS).parent_path().parent_path().parent_path();
    const fs::path copies = root / "sys/exec/lib";
    fs::create_directories(copies);
    fs::create_directory_symlink(built / "lib", root / "lib");
    for (const auto& entry : fs::directory_iterator(VEL_TRANSLATORS)) {
      for (int i = 0; i < copies_of_each; ++i) {
        fs::copy_file(entry.path(), copies / (std::to_string(i) + entry.path().filename().string()));
      }
    }
    return copies.string();
  }();
  return path;
}

// Libraries stay mapped once they were opened, so each measurement runs in a separate process.
void measure(benchmark::State& state, const std::function<bool()>& work) {
  libraries();
  for (auto _ : state) {
    const double seconds = seconds_in_child(work);
    if (seconds < 0) {
      state.SkipWithError("a library was not described");
      break;
    }
    state.SetIterationTime(seconds);
  }
}

bool ask(const velabsLibBase& object) {
  intcoSet types;
  utStringcoSet extensions;
  object.file_types(types);
  object.extensions(extensions);
  return object.format_name() && object.filter() && object.translator_category();
}

bool open_and_ask(const std::string& path, const velabsAppInfo& app_info) {
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!library) return false;
  using Number = int (*)();
  const auto number = reinterpret_cast<Number>(dlsym(library, "velabs_interface_number"));
  if (!number || number() != velabs_interface) return false;
  if (const auto write = reinterpret_cast<velabsWriteWrapper>(dlsym(library, "velabs_write_wrapper"))) {
    velabsOfStream stream("/tmp/unused");
    return ask(*std::unique_ptr<velabsLibOutput>(write(&stream, &app_info)));
  }
  const auto read = reinterpret_cast<velabsReadWrapper>(dlsym(library, "velabs_read_wrapper"));
  return read && ask(*std::unique_ptr<velabsLibInput>(read(&app_info)));
}

void bare_opening_and_asking(benchmark::State& state) {
  measure(state, [] {
    const velabsAppInfo app_info("bench", "1", "bench", "", "UTF-8");
    for (const auto& entry : std::filesystem::directory_iterator(libraries())) {
      if (!open_and_ask(entry.path().string(), app_info)) return false;
    }
    return true;
  });
}

void discovery(benchmark::State& state) {
  measure(state, [] {
    const apIStringEncoding* encoding = apStringEncodingChooser().ut_encoding();
    const velabsAppInfo app_info("bench", "1", "bench", "", "UTF-8");
    const apStringCompareInsensitive compare(encoding);
    const vlnFindFileByExtension lister(apFrustrumChooser().file_operations(), &compare);
    const vlnTranslatorSearchPath path(vlnSearchPath(encoding->to_apString(libraries())), &lister);
    const v2vTranslatorLoader loader;
    const vlnSecureTranslatorInfoFactory descriptions(&loader, encoding, &compare);
    const vlnTranslatorDllsFactory sets(encoding, &compare, &descriptions);
    std::unique_ptr<vlnTranslatorDlls> inputs, outputs;
    return sets.create_translator_dlls(apPathName(), path, "", &app_info, inputs, outputs).ok();
  });
}

}  // namespace

BENCHMARK(bare_opening_and_asking)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(discovery)->UseManualTime()->Unit(benchmark::kMillisecond);
