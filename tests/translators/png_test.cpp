#include <gtest/gtest.h>

#include "Picture.h"
#include "Rail.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator writer("pngwriter");

// A cube with red sides across X, green ones across Y and blue ones across Z; the ones on the lower side are white.
annDocument coloured_cube() {
  const auto mesh = cube(1);
  mesh->materials = {{"x", {1, 0, 0}}, {"y", {0, 1, 0}}, {"z", {0, 0, 1}}, {"low", {1, 1, 1}}};
  mesh->face_materials = {3, 2, 1, 3, 3, 0};
  return document_of(mesh);
}

void add_square(annDocument& document, double z, const annColour& colour) {
  annNode& node = document.root.add_child("square");
  node.body.mesh = mesh_of({{0, 0, z}, {1, 0, z}, {1, 1, z}, {0, 1, z}}, {{0, 1, 2, 3}});
  node.colour = colour;
}

Picture picture_of(const annDocument& document, Options options) {
  TemporaryDirectory directory;
  writer.must_write(document, directory / "a.png", options);
  return Picture(directory / "a.png");
}

TEST(Png, EachViewShowsItsSideInTheMiddleAndNothingInTheCorners) {
  annDocument document = coloured_cube();
  const struct {
    const char* view;
    char colour, of_y_up;
  } cases[] = {{"front", 'g', 'b'}, {"Right", 'r', 'r'}, {"top", 'b', 'w'},
               {"back", 'w', 'w'},  {"left", 'w', 'w'},  {"bottom", 'w', 'g'}};
  for (const auto& c : cases) {
    for (const annUpAxis up : {annUP_Y, annUP_Z}) {
      document.up = up;
      const Picture picture = picture_of(document, {{"VIEW", c.view}, {"WIDTH", "90"}, {"HEIGHT", "60"}});
      EXPECT_TRUE(picture.width == 90 && picture.height == 60 && !picture.opaque);
      EXPECT_EQ(colour_name(picture.at(0.5, 0.5)), up == annUP_Y ? c.of_y_up : c.colour) << c.view;
      for (double x : {0.0, 1.0}) EXPECT_EQ(picture.at(x, 0)[3] + picture.at(x, 1)[3], 0) << c.view;
      // The cube is as high as the picture but for the margin.
      EXPECT_NEAR(picture.share([](const auto& p) { return p[3] > 127; }), 0.92 * 0.92 * 60 / 90, 0.03) << c.view;
    }
  }
  const Picture iso = picture_of(document, {{"WIDTH", "200"}, {"HEIGHT", "200"}, {"BACKGROUND", "#FFfe00"}});
  EXPECT_TRUE(iso.opaque);
  EXPECT_EQ(iso.at(0, 0), (Picture::Pixel{255, 254, 0, 255}));
  EXPECT_EQ(colour_name(iso.at(0.3, 0.65)), 'g');
  EXPECT_EQ(colour_name(iso.at(0.7, 0.65)), 'r');
  EXPECT_EQ(colour_name(iso.at(0.5, 0.25)), 'b');
}

TEST(Png, TheNearerHidesTheFartherAndGlassShowsIt) {
  const annColour red{1, 0, 0, 1}, green{0, 1, 0, 1}, glass{0, 0, 1, 0.5F};
  const Options top = {{"VIEW", "top"}, {"WIDTH", "64"}, {"HEIGHT", "64"}, {"SHOW_EDGES", "0"}};
  for (const bool red_first : {true, false}) {
    annDocument document;
    add_square(document, red_first ? 1 : 0, red);
    add_square(document, red_first ? 0 : 1, green);
    EXPECT_EQ(colour_name(picture_of(document, top).at(0.5, 0.5)), red_first ? 'r' : 'g');
    add_square(document, 2, glass);
    const Picture::Pixel mixed = picture_of(document, top).at(0.5, 0.5);
    EXPECT_GT(mixed[red_first ? 0 : 1], 90);
    EXPECT_GT(mixed[2], 90);
    EXPECT_EQ(mixed[3], 255);
  }
  annDocument alone;
  add_square(alone, 0, glass);
  // No seam where its two triangles meet.
  EXPECT_EQ(picture_of(alone, top).share([](const auto& p) { return p[3] == 128; }, 0.1, 0.9),
            picture_of(alone, top).share([](const auto& p) { return p[3] > 100; }, 0.1, 0.9));
}

