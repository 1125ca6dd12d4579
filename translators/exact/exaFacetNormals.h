#pragma once

#include <BRepAdaptor_Surface.hxx>
#include <Poly_Triangulation.hxx>
#include <TopoDS_Face.hxx>
#include <array>
#include <gp_Trsf.hxx>
#include <optional>
#include <vector>

#include "annVector.h"

// The outward normals of a face at the nodes of its facets: those of its surface or, for a face without one, those
// that are stored with its facets. Nodes are numbered from 1, as the kernel does. The face and its facets must outlive
// this. What the kernel throws passes through.
class exaFacetNormals {
 public:
  // `placement` puts the facets, which lie in the coordinates of the surface, where the face is.
  exaFacetNormals(const TopoDS_Face& face, const Poly_Triangulation& facets, const gp_Trsf& placement);

  // The one normal of a planar face.
  const std::optional<annVector>& flat() const { return flat_; }

  // For each node of any other face; none when nothing but the facets is known. Zero where the surface has no normal,
  // at a pole or an apex for instance.
  const std::vector<annVector>& of_nodes() const { return of_nodes_; }

  // For the first node of a facet whose own normal is zero: the one that the surface comes to within that facet. Zero
  // when there is none either.
  annVector limit(const std::array<int, 3>& facet) const;

 private:
  struct Parameters {
    double u, v;
  };
  struct Tangents {
    annVector u, v;
    bool moves_in_u, moves_in_v;
  };
  void read_surface();
  void read_stored(const gp_Trsf& placement);
  Parameters parameters(int node) const;
  Tangents tangents(Parameters at) const;
  annVector outward(annVector normal) const;

  const Poly_Triangulation& facets_;
  bool reversed_;
  BRepAdaptor_Surface surface_;
  Parameters range_{0, 0};  // of the nodes
  std::optional<annVector> flat_;
  std::vector<annVector> of_nodes_;
};
