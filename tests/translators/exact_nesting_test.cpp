#include <cstdio>

#include "ExactFiles.h"
#include "KeptByKernel.h"

// Small files whose assemblies would fill the memory, or end the process, if they were walked through.

namespace {

constexpr int enough_to_fill_memory = 40;
constexpr int too_deep = 3000;

class ExactNesting : public ExactFiles {
 protected:
  void expect_refused(const std::string& format, const std::string& bytes, const std::string& why) const {
    const KeptByKernel circles;
    reader(format).must_not_read(directory_.write("changed." + format, bytes), why);
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

// Shapes, the innermost one first, that hold the one before them so many times.
struct BrepShape {
  std::string kind;
  int times;
};
std::string of_shapes(const std::string& ground, const std::vector<BrepShape>& shapes) {
  std::string file = ground.substr(0, ground.find("Locations")) +
                     "Locations 0\nCurve2ds 0\nCurves 0\nPolygon3D 0\nPolygonOnTriangulations 0\n"
                     "Surfaces 1\n1 0 0 0 0 0 1 1 0 -0 -0 1 0\nTriangulations 0\n\nTShapes " +
                     std::to_string(shapes.size()) + "\n";
  std::size_t below = shapes.size() + 1;
  for (const BrepShape& shape : shapes) {
    file += shape.kind + "\n";
    if (shape.kind == "Ed") file += "1e-07 1 1 0\n0\n";
    if (shape.kind == "Fa") file += "0  1e-07 1 0\n";
    file += "\n0101000\n";
    for (int i = 0; i < shape.times; ++i) file += "+" + std::to_string(below) + " 0 ";
    file += "*\n";
    --below;
  }
  return file + "\n+1 0 \n";
}

// Compounds that hold the one before them so many times, around an empty one.
std::string of_compounds(const std::string& ground, std::size_t count, int times) {
  std::vector<BrepShape> shapes(count, {"Co", times});
  shapes.front().times = 0;
  return of_shapes(ground, shapes);
}

// An IGES file of entities that name others by their numbers from 1.
struct IgesEntity {
  int type;
  int form;
  std::string parameters;
};
std::string iges_name(int number) {
  return std::to_string(2 * number - 1);
}
std::string of_entities(const std::string& ground, const std::vector<IgesEntity>& entities) {
  std::string directory, parameters;
  int number = 0;
  for (const IgesEntity& entity : entities) {
    char line[100];
    const int first = 2 * number++ + 1;
    std::snprintf(line, sizeof line, "%8d%8d%8d%8d%8d%8d%8d%8d%08dD%07d\n", entity.type, number, 0, 0, 0, 0, 0, 0, 0,
                  first);
    directory += line;
    std::snprintf(line, sizeof line, "%8d%8d%8d%8d%8d%8s%8s%8s%8dD%07d\n", entity.type, 0, 0, 1, entity.form, "", "",
                  "", 0, first + 1);
    directory += line;
    const std::string data = std::to_string(entity.type) + "," + entity.parameters + ";";
    std::snprintf(line, sizeof line, "%-64s%8dP%07d\n", data.c_str(), first, number);
    parameters += line;
  }
  char end[100];
  std::snprintf(end, sizeof end, "S%7dG%7dD%7dP%7d%40sT%07d\n", 1, 2, 2 * number, number, "", 1);
  const std::size_t start = ground.find("D0000001\n"), first_line = ground.rfind('\n', start) + 1;
  return ground.substr(0, first_line) + directory + parameters + end;
}

// Levels that hold the one before them so many times, the first one a point or the last one.
enum class IgesKind { GROUP, SUBFIGURE, ASSEMBLY };
std::string of_levels(const std::string& ground, IgesKind kind, int count, int times, bool in_circles) {
  std::vector<IgesEntity> entities{{116, 0, "0.,0.,0.,0"}};
  const int step = kind == IgesKind::SUBFIGURE ? 2 : 1;
  std::string below = in_circles ? iges_name(1 + step * count) : iges_name(1);
  for (int level = 0; level < count; ++level) {
    std::string members, matrices;
    for (int i = 0; i < times; ++i) {
      members += "," + below;
      matrices += ",0";
    }
    const std::string amount = std::to_string(times);
    if (kind == IgesKind::GROUP) entities.push_back({402, 7, amount + members});
    if (kind == IgesKind::ASSEMBLY) entities.push_back({184, 0, amount + members + matrices});
    if (kind == IgesKind::SUBFIGURE) {
      entities.push_back({308, 0, "0,1Hs," + amount + members});
      entities.push_back({408, 0, iges_name(static_cast<int>(entities.size())) + ",0.,0.,0.,1."});
    }
    below = iges_name(static_cast<int>(entities.size()));
  }
  return of_entities(ground, entities);
}

// The face with a surface that stands on others, of which the last one stands on the number that is given.
std::string on_surfaces(const std::string& file, int count, int ground) {
  constexpr int first = 1'000'000;
  std::string lines;
  for (int i = 1; i <= count; ++i) {
    const int below = i < count ? first + i + 1 : ground;
    lines += "#" + std::to_string(first + i) + "=OFFSET_SURFACE('',#" + std::to_string(below) + ",1.,.F.);\n";
  }
  return std::string(file).insert(file.rfind("ENDSEC;"), lines);
}

// A shell of so many times the same face, in a model of so many times this shell.
std::string of_shells(const std::string& file, int times) {
  const std::size_t face = file.rfind('#', file.find("ADVANCED_FACE"));
  const std::string name = file.substr(face, file.find(' ', face) - face);
  std::string faces = name, shells = "#1000001";
  for (int i = 1; i < times; ++i) {
    faces += "," + name;
    shells += ",#1000001";
  }
  const std::string lines =
      "#1000001=OPEN_SHELL('',(" + faces + "));\n#1000002=SHELL_BASED_SURFACE_MODEL('',(" + shells + "));\n";
  return std::string(file).insert(file.rfind("ENDSEC;"), lines);
}

}  // namespace

TEST_F(ExactNesting, AssembliesThatFillTheMemoryOrEndNowhereAreRefused) {
  const std::string step = written(triangle("part"), "step");
  expect_refused("step", with_products(step, enough_to_fill_memory, 2, false), "more than 2000000 times");
  expect_refused("step", with_products(step, too_deep, 1, false), "more than 1000 deep");
  expect_refused("step", with_products(step, 3, 1, true), "stands in itself");

  const std::string brep = written(triangle("part"), "brep");
  expect_refused("brep", of_compounds(brep, enough_to_fill_memory, 2), "more than 2000000 times");
  expect_refused("brep", of_compounds(brep, 100'000, 1), "more than 1000 deep");
}

TEST_F(ExactNesting, PartsThatRepeatTheirFacesOrEdgesWithoutEndAreRefused) {
  const std::string brep = written(triangle("part"), "brep");
  const std::string why = "faces and edges of its parts more than 500000 times";
  expect_refused("brep", of_shapes(brep, {{"Fa", 0}, {"Sh", 2000}, {"So", 2000}, {"Co", 2000}}), why);
  expect_refused("brep", of_shapes(brep, {{"Fa", 0}, {"Sh", 2000}, {"Co", 2000}}), why);
  expect_refused("brep", of_shapes(brep, {{"Ed", 0}, {"Wi", 2000}, {"Fa", 2000}, {"Co", 1}}), why);

  // A part may well stand there often.
  read(of_shapes(brep, {{"Fa", 0}, {"Sh", 2000}, {"So", 1}, {"Co", 2000}}), "brep");
}

TEST_F(ExactNesting, GroupsSubfiguresAndAssembliesOfIgesAreHeldToTheSame) {
  const std::string iges = written(triangle("part"), "iges");
  for (IgesKind kind : {IgesKind::GROUP, IgesKind::SUBFIGURE, IgesKind::ASSEMBLY}) {
    expect_refused("iges", of_levels(iges, kind, enough_to_fill_memory, 2, false), "more than 2000000 times");
    expect_refused("iges", of_levels(iges, kind, too_deep, 1, false), "more than 1000 deep");
    expect_refused("iges", of_levels(iges, kind, 3, 1, true), "stands in itself");
  }
}

// No assembly is to blame for these, and the message says which entity is.
TEST_F(ExactNesting, CurvesAndSurfacesThatStandInEachOtherAreRefused) {
  const std::string step = written(triangle("part"), "step");
  expect_refused("step", on_surfaces(step, 1, 1'000'001), "it holds #1000001, which stands in itself");
  expect_refused("step", on_surfaces(step, 3, 1'000'002), "it holds #100000");
  expect_refused("step", on_surfaces(step, too_deep, 1'000'000), "more than 1000 deep");
  expect_refused("step", of_shells(step, too_deep), "repeats the same curves and faces too often");
  read(of_shells(step, 3), "step");
  expect_refused("step",
                 std::string(step).insert(step.rfind("ENDSEC;"),
                                          "#1000001=COMPOSITE_CURVE('',(#1000002),.F.);\n"
                                          "#1000002=COMPOSITE_CURVE_SEGMENT(.CONTINUOUS.,.T.,#1000001);\n"),
                 "stands in itself");

  const std::string iges = written(triangle("part"), "iges");
  expect_refused("iges", of_entities(iges, {{140, 0, "0.,0.,1.,1.,1"}}), "it holds D1, which stands in itself");
  std::vector<IgesEntity> trimmed;
  for (int i = 2; i <= too_deep; ++i) trimmed.push_back({144, 0, iges_name(i) + ",0,0,0"});
  trimmed.push_back({122, 0, iges_name(too_deep + 1) + ",0.,0.,1."});
  trimmed.push_back({110, 0, "0.,0.,0.,1.,0.,0."});
  expect_refused("iges", of_entities(iges, trimmed), "more than 1000 deep");
  // Each level names the one before it twice.
  std::vector<IgesEntity> doubled{{110, 0, "0.,0.,0.,1.,0.,0."}};
  for (int i = 1; i < enough_to_fill_memory; ++i) {
    doubled.push_back({102, 0, "2," + iges_name(i) + "," + iges_name(i)});
  }
  expect_refused("iges", of_entities(iges, doubled), "repeats the same curves and faces too often");
}
