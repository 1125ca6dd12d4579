# Options of the STL translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (reading and writing).
# STL files hold no unit: "unspecified" is millimetre in both directions.
LENGTH_UNIT = unspecified

# Convert lengths from the model's unit to LENGTH_UNIT (writing). 0: write the model's own numbers, whatever its unit.
CONVERT_UNITS = 1

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). auto is +Z.
# Writing turns a model with another axis up; keep leaves every model as it is.
UP_AXIS = auto

# Give equal points one number, so that triangles share them (reading).
WELD_POINTS = 1

# Take colours from the attribute bytes of binary files (reading).
READ_MATERIALS = 1

# Form of the file: binary or ascii (writing; reading tells by itself).
FILE_FORMAT = binary

# Name of the solid (writing). Binary: the text in the head of the file.
# ASCII: everything becomes one solid of this name; when empty, each part is a solid of its own name.
SOLID_NAME =

# Put colours into the attribute bytes, binary only (writing).
WRITE_MATERIALS = 1

# Significant digits of coordinates, ASCII only (writing). 0: as many as it takes to read back the same number.
DIGITS = 0

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
