#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <numbers>

#include "Rail.h"
#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

namespace {

const Translator writer("viewerwriter");

using Corners = std::vector<std::uint32_t>;

std::shared_ptr<annMesh> bare_cube(double size = 1) {
  auto mesh = cube(size);
  mesh->materials.clear();
  mesh->face_materials.clear();
  return mesh;
}

std::shared_ptr<annMesh> prism(unsigned sides, bool lids) {
  auto mesh = std::make_shared<annMesh>();
  Corners bottom, top;
  for (unsigned i = 0; i < sides; ++i) {
    const double angle = 2 * std::numbers::pi * i / sides;
    for (double z : {0.0, 1.0}) mesh->vertices->points.push_back({std::cos(angle), std::sin(angle), z});
    const unsigned next = (i + 1) % sides;
    mesh->add_face(Corners{2 * i, 2 * next, 2 * next + 1, 2 * i + 1});
    bottom.insert(bottom.begin(), 2 * i);
    top.push_back(2 * i + 1);
  }
  if (lids) {
    mesh->add_face(bottom);
    mesh->add_face(top);
  }
  return mesh;
}

// The same faces, each with points of its own.
std::shared_ptr<annMesh> taken_apart(const annMesh& mesh) {
  auto apart = std::make_shared<annMesh>();
  for (std::size_t face = 0; face < mesh.face_count(); ++face) {
    Corners corners;
    for (std::uint32_t corner : mesh.face(face)) {
      corners.push_back(apart->vertices->count());
      apart->vertices->points.push_back(mesh.vertices->points[corner]);
    }
    apart->add_face(corners);
  }
  return apart;
}

std::string page_of(const annDocument& document, Options options = {}) {
  TemporaryDirectory directory;
  writer.must_write(document, directory / "page.html", options);
  return TemporaryDirectory::read(directory / "page.html");
}

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) ++found;
  return found;
}

std::string between(const std::string& text, const std::string& from, const std::string& to) {
  const std::size_t start = text.find(from) + from.size();
  return text.substr(start, text.find(to, start) - start);
}

std::string scene_of(const std::string& page) {
  return between(page, "id=\"scene\">", "</script>");
}

long number(const std::string& scene, const std::string& key) {
  return std::strtol(between(scene, "\"" + key + "\":", "\n").c_str(), nullptr, 10);
}

std::string data_of(const std::string& page) {
  const std::string text = between(page, "class=\"data\">", "</script>");
  const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string bytes;
  unsigned bits = 0, held = 0;
  for (char c : text) {
    if (c == '=') break;
    bits = (bits << 6 | static_cast<unsigned>(digits.find(c))) & 0xffffff;
    held += 6;
    if (held >= 8) bytes += static_cast<char>(bits >> (held -= 8) & 0xff);
  }
  return bytes;
}

unsigned next_number(const std::string& bytes, std::size_t& at) {
  unsigned value = 0, shift = 0;
  for (;; shift += 7) {
    const auto byte = static_cast<unsigned char>(bytes.at(at++));
    value |= (byte & 127U) << shift;
    if (byte < 128) return value;
  }
}

// A vertex of the first mesh in a page: its place in the mesh's box and its normal.
struct Vertex {
  annVector place, normal;
};

Vertex vertex_of(const std::string& data, std::size_t count, std::size_t index) {
  std::uint16_t place[3];
  std::int16_t folded[2];
  std::memcpy(place, data.data() + 6 * index, 6);
  std::memcpy(folded, data.data() + (6 * count + 3) / 4 * 4 + 4 * index, 4);
  const double x = folded[0] / 32767.0, y = folded[1] / 32767.0, z = 1 - std::fabs(x) - std::fabs(y);
  annVector normal{x, y, z};
  if (z < 0) normal = {std::copysign(1 - std::fabs(y), x), std::copysign(1 - std::fabs(x), y), z};
  return {{place[0] / 65535.0, place[1] / 65535.0, place[2] / 65535.0},
          normal * (1 / std::sqrt(ann_dot(normal, normal)))};
}

TEST(Viewer, PageNeedsNothingThatLiesElsewhere) {
  const std::string page = page_of(document_of(bare_cube()));
  for (const char* outside : {"http:", "https:", "src=", "url(", "@import", "fetch(", "XMLHttpRequest", "WebSocket",
                              "import(", "@STYLE@", "@SCRIPT@"}) {
    EXPECT_EQ(page.find(outside), page.npos) << outside;
  }
  EXPECT_NE(page.find("Content-Security-Policy\" content=\"default-src 'none';"), page.npos);
  EXPECT_EQ(page, page_of(document_of(bare_cube())));
}

