#pragma once

#include "vltFormat.h"

extern const vltFormat threemf_format;

// Names that the published 3MF core, materials and production texts and the packaging conventions beneath them fix.
#define THREEMF_CORE "http://schemas.microsoft.com/3dmanufacturing/core/2015/02"
#define THREEMF_MATERIALS "http://schemas.microsoft.com/3dmanufacturing/material/2015/02"
#define THREEMF_PRODUCTION "http://schemas.microsoft.com/3dmanufacturing/production/2015/06"
#define THREEMF_RELATIONSHIPS "http://schemas.openxmlformats.org/package/2006/relationships"
#define THREEMF_MODEL_RELATION "http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"

// The namespace of the attribute "name" of items and components, by which files of ours keep the names of instances:
// the published texts have names of objects only, and allow attributes of any other namespace.
#define THREEMF_INSTANCE "urn:velbase:3mf:instance"
