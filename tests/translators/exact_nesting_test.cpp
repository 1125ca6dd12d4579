#include "ExactFiles.h"

// Small files whose assemblies would fill the memory, or end the process, if they were walked through.

namespace {

constexpr int enough_to_fill_memory = 40;
constexpr int too_deep = 3000;

class ExactNesting : public ExactFiles {
 protected:
  void expect_refused(const std::string& format, const std::string& bytes, const std::string& why) const {
    const Reading reading = read(bytes, format);
    EXPECT_EQ(reading.result, velabsFAILED);
    EXPECT_NE(reading.messages.errors.find(why), std::string::npos) << reading.messages.errors;
  }
};

// Products that show the one before them so many times, the last one in the first one too if wanted.
std::string with_products(std::string file, int count, int times, bool in_circles) {
  constexpr int first = 1'000'000;
  std::string lines;
  int number = first + count;
  auto use = [&](int outer, int inner) {
    lines += "#" + std::to_string(number++) + "=NEXT_ASSEMBLY_USAGE_OCCURRENCE('','','',#" + std::to_string(outer) +
             ",#" + std::to_string(inner) + ",$);\n";
  };
  for (int i = 0; i < count; ++i) {
    lines += "#" + std::to_string(first + i) + "=PRODUCT_DEFINITION('','',$,$);\n";
    for (int k = 0; i > 0 && k < times; ++k) use(first + i, first + i - 1);
  }
  if (in_circles) use(first, first + count - 1);
  return file.insert(file.rfind("ENDSEC;"), lines);
}

// Compounds that hold the one before them so many times, around an empty one.
std::string of_compounds(const std::string& ground, int count, int times) {
  std::string file = ground.substr(0, ground.find("Locations"));
  file += "Locations 0\nCurve2ds 0\nCurves 0\nPolygon3D 0\nPolygonOnTriangulations 0\nSurfaces 0\nTriangulations 0\n";
  file += "\nTShapes " + std::to_string(count) + "\n";
  for (int i = 0; i < count; ++i) {
    file += "Co\n\n1100000\n";
    for (int k = 0; i > 0 && k < times; ++k) file += "+" + std::to_string(count - i + 1) + " 0 ";
    file += "*\n";
  }
  return file + "\n+1 0 \n";
}

}  // namespace

TEST_F(ExactNesting, AssembliesThatFillTheMemoryOrEndNowhereAreRefused) {
  const std::string step = written(triangle("part"), "step");
  expect_refused("step", with_products(step, enough_to_fill_memory, 2, false), "more than 2000000 times");
  expect_refused("step", with_products(step, too_deep, 1, false), "more than 1000 deep");
  expect_refused("step", with_products(step, 3, 1, true), "stands in itself");

  const std::string brep = written(triangle("part"), "brep");
  expect_refused("brep", of_compounds(brep, enough_to_fill_memory, 2), "more than 2000000 times");
  expect_refused("brep", of_compounds(brep, too_deep, 1), "more than 1000 deep");
}