TEST(Png, ColoursOfVerticesStandInPlaceOfThoseOfFaces) {
  annDocument document = coloured_cube();
  auto mesh = std::make_shared<annMesh>(*document.root.children[0]->body.mesh);
  mesh->vertices->colours.assign(8, {0, 1, 0, 1});
  document.root.children[0]->body.mesh = mesh;
  EXPECT_EQ(colour_name(picture_of(document, {{"VIEW", "top"}}).at(0.5, 0.5)), 'g');
}

TEST(Png, LinesStandOnEdgesWhenAskedFor) {
  const auto dark = [](const Picture::Pixel& p) { return p[3] > 127 && p[0] + p[1] + p[2] < 160; };
  const annDocument document = coloured_cube();
  EXPECT_GT(picture_of(document, {{"WIDTH", "100"}}).share(dark), 0.0005);
  EXPECT_EQ(picture_of(document, {{"WIDTH", "100"}, {"SHOW_EDGES", "0"}}).share(dark), 0);
}

TEST(Png, FlatFacesAreFlatBesideFillets) {
  for (const bool with_normals : {true, false}) {
    const Picture picture =
        picture_of(document_of(rail(with_normals)), {{"VIEW", "top"}, {"WIDTH", "300"}, {"SHOW_EDGES", "0"}});
    // The sheet is as wide as the picture but for the margin; two thirds of it are flat.
    const auto at = [&](double x) { return picture.at(0.04 + 0.92 * x / 3, 0.5); };
    EXPECT_EQ(at(0.1) == at(1.9), with_normals);
    EXPECT_NE(at(2.2), at(2.3));
    EXPECT_NE(at(2.3), at(2.4));
  }
}

TEST(Png, LinesOfSmallPartsDoNotCoverThem) {
  const auto light = [](const annDocument& document, const char* edges) {
    const Picture picture = picture_of(document, {{"WIDTH", "500"}, {"HEIGHT", "400"}, {"SHOW_EDGES", edges}});
    double sum = 0, shown = 0;
    picture.share([&](const Picture::Pixel& p) {
      if (p[3] > 250) sum += p[0] + p[1] + p[2], ++shown;
      return false;
    });
    return sum / shown;
  };
  annDocument document;
  const auto mesh = coloured_cube().root.children.front()->body.mesh;
  for (int i = 0; i < 5000; ++i) {
    annNode& node = document.root.add_child("cube");
    node.body.mesh = mesh;
    node.transform.m = {1, 0, 0, 1.5 * (i % 17), 0, 1, 0, 1.5 * (i / 17 % 17), 0, 0, 1, 1.5 * (i / 289)};
  }
  EXPECT_GT(light(document, "1"), 0.85 * light(document, "0"));
}

TEST(Png, OnePictureForOneModelWhateverItsBands) {
  TemporaryDirectory directory;
  for (const char* name : {"a.png", "b.png"}) {
    writer.must_write(coloured_cube(), directory / name, {{"WIDTH", "2500"}, {"HEIGHT", "1700"}});
  }
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.png"), TemporaryDirectory::read(directory / "b.png"));
  const Picture picture(directory / "a.png");
  // Between the middle of the left side and that of the right one there is no gap.
  for (double y = 0.5; y < 0.85; y += 0.001) EXPECT_EQ(picture.at(0.45, y)[3], 255) << y;
}

TEST(Png, RefusesWhatMakesNoSense) {
  TemporaryDirectory directory;
  const std::pair<const char*, const char*> refused[] = {
      {"WIDTH", "0"},    {"WIDTH", "16385"},    {"HEIGHT", "-1"},         {"HEIGHT", "2147483647"},
      {"VIEW", "below"}, {"BACKGROUND", "red"}, {"BACKGROUND", "#12345g"}};
  for (const auto& [key, value] : refused) {
    writer.must_not_write(coloured_cube(), directory / "a.png", key, {{key, value}});
  }
  annDocument distant = coloured_cube();
  distant.root.transform = annTransform::scaling(1e308);
  distant.root.children.front()->transform.m[3] = 5;
  writer.must_not_write(distant, directory / "a.png", "too far away, or is too large");
  writer.must_not_write({}, directory / "a.png", "no shape");
  Messages messages;
  messages.cancel = true;
  EXPECT_EQ(writer.write(coloured_cube(), directory / "a.png", messages), velabsCANCELLED);
}

}  // namespace
