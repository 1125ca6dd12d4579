#pragma once

#include "vltFormat.h"

extern const vltFormat threemf_format;

// Names defined by the published 3MF core, materials and production specifications and by the packaging conventions.
#define THREEMF_CORE "http://schemas.microsoft.com/3dmanufacturing/core/2015/02"
#define THREEMF_MATERIALS "http://schemas.microsoft.com/3dmanufacturing/material/2015/02"
#define THREEMF_PRODUCTION "http://schemas.microsoft.com/3dmanufacturing/production/2015/06"
#define THREEMF_RELATIONSHIPS "http://schemas.openxmlformats.org/package/2006/relationships"
#define THREEMF_MODEL_RELATION "http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"

// The namespace of the attribute "name" of items and components, in which our files store the names of instances. The
// published specifications define names only for objects, and allow attributes of other namespaces.
#define THREEMF_INSTANCE "urn:velbase:3mf:instance"
