#include <gtest/gtest.h>

#include "Picture.h"
#include "Rail.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator writer("pngwriter");

using Corners = std::vector<std::uint32_t>;

// A cube with red sides across X, green ones across Y and blue ones across Z; the ones on the lower side are white.
annDocument coloured_cube(float opacity = 1) {
  annDocument document;
  auto mesh = std::make_shared<annMesh>();
  for (unsigned i = 0; i < 8; ++i) {
    mesh->vertices->points.push_back({i & 1 ? 1.0 : 0.0, i & 2 ? 1.0 : 0.0, i & 4 ? 1.0 : 0.0});
  }
  mesh->materials = {
      {"x", {1, 0, 0, opacity}}, {"y", {0, 1, 0, opacity}}, {"z", {0, 0, 1, opacity}}, {"low", {1, 1, 1, 1}}};
  const std::pair<Corners, std::uint32_t> faces[] = {{{0, 2, 3, 1}, 3}, {{4, 5, 7, 6}, 2}, {{0, 1, 5, 4}, 1},
                                                     {{2, 6, 7, 3}, 3}, {{0, 4, 6, 2}, 3}, {{1, 3, 7, 5}, 0}};
  for (const auto& [corners, material] : faces) {
    mesh->add_face(corners);
    mesh->set_face_material(mesh->face_count() - 1, material);
  }
  document.root.add_child("cube").body.mesh = mesh;
  return document;
}

annNode& add_square(annDocument& document, double x, double y, double z, const annColour& colour) {
  auto mesh = std::make_shared<annMesh>();
  mesh->vertices->points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  mesh->add_face(Corners{0, 1, 2, 3});
  annNode& node = document.root.add_child("square");
  node.body.mesh = mesh;
  node.colour = colour;
  node.transform.m = {1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z};
  return node;
}

Picture picture_of(const annDocument& document, Options options) {
  TemporaryDirectory directory;
  Messages messages;
  EXPECT_EQ(writer.write(document, directory / "a.png", messages, options), velabsDONE) << messages.errors;
  return Picture(directory / "a.png");
}

TEST(Png, EachViewShowsItsSideInTheMiddleAndNothingInTheCorners) {
  const annDocument document = coloured_cube();
  const std::pair<const char*, char> views[] = {{"front", 'g'}, {"Right", 'r'}, {"top", 'b'},
                                                {"back", 'w'},  {"left", 'w'},  {"bottom", 'w'}};
  for (const auto& [view, colour] : views) {
    const Picture picture = picture_of(document, {{"VIEW", view}, {"WIDTH", "90"}, {"HEIGHT", "60"}});
    EXPECT_EQ(picture.width, 90u);
    EXPECT_EQ(picture.height, 60u);
    EXPECT_FALSE(picture.opaque);
    EXPECT_EQ(colour_name(picture.at(0.5, 0.5)), colour) << view;
    for (double x : {0.0, 1.0}) EXPECT_EQ(picture.at(x, 0)[3] + picture.at(x, 1)[3], 0) << view;
    // The cube is as high as the picture but for the margin.
    EXPECT_NEAR(picture.share([](const auto& p) { return p[3] > 127; }), 0.92 * 0.92 * 60 / 90, 0.03) << view;
  }
  annDocument y_up = coloured_cube();
  y_up.up = annUP_Y;
  const std::pair<const char*, char> of_y_up[] = {{"front", 'b'}, {"right", 'r'}, {"top", 'w'},
                                                  {"back", 'w'},  {"left", 'w'},  {"bottom", 'g'}};
  for (const auto& [view, colour] : of_y_up) {
    EXPECT_EQ(colour_name(picture_of(y_up, {{"VIEW", view}}).at(0.5, 0.5)), colour) << view;
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
    add_square(document, 0, 0, red_first ? 1 : 0, red);
    add_square(document, 0, 0, red_first ? 0 : 1, green);
    EXPECT_EQ(colour_name(picture_of(document, top).at(0.5, 0.5)), red_first ? 'r' : 'g');
    add_square(document, 0, 0, 2, glass);
    const Picture::Pixel mixed = picture_of(document, top).at(0.5, 0.5);
    EXPECT_GT(mixed[red_first ? 0 : 1], 90);
    EXPECT_GT(mixed[2], 90);
    EXPECT_EQ(mixed[3], 255);
  }
  annDocument alone;
  add_square(alone, 0, 0, 0, glass);
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
    annDocument document;
    document.root.add_child("rail").body.mesh = rail(with_normals);
    const Picture picture = picture_of(document, {{"VIEW", "top"}, {"WIDTH", "300"}, {"SHOW_EDGES", "0"}});
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
  Messages messages;
  for (const char* name : {"a.png", "b.png"}) {
    ASSERT_EQ(writer.write(coloured_cube(), directory / name, messages, {{"WIDTH", "2500"}, {"HEIGHT", "1700"}}),
              velabsDONE);
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
    Messages messages;
    EXPECT_EQ(writer.write(coloured_cube(), directory / "a.png", messages, {{key, value}}), velabsFAILED) << value;
    EXPECT_NE(messages.errors.find(key), std::string::npos) << messages.errors;
  }
  annDocument distant = coloured_cube();
  distant.root.transform = annTransform::scaling(1e308);
  distant.root.children.front()->transform.m[3] = 5;
  Messages messages;
  EXPECT_EQ(writer.write(distant, directory / "a.png", messages), velabsFAILED);
  EXPECT_EQ(writer.write({}, directory / "a.png", messages), velabsFAILED);
  EXPECT_NE(messages.errors.find("no shape"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(directory / "a.png"));
  messages.cancel = true;
  EXPECT_EQ(writer.write(coloured_cube(), directory / "a.png", messages), velabsCANCELLED);
}

}  // namespace
