#include <optional>

#include "ExactFiles.h"

namespace {

constexpr annColour red{1, 0, 0}, green{0, 1, 0}, blue{0, 0, 1};

// An assembly that shows a part twice, with the colours of its first faces.
annDocument twice(std::optional<annColour> part, const std::vector<annColour>& faces) {
  annDocument document;
  document.unit = velLENGTH_MILLIMETRE;
  const auto mesh = mesh_of({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {{0, 2, 1}, {0, 1, 3}, {1, 2, 3}, {0, 3, 2}});
  for (std::size_t face = 0; face < faces.size(); ++face) {
    mesh->materials.push_back({"", faces[face]});
    mesh->set_face_material(face, static_cast<std::uint32_t>(face));
  }
  annNode& assembly = document.root.add_child("assembly");
  for (double place : {0.0, 5.0}) {
    annNode& node = assembly.add_child("part");
    node.body.mesh = mesh;
    node.colour = part;
    node.transform.m[3] = place;
  }
  return document;
}

// The number of the last entity of a type, as "#12".
std::string last(const std::string& file, const std::string& type) {
  const std::size_t start = file.rfind('#', file.rfind("= " + type + "("));
  return file.substr(start, file.find(' ', start) - start);
}

// Gives the solid a colour in the place that the last occurrence takes.
std::string with_occurrence_in(const std::string& file, annColour colour) {
  const std::string place = last(file, "PRODUCT_DEFINITION_SHAPE"), axes = last(file, "AXIS2_PLACEMENT_3D");
  const std::string solid = last(file, "MANIFOLD_SOLID_BREP"), unit = last(file, "( GEOMETRIC_REPRESENTATION_CONTEXT");
  const std::string rgb = std::to_string(static_cast<int>(colour.red)) + ".," +
                          std::to_string(static_cast<int>(colour.green)) + ".," +
                          std::to_string(static_cast<int>(colour.blue)) + ".";
  std::string lines = "#9001=SHAPE_DEFINITION_REPRESENTATION(" + place + ",#9002);\n" +
                      "#9002=SHAPE_REPRESENTATION('',(" + axes + ")," + unit + ");\n" +
                      "#9003=MECHANICAL_DESIGN_GEOMETRIC_PRESENTATION_REPRESENTATION('',(#9004)," + unit + ");\n" +
                      "#9004=STYLED_ITEM('',(#9005)," + solid + ");\n" +
                      "#9005=PRESENTATION_STYLE_BY_CONTEXT((#9006),#9002);\n" +
                      "#9006=SURFACE_STYLE_USAGE(.BOTH.,#9007);\n#9007=SURFACE_SIDE_STYLE('',(#9008));\n" +
                      "#9008=SURFACE_STYLE_FILL_AREA(#9009);\n#9009=FILL_AREA_STYLE('',(#9010));\n" +
                      "#9010=FILL_AREA_STYLE_COLOUR('',#9011);\n#9011=COLOUR_RGB(''," + rgb + ");\n";
  return std::string(file).insert(file.rfind("ENDSEC;"), lines);
}

// The colours of all faces in their order.
std::vector<std::optional<annColour>> face_colours(const annDocument& document) {
  std::vector<std::optional<annColour>> result;
  for (const annPlacedBody& placed : ann_placed_bodies(document)) {
    const auto mesh = facets_of(placed.node->body);
    for (std::size_t face = 0; face < mesh->face_count(); ++face) {
      result.push_back(face_colour(*mesh, face, placed.colour));
    }
  }
  return result;
}

}  // namespace

using ExactColours = ExactFiles;

// What the kernel names with an arrow are pieces of one part, which become one body.
TEST_F(ExactColours, FacesKeepTheirOwnAndTheOthersTakeThatOfTheOccurrence) {
  using Faces = std::vector<std::optional<annColour>>;
  const struct {
    std::optional<annColour> part;
    std::vector<annColour> faces;
    Faces expected;
  } cases[] = {
      {red, {}, {red, red, red, red, blue, blue, blue, blue}},
      {{}, {green}, {green, {}, {}, {}, green, blue, blue, blue}},
      {red, {green}, {green, red, red, red, green, blue, blue, blue}},
      {red, {green, red}, {green, red, red, red, green, red, blue, blue}},
      {{}, {green, green, green, green}, Faces(8, green)},
  };
  for (const auto& it : cases) {
    const std::string file = with_occurrence_in(written(twice(it.part, it.faces), "step"), blue);
    const std::size_t number = static_cast<std::size_t>(&it - cases);
    std::string in_pieces = replaced(file, "OCCURRENCE('1','part',", "OCCURRENCE('1','=>[]',");
    in_pieces = replaced(in_pieces, "OCCURRENCE('2','part',", "OCCURRENCE('2','=>[]',");
    in_pieces = replaced(in_pieces, "PRODUCT('part','part',", "PRODUCT('SOLID','SOLID',");
    const Reading named = read(file, "step"), pieces = read(in_pieces, "step");
    EXPECT_EQ(named.statistics().parts, 2U);
    EXPECT_EQ(pieces.statistics().parts, 1U);
    EXPECT_EQ(face_colours(named.document), it.expected) << number;
    EXPECT_EQ(face_colours(pieces.document), it.expected) << number;
  }
}
