#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <type_traits>
#include <vector>

#include "MeshFiles.h"
#include "ProgramRun.h"
#include "RatioReporter.h"
#include "TemporaryDirectory.h"

// Translations as a user runs them, each a whole process, compared with `cp` and with a program that does the minimum.

namespace {

using Words = std::vector<std::string>;

// The inputs, created once. Files in the program's own formats are written by the program.
class Inputs {
 public:
  Inputs() {
    setenv("QRM_HOME", directory_.path().c_str(), 1);
    make_binary_stl(file("1m.stl"), 1'000'000);
    make_binary_stl(file("1m_b.stl"), 1'000'000);
    make_ascii_stl(file("200k_ascii.stl"), 200'000);
    make_obj(file("200k.obj"), 200'000);
    make_binary_stl(file("10k.stl"), 10'000);
    make_binary_stl(file("100k.stl"), 100'000);
    make_binary_stl(file("5m.stl"), 5'000'000);
    run_program({VEL_PROGRAM, "cache", "refresh"});
    run_program({VEL_PROGRAM, "translate", file("1m.stl"), "-o", file("1m.hpf")});
    run_program({VEL_PROGRAM, "translate", file("1m.stl"), "-o", file("1m.obj")});
    run_program({VEL_PROGRAM, "translate", file("1m.stl"), "-o", file("1m_ascii.ply"), "--out", "FILE_FORMAT=ascii"});
    run_program({VEL_PROGRAM, "translate", file("1m.stl"), "-o", file("1m_ascii.stl"), "--out", "FILE_FORMAT=ascii"});
  }

  std::string file(const std::string& name) const { return directory_ / name; }

 private:
  TemporaryDirectory directory_;
};

const Inputs& inputs() {
  static const Inputs made;
  return made;
}

// Removes the output of an earlier run, because replacing a file waits for the disk.
std::string fresh(const std::string& name) {
  const std::string file = inputs().file(name);
  std::filesystem::remove(file);
  return file;
}

void translate(benchmark::State& state, const Words& in, const std::string& out, const Words& options) {
  Words words{VEL_PROGRAM, "translate", "--quiet"};
  for (const std::string& name : in) words.push_back(inputs().file(name));
  words.insert(words.end(), {"-o", fresh(out)});
  for (const std::string& option : options) words.insert(words.end(), {"--out", option});
  measure_program(state, words);
}

void info(benchmark::State& state, const std::string& in) {
  measure_program(state, {VEL_PROGRAM, "info", "--json", inputs().file(in)});
}

void copy(benchmark::State& state, const std::string& in, const std::string& out) {
  measure_program(state, {"cp", inputs().file(in), fresh(out)});
}

void bare(benchmark::State& state, const std::string& how, const std::string& in, const std::string& out) {
  measure_program(state, {VEL_BARE_TRANSLATION, how, inputs().file(in), fresh(out)});
}

template <typename... Arguments>
void add(const std::string& name, void (*work)(benchmark::State&, const Arguments&...),
         const std::type_identity_t<Arguments>&... arguments) {
  benchmark::RegisterBenchmark(name.c_str(), work, arguments...)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1)
      ->Repetitions(5);
}

void add_benchmarks() {
  const Words ascii{"FILE_FORMAT=ascii"};
  add("cp_1m_stl", copy, "1m.stl", "copy.stl");
  add("bare_weld_1m", bare, "weld", "1m.stl", "bare.ply");
  add("stl_to_ply_1m", translate, {"1m.stl"}, "vel.ply", {});
  add("stl_to_stl_1m", translate, {"1m.stl"}, "vel.stl", {});
  add("two_stl_to_ply_1m", translate, {"1m.stl", "1m_b.stl"}, "two.ply", {});
  add("two_stl_to_stl_1m", translate, {"1m.stl", "1m_b.stl"}, "two.stl", {});

  add("bare_ascii_200k", bare, "ascii", "200k_ascii.stl", "bare_a.stl");
  add("ascii_stl_to_stl_200k", translate, {"200k_ascii.stl"}, "vel_a.stl", {});
  add("bare_obj_200k", bare, "obj", "200k.obj", "bare_o.stl");
  add("obj_to_stl_200k", translate, {"200k.obj"}, "vel_o.stl", {});

  add("write_obj", translate, {"1m.hpf"}, "text.obj", {});
  add("read_obj", info, "1m.obj");
  add("write_ascii_ply", translate, {"1m.hpf"}, "text.ply", ascii);
  add("read_ascii_ply", info, "1m_ascii.ply");
  add("write_ascii_stl", translate, {"1m.hpf"}, "text.stl", ascii);
  add("read_ascii_stl", info, "1m_ascii.stl");

  add("cp_1m_hpf", copy, "1m.hpf", "copy.hpf");
  add("hpf_to_hpf_1m", translate, {"1m.hpf"}, "vel.hpf", {});

  add("grow_10k", translate, {"10k.stl"}, "grow.ply", {});
  add("grow_100k", translate, {"100k.stl"}, "grow.ply", {});
  add("grow_1m", translate, {"1m.stl"}, "grow.ply", {});
  add("grow_5m", translate, {"5m.stl"}, "grow.ply", {});
}

}  // namespace

int main(int argc, char** argv) {
  add_benchmarks();
  RatioReporter reporter;
  if (!run_benchmarks(argc, argv, 5, reporter)) return 1;

  std::puts("\nRatios of medians, whole processes");
  auto ratio = [&](const char* what, const char* measured, const char* floor, double bound) {
    const std::string how = "/iterations:1/repeats:5/manual_time";
    reporter.print_ratio(what, measured + how, floor + how, bound);
  };
  ratio("1M binary STL -> welded binary PLY / bare welding loop", "stl_to_ply_1m", "bare_weld_1m", 1.5);
  ratio("1M binary STL -> binary STL / bare welding loop", "stl_to_stl_1m", "bare_weld_1m", 2);
  ratio("1M binary STL -> binary STL / cp", "stl_to_stl_1m", "cp_1m_stl", 0);
  ratio("200k ASCII STL -> binary STL / bare loop", "ascii_stl_to_stl_200k", "bare_ascii_200k", 1.4);
  ratio("200k OBJ -> binary STL / bare loop", "obj_to_stl_200k", "bare_obj_200k", 1.5);
  ratio("HPF -> OBJ / reading that OBJ", "write_obj", "read_obj", 2);
  ratio("HPF -> ASCII PLY / reading that PLY", "write_ascii_ply", "read_ascii_ply", 2);
  ratio("HPF -> ASCII STL / reading that STL", "write_ascii_stl", "read_ascii_stl", 2);
  ratio("1M HPF -> HPF / cp", "hpf_to_hpf_1m", "cp_1m_hpf", 2);
  ratio("two 1M binary STL -> binary PLY / one", "two_stl_to_ply_1m", "stl_to_ply_1m", 1.3);
  ratio("two 1M binary STL -> binary STL / one", "two_stl_to_stl_1m", "stl_to_stl_1m", 1.3);
  ratio("5M / 1M, 5 when cost is linear", "grow_5m", "grow_1m", 6);
  reporter.print_peak("1M binary STL -> welded binary PLY: MiB of memory", "stl_to_ply_1m", 110);
  reporter.print_peak("1M binary STL -> binary STL: MiB of memory", "stl_to_stl_1m", 110);
  return 0;
}
