# Options of the OBJ translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (reading and writing).
# OBJ files hold no unit: "unspecified" is millimetre in both directions.
LENGTH_UNIT = unspecified

# Convert lengths from the model's unit to LENGTH_UNIT (writing). 0: write the model's own numbers, whatever its unit.
CONVERT_UNITS = 1

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). OBJ has no rule: auto is the same as keep,
# which leaves every model as it is. Writing y or z turns a model with the other axis up.
UP_AXIS = auto

# Take colours from the material files that stand beside the file (reading).
READ_MATERIALS = 1

# Write colours to a material file beside the file, with the extension mtl (writing).
WRITE_MATERIALS = 1

# Write the normals of vertices and of corners, where the model has them (writing).
WRITE_NORMALS = 1

# Write the colours of vertices, where the model has them (writing).
WRITE_VERTEX_COLOURS = 1

# Significant digits of coordinates (writing). 0: as many as it takes to read back the same number.
DIGITS = 0

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
