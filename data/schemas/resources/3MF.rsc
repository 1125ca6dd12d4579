# Options of the 3MF translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (writing): micrometre, millimetre, centimetre, metre, inch or foot.
# "unspecified": the model's own; millimetre for a model without a unit. Units that 3MF does not know become metre (for
# kilometre), inch (for microinch and mil) or foot (for yard and mile).
LENGTH_UNIT = unspecified

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). auto is +Z.
# Writing turns a model with another axis up; keep leaves every model as it is.
UP_AXIS = auto

# Take the colours and materials of objects and triangles, and the colours of their corners (reading).
READ_MATERIALS = 1

# Write the colours and materials of parts and faces (writing).
WRITE_MATERIALS = 1

# Write the colours of vertices, where the model has them (writing).
WRITE_VERTEX_COLOURS = 1

# Significant digits of coordinates (writing). 0: as many as it takes to read back the same number.
DIGITS = 0

# Vertices that lie no farther apart than this become one, in the unit of the file (writing). 0: those whose
# coordinates in the file are equal.
JOIN_TOLERANCE = 0

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