TEST(Viewer, NamesStayNames) {
  const std::string harmless = page_of(document_of(bare_cube()), {{"TITLE", "plain"}});
  for (const char* name : {"</script><script>alert(1)</script>", "<img src=x onerror=alert(1)>", "<!--<script>",
                           "\"]],\\\"\n", "\xFF\xC0\x80\xED\xA0\x80 cut \xE6\x9C", "&lt;script&gt;"}) {
    const std::string page = page_of(document_of(bare_cube(), name), {{"TITLE", name}});
    EXPECT_EQ(count(page, "<script"), count(harmless, "<script")) << name;
    EXPECT_EQ(count(page, "</script"), count(harmless, "</script")) << name;
    EXPECT_EQ(page.find("<img"), page.npos) << name;
    const std::string scene = scene_of(page);
    for (const char* raw : {"<", ">", "&", "\xFF", "\xC0", "\xED\xA0"}) EXPECT_EQ(scene.find(raw), scene.npos) << name;
  }
  const std::string scene = scene_of(page_of(document_of(bare_cube(), "M\xC3\xBC<\"\xE6\x9C\x88")));
  EXPECT_NE(scene.find("\"M\xC3\xBC\\u003c\\u0022\xE6\x9C\x88\""), scene.npos) << scene;
}

TEST(Viewer, SplitsAtCreasesAndDrawsThem) {
  const auto sheet = mesh_of({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {5, 5, 5}}, {{0, 1, 2, 3}, {0, 0, 1}});
  auto inside_out = bare_cube();
  for (std::size_t face = 0; face < 6; ++face) {
    std::reverse(inside_out->corners.begin() + 4 * face, inside_out->corners.begin() + 4 * face + 4);
  }
  auto with_normals = bare_cube();
  with_normals->vertices->normals.assign(8, {0, 0, 1});
  auto without_any = bare_cube();
  without_any->corner_normals.assign(24, annMesh::no_normal);
  auto half_without = bare_cube();
  half_without->vertices->normal_pool = {{0, 0, -1}};
  half_without->corner_normals.assign(24, annMesh::no_normal);
  std::fill_n(half_without->corner_normals.begin(), 4, 0U);
  // Its sides meet at 60 degrees, its lids have a normal of their own.
  auto round = prism(6, true);
  for (const annVector& p : round->vertices->points) round->vertices->normal_pool.push_back({p.x, p.y, 0});
  round->vertices->normal_pool.insert(round->vertices->normal_pool.end(), {{0, 0, -1}, {0, 0, 1}});
  round->corner_normals = round->corners;
  std::fill_n(round->corner_normals.end() - 12, 6, 12U);
  std::fill_n(round->corner_normals.end() - 6, 6, 13U);
  const struct {
    const char* what;
    std::shared_ptr<const annMesh> mesh;
    long vertices, triangles, lines, solid;
  } cases[] = {
      {"cube", bare_cube(), 24, 12, 12, 1},
      {"cube in pieces", taken_apart(*bare_cube()), 24, 12, 12, 1},
      {"cube that faces inwards", inside_out, 24, 12, 12, 0},
      {"cube with normals", with_normals, 8, 12, 12, 1},
      {"cube whose corners have no normals", without_any, 24, 12, 12, 1},
      {"cube with normals on one side", half_without, 24, 12, 12, 1},
      {"six sides with normals of a cylinder", round, 24, 20, 12, 1},
      {"rail with normals", rail(true), 2 * (5 + rail_steps), 2 * (3 + rail_steps), 2 * (3 + rail_steps) + 3, 0},
      {"twelve sides are round", prism(12, true), 48, 44, 24, 1},
      {"eight sides are not", prism(8, true), 48, 28, 24, 1},
      {"tube", prism(24, false), 48, 48, 48, 0},
      {"sheet with a face without extent", sheet, 4, 2, 4, 0}};
  for (const auto& c : cases) {
    const std::string scene = scene_of(page_of(document_of(c.mesh)));
    EXPECT_EQ(number(scene, "v"), c.vertices) << c.what;
    EXPECT_EQ(number(scene, "t"), c.triangles) << c.what;
    EXPECT_EQ(number(scene, "e"), c.lines) << c.what;
    EXPECT_EQ(number(scene, "solid"), c.solid) << c.what;
  }
}

TEST(Viewer, NormalsOfCornersAreShown) {
  const std::string page = page_of(document_of(rail(true))), data = data_of(page);
  const auto count = static_cast<std::size_t>(number(scene_of(page), "v"));
  int up = 0, round = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto [place, normal] = vertex_of(data, count, i);
    const double x = 3 * place.x, z = 2 * place.z - 1;
    annVector expected{x - 2, 0, z};
    if (z < 0) expected = {1, 0, 0};
    if (x < 1e-4) expected = normal.z > 0.5 ? annVector{0, 0, 1} : annVector{-1, 0, 0};
    EXPECT_GT(ann_dot(normal, expected), 0.9999) << x << " " << z;
    up += normal.z > 0.9999;
    round += normal.z > 0.01 && normal.z < 0.99;
  }
  // The flat face is flat up to where the fillet begins.
  EXPECT_EQ(up, 4);
  EXPECT_EQ(round, 2 * (rail_steps - 1));
}

