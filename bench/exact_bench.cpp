#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <STEPControl_Reader.hxx>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <string>

#include "../tests/translators/Translator.h"
#include "ProgramRun.h"
#include "RatioReporter.h"
#include "TemporaryDirectory.h"
#include "vltFacets.h"

// Exact shapes to facets, compared with a program that calls only the kernel: whole processes, and meshing alone.

namespace {

constexpr const char* chord = "0.2";
constexpr const char* degrees = "20";

const std::string& directory() {
  static const TemporaryDirectory made;
  static const std::string path = made.path().string() + "/";
  return path;
}

// An assembly of 200 different parts, created once.
std::string model() {
  static const bool made = [] {
    setenv("QRM_HOME", directory().c_str(), 1);
    run_program({VEL_PROGRAM, "cache", "refresh"});
    return run_program({VEL_EXACT_FLOOR, "make", "200", directory() + "model.step"}).done;
  }();
  static_cast<void>(made);
  return directory() + "model.step";
}

void translate(benchmark::State& state) {
  measure_program(state, {VEL_PROGRAM, "translate", "--quiet", model(), "-o", directory() + "vel.stl", "--out",
                          std::string("CHORD_TOLERANCE=") + chord, "--out", std::string("ANGLE_TOLERANCE=") + degrees});
}

void bare(benchmark::State& state) {
  measure_program(state, {VEL_EXACT_FLOOR, "translate", model(), directory() + "bare.stl", chord, degrees});
}

template <typename Work>
void measure(benchmark::State& state, Work work) {
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    work();
    state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
}

void mesh(benchmark::State& state) {
  static const Translator reader("stepreader");
  static const Reading reading = reader.read(model());
  velTableInstance resources;
  resources.add_resource("CHORD_TOLERANCE", chord);
  resources.add_resource("ANGLE_TOLERANCE", degrees);
  Messages messages;
  measure(state, [&] {
    vltFacets facets(reading.document, resources, messages);
    for (const annPlacedBody& body : ann_placed_bodies(reading.document))
      benchmark::DoNotOptimize(facets.of(*body.node));
  });
}

void bare_mesh(benchmark::State& state) {
  static STEPControl_Reader reader;
  static const TopoDS_Shape shape = [] {
    reader.ReadFile(model().c_str());
    reader.TransferRoots();
    return reader.OneShape();
  }();
  BRepTools::Clean(shape);
  measure(state, [&] {
    BRepMesh_IncrementalMesh(shape, std::atof(chord), false, std::atof(degrees) * std::numbers::pi / 180, false);
  });
}

void add(const char* name, void (*work)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, work)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(1)
      ->Repetitions(5);
}

}  // namespace

int main(int argc, char** argv) {
  add("bare_step_to_stl", bare);
  add("step_to_stl", translate);
  add("bare_mesh", bare_mesh);
  add("mesh", mesh);
  RatioReporter reporter;
  if (!run_benchmarks(argc, argv, 5, reporter)) return 1;

  std::puts("\nRatios of medians, an assembly of 200 parts");
  auto ratio = [&](const char* what, const char* measured, const char* floor, double bound) {
    const std::string how = "/iterations:1/repeats:5/manual_time";
    reporter.print_ratio(what, measured + how, floor + how, bound);
  };
  ratio("STEP -> STL / the kernel alone, whole processes", "step_to_stl", "bare_step_to_stl", 1.1);
  ratio("meshing on all cores / the kernel on one", "mesh", "bare_mesh", 1 / 1.5);
  return 0;
}
