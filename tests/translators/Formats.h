#pragma once

#include "Translator.h"

// The mesh formats of the suite and what a file of each keeps of a document, for tests that go through all of them.
struct Format {
  const char* name;
  const char* reader;  // libraries
  const char* writer;
  const char* file;  // a name that the writer understands
  const char* form;  // of FILE_FORMAT
  double precision;  // of coordinates
  bool polygons, parts, tree, colours, vertex_colours;
  bool vertex_opacity = true;
  bool vertices_alone = true;  // vertices without faces
  // Triangles with two corners at one point are left out, and faces without a colour beside others that have one are
  // white.
  bool objects_of_3mf = false;
};

inline constexpr double vel_float_precision = 2e-7;
inline constexpr Format vel_mesh_formats[] = {
    {"binary STL", "stlreader", "stlwriter", "a.stl", "binary", vel_float_precision, 0, 0, 0, 0, 0, true, false},
    {"ASCII STL", "stlreader", "stlwriter", "b.stl", "ascii", 0, 0, 1, 0, 0, 0, true, false},
    {"OBJ", "objreader", "objwriter", "c.obj", "ascii", 0, 1, 1, 0, 1, 1, false},
    {"binary PLY", "plyreader", "plywriter", "d.ply", "binary", 0, 1, 0, 0, 1, 1},
    {"ASCII PLY", "plyreader", "plywriter", "e.ply", "ascii", 0, 1, 0, 0, 1, 1},
    {"OFF", "offreader", "offwriter", "f.off", "ascii", 0, 1, 0, 0, 1, 1},
    {"glTF", "gltfreader", "gltfwriter", "g.gltf", "binary", vel_float_precision, 0, 1, 1, 1, 1, true, false},
    {"GLB", "gltfreader", "glbwriter", "h.glb", "binary", vel_float_precision, 0, 1, 1, 1, 1, true, false},
    {"3MF", "3mfreader", "3mfwriter", "i.3mf", "binary", 1e-14, 0, 1, 1, 1, 0, true, false, true},
    {"HPF", "hpfreader", "hpfwriter", "j.hpf", "binary", 0, 1, 1, 1, 1, 1},
};
