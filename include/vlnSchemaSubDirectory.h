#pragma once

#include "utString.h"
#include "vlnExport.h"

// The sub-directories of data files. Each exists in the installation and, with the user's copies, below the application
// data directory. The numbers are fixed.
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

// The name on disk, for example "resources"; empty for a value outside the enumeration.
VLN_API utString vln_schema_name(vlnSchemaSubDirectory sub_directory);
