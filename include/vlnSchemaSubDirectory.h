#pragma once

#include "utString.h"
#include "vlnExport.h"

// The sub-directories of data files that exist in the installation and, with the user's own copies, below the
// application data directory. The numbers are fixed.
enum vlnSchemaSubDirectory : int {
  vlnSchemaLintor = 0,
  vlnSchemaColourSchemes = 1,
  vlnSchemaExportOptions = 2,
  vlnSchemaFonts = 3,
  vlnSchemaGraphics = 4,
  vlnSchemaLights = 5,
  vlnSchemaParasolid = 6,
  vlnSchemaRelease = 7,
  vlnSchemaResources = 8,
  vlnSchemaStep = 9,
  vlnSchemaTranslators = 10,
  vlnSchemaXrc = 11,
  vlnSchemaKpq = 12,
  vlnSchemaWx = 13,
  vlnSchemaNavblock = 14,
  vlnSchemaUpi = 15,
};

inline constexpr int vlnNUM_SCHEMA_SUB_DIRECTORIES = 16;

// The name on disk, "resources" for instance; empty for a value that is none of them.
VLN_API utString vln_schema_name(vlnSchemaSubDirectory sub_directory);
