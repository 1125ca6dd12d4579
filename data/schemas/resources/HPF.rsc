# Options of the HPF translators. Each line "KEY = value" sets a default, which a request can override.

# Exact shapes: keep facets beside each one that has none, so that it is shown and translated everywhere (writing).
WRITE_FACETS = 1

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
