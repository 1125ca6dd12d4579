#pragma once

#include <string_view>

// The effect of ignoring a 3MF extension that a model requires.
struct threemfExtension {
  enum Effect {
    READ,
    KEEPS_GEOMETRY,     // what it adds does not change the meshes
    ADDS_GEOMETRY,      // besides the meshes
    REPLACES_GEOMETRY,  // of the meshes: without it the geometry would be wrong
    UNKNOWN
  };
  Effect effect;
  std::string_view adds;  // as a plural; empty when nothing is ignored
};

// `uri` is the namespace of the extension. Its date, which distinguishes versions, is ignored.
threemfExtension threemf_extension(std::string_view uri);
