#pragma once

#include "apExport.h"
#include "coDList.h"
#include "utString.h"

// Units of length. "unspecified" is the unit of a file, a model or a request that does not name one; lengths in it are
// taken as millimetres.
enum velLengthUnit {
  velLENGTH_UNSPECIFIED = 0,
  velLENGTH_MICROMETRE = 1,
  velLENGTH_MILLIMETRE = 2,
  velLENGTH_CENTIMETRE = 3,
  velLENGTH_METRE = 4,
  velLENGTH_KILOMETRE = 5,
  velLENGTH_MICROINCH = 6,
  velLENGTH_MIL = 7,
  velLENGTH_INCH = 8,
  velLENGTH_FOOT = 9,
  velLENGTH_YARD = 10,
  velLENGTH_MILE = 11,
};

// Appends the names in the order of the values.
VELPLATFORM_API void velLengthUnit_strings(utStringcoDList& names);

// Appends the abbreviations that can be typed, "um", "mm" and so on, of the units whose abbreviation differs from their
// name.
VELPLATFORM_API void velLengthUnit_abbreviations(utStringcoDList& abbreviations);

// Accepts a name, an abbreviation or a symbol, ignoring case.
VELPLATFORM_API bool co_value_from_text(const utString& text, velLengthUnit& value);
VELPLATFORM_API utString co_value_to_text(velLengthUnit value);

// The name, and the symbol written after a number: "mm"; "" for "unspecified". Both are "" for a number that is not a
// unit.
VELPLATFORM_API const char* vel_length_name(velLengthUnit unit);
VELPLATFORM_API const char* vel_length_symbol(velLengthUnit unit);

// The length of one unit in metres.
VELPLATFORM_API double vel_metres(velLengthUnit unit);

// The factor that converts a length in `from` to one in `to`, rounded once: 25.4 from inches to millimetres. 1 for a
// number that is not a unit.
VELPLATFORM_API double vel_length_ratio(velLengthUnit from, velLengthUnit to);
