#include <benchmark/benchmark.h>
#include <dirent.h>

#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ChildProcess.h"
#include "TemporaryDirectory.h"
#include "apFrustrumChooser.h"
#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"
#include "vlnFindFileByExtension.h"
#include "vlnSecureTranslatorInfoFactory.h"
#include "vlnTranslatorDllsFactory.h"
#include "vlnTranslatorSearchPath.h"

namespace {

// An installation with a given number of libraries, half of them readers, and a cache that lists all of them. The
// libraries are empty files: with a complete cache they are never opened.
class Installation {
 public:
  explicit Installation(int translators) {
    std::string cache;
    for (int i = 0; i < translators; ++i) {
      const std::string name = "translator" + std::to_string(i);
      directory_.write("lib/" + name + ".dll", "");
      cache += "{\n  \"" + name + ".dll\",\n  \"" + (i % 2 ? "input" : "output") + "\",\n  \"FORMAT" +
               std::to_string(i) + "\",\n  {\"STL\",\"OBJ\"},\n  {\"ex" + std::to_string(i) + "\",\"alt" +
               std::to_string(i) + "\"},\n  \"Format " + std::to_string(i) +
               " Files (*.ex)|*.ex\",\n  \"Mesh\",\n  \"\",\n  0\n}\n";
    }
    cache_ = directory_.write("translators.lst", cache);
  }

  std::string libraries() const { return directory_ / "lib"; }
  const std::string& cache() const { return cache_; }

  static const Installation& of(int translators) {
    static std::map<int, std::unique_ptr<Installation>> made;
    auto& entry = made[translators];
    if (!entry) entry = std::make_unique<Installation>(translators);
    return *entry;
  }

 private:
  TemporaryDirectory directory_;
  std::string cache_;
};

void plain_reading_and_listing(benchmark::State& state) {
  const Installation& installation = Installation::of(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    std::size_t bytes = 0;
    std::ifstream stream(installation.cache(), std::ios::binary);
    for (std::string line; std::getline(stream, line);) bytes += line.size();
    std::vector<std::string> names;
    DIR* directory = opendir(installation.libraries().c_str());
    while (const dirent* entry = readdir(directory)) names.emplace_back(entry->d_name);
    closedir(directory);
    benchmark::DoNotOptimize(bytes);
    benchmark::DoNotOptimize(names.data());
  }
}

// The two sets that a program has after its start.
struct Sets {
  std::unique_ptr<vlnTranslatorDlls> inputs, outputs;
};

bool start(const Installation& installation, std::size_t expected, Sets& sets) {
  static const apIStringEncoding* encoding = apStringEncodingChooser().ut_encoding();
  static const velabsAppInfo app_info("bench", "1", "bench", "", "UTF-8");
  static const apStringCompareInsensitive compare(encoding);
  static const v2vTranslatorLoader loader;
  const vlnFindFileByExtension lister(apFrustrumChooser().file_operations(), &compare);
  const vlnTranslatorSearchPath path(vlnSearchPath(encoding->to_apString(installation.libraries())), &lister);
  const vlnSecureTranslatorInfoFactory descriptions(&loader, encoding, &compare);
  const vlnTranslatorDllsFactory factory(encoding, &compare, &descriptions);
  const vlnTranslatorLoadStatus status = factory.create_translator_dlls(
      apPathName(encoding->to_apString(installation.cache())), path, "", &app_info, sets.inputs, sets.outputs);
  return status.ok() && sets.inputs->count() + sets.outputs->count() == expected;
}

void cached_start(benchmark::State& state) {
  const auto translators = static_cast<std::size_t>(state.range(0));
  const Installation& installation = Installation::of(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Sets sets;
    if (!start(installation, translators, sets)) state.SkipWithError("the start was not served by the cache");
    state.PauseTiming();
    sets = Sets();
    state.ResumeTiming();
  }
}

// Measures the start in a new process, without the memory of an earlier start.
void first_cached_start(benchmark::State& state) {
  const auto translators = static_cast<std::size_t>(state.range(0));
  const Installation& installation = Installation::of(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    Sets sets;
    const double seconds = seconds_in_child([&] { return start(installation, translators, sets); });
    if (seconds < 0) {
      state.SkipWithError("the start was not served by the cache");
      break;
    }
    state.SetIterationTime(seconds);
  }
}

}  // namespace

BENCHMARK(plain_reading_and_listing)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(cached_start)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(first_cached_start)->Arg(1000)->Arg(10000)->UseManualTime()->Unit(benchmark::kMicrosecond);
