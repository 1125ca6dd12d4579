# Options of the BREP translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (reading and writing).
# BREP files hold no unit: "unspecified" is millimetre in both directions.
LENGTH_UNIT = unspecified

# Convert lengths from the model's unit to LENGTH_UNIT (writing). 0: write the model's own numbers, whatever its unit.
CONVERT_UNITS = 1

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). auto is +Z.
# Writing turns a model with another axis up; keep leaves every model as it is.
UP_AXIS = auto

# Kinds of shapes to take: all, solids or surfaces (reading). Surfaces are faces that belong to no solid.
# Curves and points are never taken.
ENTITY_TYPES = all

# Go on without faces that cannot be turned into facets (reading). 0: a format of facets then fails and names the part.
ALLOW_GAPS = 0

# Form of the file: binary or ascii (writing; reading tells by itself).
FILE_FORMAT = ascii

# What meshes and exact shapes become: as-is, exact or facets (writing).
# as-is: exact shapes stay what they are, a mesh becomes planar faces. exact: a model with a mesh is refused.
# facets: exact shapes become planar faces too, as close as the tolerances say.
REPRESENTATION = as-is

# Meshes: the largest number of planar faces that all of them may become, greater than 0 (writing). On an ordinary
# machine each takes about 2 kB of memory and 0.03 milliseconds: 500000 take 1 GB and 15 seconds.
FACET_LIMIT = 500000

# One file, or one for each part: the further ones stand beside the first (writing).
MULTIPLE_FILES = one-file

# Exact shapes as facets: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes as facets: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
