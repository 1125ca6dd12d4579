#pragma once

#include "vltFormat.h"

extern const vltFormat threemf_format;

// Names that the published 3MF core, materials and production texts and the packaging conventions beneath them fix.
#define THREEMF_CORE "http://schemas.microsoft.com/3dmanufacturing/core/2015/02"
#define THREEMF_MATERIALS "http://schemas.microsoft.com/3dmanufacturing/material/2015/02"
#define THREEMF_PRODUCTION "http://schemas.microsoft.com/3dmanufacturing/production/2015/06"
#define THREEMF_RELATIONSHIPS "http://schemas.openxmlformats.org/package/2006/relationships"
#define THREEMF_MODEL_RELATION "http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"
