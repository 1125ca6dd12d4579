#pragma once

#include <string_view>

// What becomes of an extension of 3MF that a model requires.
struct threemfExtension {
  enum Effect {
    READ,
    KEEPS_GEOMETRY,     // what it adds does not change the meshes
    ADDS_GEOMETRY,      // beside the meshes
    REPLACES_GEOMETRY,  // of the meshes: without it the model would be another one
    UNKNOWN
  };
  Effect effect;
  std::string_view adds;  // as a plural; empty when nothing is left out
};

// `uri` is the namespace of the extension. Its date, which tells one version from another, plays no part.
threemfExtension threemf_extension(std::string_view uri);
