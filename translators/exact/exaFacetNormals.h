#pragma once

#include <BRepAdaptor_Surface.hxx>
#include <Poly_Triangulation.hxx>
#include <TopoDS_Face.hxx>
#include <array>
#include <gp_Trsf.hxx>
#include <optional>
#include <vector>

#include "annVector.h"

// The outward normals of a face at the nodes of its facets. They come from the surface or, for a face without one,
// from the normals stored with the facets. Nodes are numbered from 1, as in the kernel. The face and its facets must
// outlive this object. Exceptions of the kernel are passed on.
class exaFacetNormals {
 public:
  // `placement` transforms the facets from the coordinates of the surface to those of the face.
  exaFacetNormals(const TopoDS_Face& face, const Poly_Triangulation& facets, const gp_Trsf& placement);

  // The normal of a planar face; empty for other faces.
  const std::optional<annVector>& flat() const { return flat_; }

  // One normal for each node of a face that is not planar; empty when there is neither a surface nor stored normals.
  // Zero where the surface has no normal, for example at a pole or an apex.
  const std::vector<annVector>& of_nodes() const { return of_nodes_; }

  // The limit of the surface normal inside the facet at its first node, for a node whose normal is zero. Zero when
  // there is no limit either.
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
