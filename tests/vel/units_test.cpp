#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "Program.h"

using nlohmann::json;

namespace {

json box_of(const Outcome& outcome) {
  return json::parse(outcome.out)["bounding_box"]["max"];
}

}  // namespace

TEST(Units, LengthsAreShownInTheUnitThatWasAskedFor) {
  const Installation installation;
  installation.add_units();
  installation.work.write("a.stl", tetrahedron_stl);
  installation.home.write("velbase/resources/STL.rsc", "LENGTH_UNIT = inch\n");
  const Outcome converted = installation.run({"info", "a.stl", "--json", "--unit", "MilliMetre"});
  EXPECT_EQ(converted.err, "");
  EXPECT_EQ(json::parse(converted.out)["unit"], "millimetre");
  EXPECT_EQ(box_of(converted), json({25.4, 25.4, 50.8}));
  // Short names of units will do everywhere.
  installation.home.write("velbase/resources/STL.rsc", "LENGTH_UNIT = in\n");
  EXPECT_EQ(installation.run({"info", "a.stl", "--json", "--unit", "mm"}).out, converted.out);
  EXPECT_EQ(installation.run({"translate", "a.stl", "-o", "feet.stl", "--out", "length-unit=FT"}).code, 0);
  EXPECT_EQ(box_of(installation.run({"info", "feet.stl", "--json"})), json({0.0833333, 0.0833333, 0.1666667}));
  installation.expect({"info", "a.stl", "--unit", "millimetre"}, 0, {"millimetre (from inch)\n", "25.4 25.4 50.8\n"});

  // A number without a unit is a millimetre.
  installation.home.write("velbase/resources/STL.rsc", "");
  const Outcome unitless =
      installation.expect({"info", "a.stl", "--json", "--unit", "inch"}, 0,
                          {"a.stl: the file has no length unit: its numbers count as millimetres."});
  EXPECT_EQ(json::parse(unitless.out)["unit"], "inch");
  EXPECT_EQ(box_of(unitless), json({0.03937008, 0.03937008, 0.07874016}));
  EXPECT_EQ(json::parse(installation.run({"info", "a.stl", "--json"}).out)["unit"], nullptr);
  installation.expect({"info", "a.stl"}, 0, {"none (millimetre by convention)\n"});
  const Outcome quiet = installation.run({"-q", "info", "a.stl", "--json", "--unit", "inch"});
  EXPECT_EQ(quiet.out, unitless.out);
  EXPECT_EQ(quiet.err, "");
}

TEST(Units, WithoutTheirServiceEverythingElseWorks) {
  const Installation installation;
  installation.work.write("a.stl", tetrahedron_stl);
  installation.home.write("velbase/resources/STL.rsc", "LENGTH_UNIT = inch\n");
  const auto expect_file_unit = [&](const std::string& complaint) {
    const Outcome asked = installation.expect({"info", "a.stl", "--json", "--unit", "mile"}, 0, {complaint});
    EXPECT_EQ(json::parse(asked.out)["unit"], "inch");
    EXPECT_EQ(box_of(asked), json({1, 1, 2}));
    // Nobody else looks for it.
    EXPECT_EQ(installation.run({"info", "a.stl"}).err, "");
  };
  expect_file_unit("unitssvc.dll: this service library is missing; it was looked for in " +
                   installation.root.path().string() + "/sys/exec/services");
  installation.root.write("sys/exec/services/unitssvc.dll", "no library");
  expect_file_unit(installation.units_library() + ": this service library cannot be used");
}
