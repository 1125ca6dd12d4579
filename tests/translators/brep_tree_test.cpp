#include <gtest/gtest.h>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <gp_Pln.hxx>
#include <sstream>

#include "Solids.h"
#include "TemporaryDirectory.h"
#include "Translator.h"

// What the reader of BREP makes of shapes.

namespace {

class BrepTree : public testing::Test {
 protected:
  Reading read(const TopoDS_Shape& shape, Options options = {}) const {
    static const Translator reader("brepreader");
    std::ostringstream bytes;
    BRepTools::Write(shape, bytes);
    return reader.read(directory_.write("shape.brep", bytes.str()), options);
  }

  static TopoDS_Shape compound(std::initializer_list<TopoDS_Shape> parts) {
    TopoDS_Compound result;
    BRep_Builder builder;
    builder.MakeCompound(result);
    for (const TopoDS_Shape& part : parts) builder.Add(result, part);
    return result;
  }

  static TopoDS_Shape box(double size) { return BRepPrimAPI_MakeBox(size, size, size).Shape(); }
  static TopoDS_Shape face_of(const TopoDS_Shape& shape) { return TopExp_Explorer(shape, TopAbs_FACE).Current(); }

  TemporaryDirectory directory_;
};

}  // namespace

TEST_F(BrepTree, OfAPartThatIsBothSolidAndSurfaceOnlyWhatIsAskedForIsRead) {
  const TopoDS_Shape both = compound({box(1), face_of(box(2))});
  const struct {
    const char* types;
    std::size_t solids, faces;
  } cases[] = {{"all", 1, 7}, {"solids", 1, 6}, {"surfaces", 0, 1}};
  for (const auto& it : cases) {
    const annStatistics found = read(both, {{"ENTITY_TYPES", it.types}}).statistics();
    EXPECT_EQ(found.solids, it.solids) << it.types;
    EXPECT_EQ(found.faces, it.faces) << it.types;
  }
  EXPECT_NE(read(compound({box(1), box(2)}), {{"ENTITY_TYPES", "surfaces"}}).messages.errors.find("ENTITY_TYPES"),
            std::string::npos);
}

TEST_F(BrepTree, AReversedCopyIsInsideOut) {
  const TopoDS_Shape solid = box(1);
  const Reading reading = read(compound({solid, solid.Reversed()}));
  const std::vector<annPlacedBody> bodies = ann_placed_bodies(reading.document);
  ASSERT_EQ(bodies.size(), 2U);
  EXPECT_GT(closedness_of(*facets_of(bodies[0].node->body)).volume, 5.9);
  EXPECT_LT(closedness_of(*facets_of(bodies[1].node->body)).volume, -5.9);
}

TEST_F(BrepTree, FacesThatAreNothingButFacetsAreAMesh) {
  const gp_Pnt corners[] = {{0, 0, 0}, {3, 0, 0}, {0, 4, 0}};
  Handle(Poly_Triangulation) facets = new Poly_Triangulation(3, 1, false);
  for (int i = 0; i < 3; ++i) facets->SetNode(i + 1, corners[i]);
  facets->SetTriangle(1, Poly_Triangle(1, 2, 3));
  TopoDS_Face face;
  BRep_Builder().MakeFace(face, facets);

  const Reading alone = read(face);
  EXPECT_EQ(alone.mesh().face_count(), 1U);
  EXPECT_EQ(alone.statistics().box->max.y, 4);

  // Beside others they keep what they have.
  const Reading mixed = read(compound({face, face_of(box(2))}));
  EXPECT_EQ(facets_of(mixed.node(0).body)->face_count(), 3U);
  EXPECT_NEAR(mixed.statistics().box->max.y, 4, 1e-9);
}

TEST_F(BrepTree, WhatHasNoEndHasNoBox) {
  const gp_Pln level, slanted(gp_Pnt(1, 2, 3), gp_Dir(1, 2, 3));
  for (const gp_Pln& plane : {level, slanted}) {
    const TopoDS_Shape endless = BRepBuilderAPI_MakeFace(plane).Face();
    EXPECT_FALSE(read(endless).statistics().box);
    EXPECT_FALSE(read(compound({box(1), endless})).statistics().box);
  }
}
