#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "Formats.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

// A box of 1 x 2 x 3.
annDocument oblong(velLengthUnit unit, annUpAxis up) {
  annDocument document = document_of(cube(1));
  document.unit = unit;
  document.up = up;
  annTransform& placement = document.root.children[0]->transform;
  placement.m[5] = 2;
  placement.m[10] = 3;
  return document;
}

// In the unit and with the up axis of `like`.
annStatistics expected(const annDocument& document, const annDocument& like) {
  std::vector<annPlacedBody> bodies = ann_placed_bodies(document);
  const annTransform change =
      annTransform::scaling(vel_length_ratio(document.unit, like.unit)) * ann_turn(document.up, like.up);
  for (annPlacedBody& body : bodies) body.placement = change * body.placement;
  return ann_statistics(bodies, true);
}

class UnitsAndUp : public testing::Test {
 protected:
  Reading through(const Format& format, const annDocument& document, Options out = {}, Options in = {}) {
    const std::string file = directory_ / format.file;
    messages_ = translator(format.writer).must_write(document, file, out);
    return translator(format.reader).must_read(file, in);
  }

  static const Format& format(std::string_view name) {
    for (const Format& format : vel_mesh_formats) {
      if (name == format.name) return format;
    }
    throw std::invalid_argument("no such format");
  }

  TemporaryDirectory directory_;
  Messages messages_;
};

annVector largest(const Reading& reading) {
  return reading.statistics().box->max;
}

TEST_F(UnitsAndUp, EveryFormatKeepsSizeAndUp) {
  for (const Format& format : vel_mesh_formats) {
    if (!is_installed(format.reader)) continue;
    for (const velLengthUnit unit : {velLENGTH_UNSPECIFIED, velLENGTH_MILLIMETRE, velLENGTH_INCH, velLENGTH_METRE}) {
      for (const annUpAxis up : {annUP_UNKNOWN, annUP_Y, annUP_Z}) {
        SCOPED_TRACE(std::string(format.name) + " of " + vel_length_name(unit) + ", up " + std::to_string(up));
        const annDocument document = oblong(unit, up);
        const Reading reading = through(format, document);
        expect_box(reading.statistics(), expected(document, reading.document));
      }
    }
  }
}

TEST_F(UnitsAndUp, FormatsWithoutAUnitAreInMillimetres) {
  for (const char* name : {"binary STL", "OBJ", "ASCII PLY", "OFF"}) {
    const Format& without = format(name);
    const annDocument inches = oblong(velLENGTH_INCH, annUP_UNKNOWN),
                      none = oblong(velLENGTH_UNSPECIFIED, annUP_UNKNOWN);
    const struct {
      const annDocument& document;
      const char *unit, *convert;
      double width;
      const char* note;
      bool ignores_unit = false;
    } cases[] = {
        {inches, "unspecified", "1", 25.4, "lengths are written in millimetre\n"},
        {inches, "cm", "1", 2.54, "lengths are written in centimetre\n"},
        {inches, "cm", "0", 1, "lengths are written in inch\n", true},
        {none, "unspecified", "1", 1, ""},
        {none, "unspecified", "0", 1, ""},
        {none, "cm", "1", 0.1, "the model has no length unit: its numbers count as millimetres\n"},
    };
    for (const auto& c : cases) {
      const Reading reading = through(without, c.document, {{"LENGTH_UNIT", c.unit}, {"CONVERT_UNITS", c.convert}});
      EXPECT_NEAR(largest(reading).x, c.width, 1e-6) << name << c.unit << c.convert;
      EXPECT_EQ(reading.document.unit, velLENGTH_UNSPECIFIED) << name;
      EXPECT_EQ(messages_.notes.find("length unit") != std::string::npos, *c.note != 0) << messages_.notes;
      EXPECT_NE(messages_.notes.find(c.note), std::string::npos) << name << messages_.notes;
      EXPECT_EQ(messages_.warnings, "");
      EXPECT_EQ(messages_.notes.find("length-unit is ignored") != std::string::npos, c.ignores_unit) << name;
    }
  }
}

TEST_F(UnitsAndUp, AnotherAxisCanBeForced) {
  const annVector as_is{1, 2, 3}, z_to_y{1, 3, 0}, y_to_z{1, 0, 2};
  const struct {
    const char* format;
    annUpAxis up;
    const char* option;
    annVector largest;  // of the file's numbers
    const char* note;
  } cases[] = {
      {"ASCII STL", annUP_Z, "auto", as_is, ""},
      {"ASCII STL", annUP_Y, "auto", y_to_z, ""},
      {"ASCII STL", annUP_Z, "y", z_to_y, ""},
      {"ASCII STL", annUP_Y, "Keep", as_is, ""},
      {"OBJ", annUP_Y, "auto", as_is, ""},
      {"OBJ", annUP_Y, "z", y_to_z, ""},
      {"OFF", annUP_Z, "y", z_to_y, ""},
      {"ASCII PLY", annUP_UNKNOWN, "y", as_is, "is not turned"},
      {"ASCII STL", annUP_UNKNOWN, "z", as_is, ""},
      {"3MF", annUP_Y, "auto", y_to_z, ""},
      {"3MF", annUP_Z, "y", z_to_y, ""},
      {"glTF", annUP_Z, "auto", z_to_y, ""},
      {"glTF", annUP_Y, "z", y_to_z, ""},
      {"glTF", annUP_Z, "keep", as_is, ""},
  };
  for (const auto& c : cases) {
    if (!is_installed(format(c.format).reader)) continue;
    const Reading reading = through(format(c.format), oblong(velLENGTH_MILLIMETRE, c.up),
                                    {{"UP_AXIS", c.option}, {"FILE_FORMAT", "ascii"}}, {{"UP_AXIS", "keep"}});
    const double scale = vel_length_ratio(reading.document.unit, velLENGTH_MILLIMETRE);
    const annVector box = largest(reading) * scale;
    EXPECT_LT(std::abs(box.x - c.largest.x) + std::abs(box.y - c.largest.y) + std::abs(box.z - c.largest.z), 1e-5)
        << c.format << c.up << c.option;
    EXPECT_EQ(reading.document.up, annUP_UNKNOWN);
    EXPECT_EQ(messages_.notes.find("up axis") != std::string::npos, *c.note != 0) << c.format << messages_.notes;
  }
  EXPECT_EQ(translator("stlreader").read(directory_ / "b.stl", {{"UP_AXIS", "x"}}).messages.errors,
            "UP_AXIS must be auto, y, z or keep, not \"x\"\n");
  EXPECT_EQ(translator("stlreader").read(directory_ / "b.stl", {{"UP_AXIS", "y"}}).document.up, annUP_Y);
}

}  // namespace
