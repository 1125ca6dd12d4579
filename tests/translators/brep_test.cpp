#include <gtest/gtest.h>
#include <sys/resource.h>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <TopoDS_Face.hxx>
#include <algorithm>
#include <atomic>
#include <sstream>

#include "OtherProcess.h"
#include "exaBrepCheck.h"
#include "exaSession.h"
#include "exaShape.h"

namespace {

// A shape whose bytes hold everything that has a length, a choice or a reference.
TopoDS_Shape everything() {
  TopoDS_Shape shape;
  EXPECT_TRUE(BRepTools::Read(shape, VEL_TEST_DATA "/brep/kinds.brep", BRep_Builder()));
  return shape;
}

std::string text_of(const TopoDS_Shape& shape, int version) {
  std::ostringstream bytes;
  BRepTools::Write(shape, bytes, true, true, static_cast<TopTools_FormatVersion>(version));
  return bytes.str();
}
std::string binary_of(const TopoDS_Shape& shape, int version) {
  std::ostringstream bytes;
  BinTools::Write(shape, bytes, true, true, static_cast<BinTools_FormatVersion>(version));
  return bytes.str();
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  EXPECT_NE(at, text.npos) << from;
  return at == text.npos ? text : text.replace(at, from.size(), to);
}

long peak_megabytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

}  // namespace

// What counts is the memory that is in use at once, and a sanitizer keeps what was freed for a while.
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() {  // NOLINT
  return "quarantine_size_mb=16";
}

TEST(Brep, WhatTheKernelWritesIsWhole) {
  const TopoDS_Shape shape = everything();
  for (int version = 1; version <= 4; ++version) {
    EXPECT_EQ(exa_brep_fault(binary_of(shape, version)), "") << version;
  }
  for (int version = 1; version <= 3; ++version) EXPECT_EQ(exa_brep_fault(text_of(shape, version)), "") << version;
  apStatus status;
  const std::string stored = exaShape(shape).save(status);
  EXPECT_TRUE(exa_parse(stored, status)) << status.failure().str();
  EXPECT_EQ(exa_brep_fault("DBRep_DrawableShape\n" + replaced(text_of(shape, 1), "\nCASCADE", "\r\nCASCADE")), "");
}

TEST(Brep, CountsAndReferencesThatLieAreNamedWithTheirPlace) {
  const std::string text = text_of(everything(), 1);
  const struct {
    const char *from, *to, *fault;
  } cases[] = {
      {"V1, (c)", "V9, (c)", "no line names a version"},
      {"Locations ", "Locations 2000000000 ", "it cannot hold 2000000000 of them"},
      {"\n2  2 1 1 1 0", "\n2  2 1 9 1 0", "it refers to the location 9"},
      {"\n2  2 1 1 1 0", "\n2  2 1 1 2000000000 0", "it is made of too many others"},
      {"\n7 0 0  3 4 2", "\n7 0 0  3 2000000000 2", "it cannot have 2000000000 poles"},
      {"\n7 0 0  3 4 2", "\n7 0 0  3 4 -1", "it cannot have -1 knots"},
      {"\n7 0 0  3 4 2", "\n7 0 0  30 4 2", "it cannot have the degree 30"},
      {"\n7 0 0  3 4 2", "\n7 0 0  2 4 2", "its knots are for 5 poles, but it has 4"},
      {"\n7 0 0  3 4 2", "\n77 0 0  3 4 2", "77 is no kind of curve"},
      {"\nSurfaces", "\nFurfaces", "\"Surfaces\" should stand here, not \"Furfaces\""},
      {"\n+1 0", "\n+9999 0", "which is not there yet"},
  };
  for (const auto& it : cases) {
    const std::string fault = exa_brep_fault(replaced(text, it.from, it.to));
    EXPECT_NE(fault.find(it.fault), fault.npos) << fault;
    EXPECT_NE(fault.find(", line "), fault.npos) << fault;
  }
  std::string nested = "CASCADE Topology V1, (c) Matra-Datavision\nLocations 0\nCurve2ds 0\nCurves 1\n";
  for (int i = 0; i < 100'000; ++i) nested += "8 0 1 ";
  EXPECT_NE(exa_brep_fault(nested + "1 0 0 0 1 0 0").find("based on each other"), nested.npos);
  EXPECT_NE(exa_brep_fault(replaced(nested, "Curves", std::string(1000, 'x'))).find("a word of 1000"), nested.npos);
}

TEST(Brep, DamagedBytesTakeLittleMemory) {
  const TopoDS_Shape shape = everything();
  const long before = peak_megabytes();
  std::size_t refused = 0, tried = 0;
  auto try_bytes = [&](const std::string& bytes) {
    apStatus status;
    refused += exa_parse(bytes, status) ? 0U : 1U;
    ++tried;
  };
  const std::string text = text_of(shape, 3), binary = binary_of(shape, 4);
  for (std::size_t at = text.find("Locations"); at < text.size(); at = text.find_first_of(" \n", at + 150)) {
    const std::size_t end = std::min(text.find_first_of(" \n", at + 1), text.size());
    try_bytes(text.substr(0, at + 1) + "2000000000" + text.substr(end));
  }
  for (std::size_t at = binary.find("Locations"); at + 4 < binary.size(); at += 61) {
    std::string damaged = binary;
    damaged.replace(at, 4, {'\x00', '\x94', '\x35', '\x77'});
    try_bytes(damaged);
    try_bytes(binary.substr(0, at));
  }
  EXPECT_GT(refused, tried / 2);
  EXPECT_LT(peak_megabytes() - before, 300);
}

TEST(Brep, ABreakdownIsToldOnceAndAnotherFileIsNotBlamedForIt) {
  const auto bad = bad_ends(1, 20, [](std::size_t) {
    const std::string first = exa_failure_of([] { BRep_Builder().NaturalRestriction(TopoDS_Face(), true); });
    const std::string second = exa_failure_of([] {});
    const bool good = first.find("broke down on it") != first.npos && second.find("damaged") == second.npos &&
                      second.find("by itself") != second.npos;
    return good ? OtherResult::GOOD : OtherResult::BAD;
  });
  EXPECT_TRUE(bad.empty());
}

TEST(Brep, MeshingStopsWhenItIsNotWantedAnyMore) {
  struct Progress : annProgress {
    explicit Progress(int times) : most(times) {}
    void done(double share) override { last = std::max(last.load(), share); }
    bool cancelled() const override { return ++asked > most; }
    int most;
    mutable std::atomic<int> asked{0};
    std::atomic<double> last{0};
  };
  const exaShape torus(BRepPrimAPI_MakeTorus(5, 1).Shape());
  apStatus stopped, status;
  Progress patient(1'000'000'000), impatient(20);
  EXPECT_TRUE(torus.facets({1e-2, 0}, status, &patient));
  EXPECT_TRUE(status.ok());
  EXPECT_GT(patient.last, 0);
  EXPECT_FALSE(torus.facets({1e-3, 0}, stopped, &impatient));
  EXPECT_FALSE(stopped.ok());
  EXPECT_LT(impatient.asked, patient.asked / 4);
}

TEST(Brep, TolerancesBelowTheLeastGiveTheLeast) {
  const exaShape cylinder(BRepPrimAPI_MakeCylinder(5, 1).Shape());
  const annTolerance least = cylinder.least_tolerance();
  apStatus status;
  const auto closest = cylinder.facets(least, status, nullptr);
  ASSERT_TRUE(closest);
  EXPECT_EQ(cylinder.facets({least.chord / 1e6, least.angle / 1e6}, status, nullptr), closest);
}
