# Options of the pictures of models. Each line "KEY = value" sets a default, which a request can override.

# Width of the picture in pixels, 1 to 16384 (writing).
WIDTH = 800

# Height of the picture in pixels, 1 to 16384 (writing).
HEIGHT = 600

# From where the model is seen: iso, front, back, left, right, top or bottom (writing).
# "front" looks along +Y, or along -Z where the model has +Y up.
VIEW = iso

# What stands behind the model: transparent, or a colour as #RRGGBB (writing).
BACKGROUND = transparent

# Draw lines where facets meet at an angle, and along free borders; they are fainter on parts that are small in the
# picture (writing).
SHOW_EDGES = 1

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