TEST(Viewer, InstancesHaveTheirNameAndThatOfTheirPart) {
  annDocument document = document_of(bare_cube(), "nut");
  annNode& instance = *document.root.children.front();
  instance.instance_name = "nut_1";
  EXPECT_NE(scene_of(page_of(document)).find("[-1,[\"nut_1\",\"nut\"],0,"), std::string::npos);
  instance.instance_name = "nut";
  EXPECT_NE(scene_of(page_of(document)).find("[-1,\"nut\",0,"), std::string::npos);
}

TEST(Viewer, DataHoldsEachMeshOnce) {
  annDocument document = document_of(bare_cube(2));
  annNode& twin = document.root.add_child("twin");
  twin.body = document.root.children.front()->body;
  twin.transform.m = {0, -1, 0, 10, 1, 0, 0, 0, 0, 0, 1, 0};
  twin.colour = annColour{1, 0, 0, 0.5F};
  const std::string page = page_of(document);
  const std::string scene = scene_of(page), data = data_of(page);
  EXPECT_EQ(count(scene, "\"v\":"), 1u);
  EXPECT_NE(scene.find("[-1,\"twin\",0,0,[0,-1,0,10,1,0,0,0,0,0,1,0],[8,0,0,10,2,2]]"), scene.npos) << scene;
  EXPECT_NE(scene.find("\"colours\":[[1,0,0,0.5]]"), scene.npos) << scene;

  // Each triangle of the cube lies in one of its sides, and its vertices are at corners.
  std::size_t at = (24 * 6) + (24 * 4);
  unsigned next = 0;
  for (unsigned triangle = 0; triangle < 12; ++triangle) {
    std::uint16_t place[3][3];
    for (auto& corner : place) {
      const unsigned below = next_number(data, at);
      ASSERT_LE(below, next);
      std::memcpy(corner, data.data() + 6 * (next - below), 6);
      next += below == 0;
      for (std::uint16_t value : corner) EXPECT_TRUE(value == 0 || value == 65535);
    }
    bool flat = false;
    for (unsigned axis = 0; axis < 3; ++axis) {
      flat = flat || (place[0][axis] == place[1][axis] && place[1][axis] == place[2][axis]);
    }
    EXPECT_TRUE(flat) << triangle;
  }
  EXPECT_EQ(next, 24u);
}

TEST(Viewer, NamesTheUnitAndTheUpAxisOfTheLengthsShown) {
  const std::string inches = scene_of(page_of(document_of(bare_cube(254)), {{"LENGTH_UNIT", "inch"}, {"SCALE", "2"}}));
  EXPECT_NE(inches.find("\"unit\":\"in\",\"up\":\"z\""), inches.npos);
  EXPECT_NE(inches.find(",[0,0,0,20,20,20]]"), inches.npos) << inches;

  annDocument document = document_of(bare_cube());
  document.root.children[0]->transform.m[11] = 5;
  document.up = annUP_Y;
  const std::string y_up = scene_of(page_of(document));
  EXPECT_NE(y_up.find("\"up\":\"y\""), y_up.npos);
  EXPECT_NE(y_up.find(",[0,0,5,1,1,6]]"), y_up.npos) << y_up;
}

TEST(Viewer, SaysWhyThereIsNoPage) {
  TemporaryDirectory directory;
  annDocument distant = document_of(bare_cube()), nowhere = document_of(bare_cube());
  distant.root.children.front()->transform = annTransform::scaling(1e300);
  nowhere.root.children.front()->transform.m[3] = std::numeric_limits<double>::infinity();
  const std::string file = directory / "page.html";
  writer.must_not_write({}, file, "no shape");
  writer.must_not_write(document_of(mesh_of({{0, 0, 0}, {1, 0, 0}}, {{0, 1, 0}})), file, "nothing to show");
  writer.must_not_write(distant, file, "cannot be shown");
  writer.must_not_write(nowhere, file, "too far away");
  Messages cancelled;
  cancelled.cancel = true;
  EXPECT_EQ(writer.write(document_of(bare_cube()), file, cancelled), velabsCANCELLED);
}

// Deeper than any stack, and wide.
TEST(Viewer, TreesOfAnyShapeAreWritten) {
  annDocument document;
  annNode* node = &document.root;
  const auto mesh = bare_cube();
  for (int i = 0; i < 100000; ++i) {
    node = &node->add_child("level");
    if (i % 1000 == 0) node->body.mesh = mesh;
  }
  EXPECT_EQ(count(scene_of(page_of(document)), ",\"level\""), 100000u);
}

}  // namespace
