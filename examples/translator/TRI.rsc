# Options of the TRI translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (reading and writing).
# The files hold no unit: "unspecified" is millimetre in both directions.
LENGTH_UNIT = unspecified

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
