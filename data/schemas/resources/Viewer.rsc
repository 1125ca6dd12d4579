# Options of the page that shows a model. Each line "KEY = value" sets a default, which a request can override.

# What stands at the top of the page (writing). When empty, the name of the model or of the page.
TITLE =

# Unit in which lengths are shown (writing); "unspecified" keeps the model's.
LENGTH_UNIT = unspecified

# Factor for all coordinates, greater than 0 (writing).
SCALE = 1

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
