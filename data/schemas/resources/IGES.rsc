# Options of the IGES translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (writing; reading takes it from the file).
# Numbers are converted from the model's unit; "unspecified" keeps the model's, millimetre for a model without one.
LENGTH_UNIT = unspecified

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). auto is +Z.
# Writing turns a model with another axis up; keep leaves every model as it is.
UP_AXIS = auto

# Take colours of products and faces (reading).
READ_MATERIALS = 1

# Kinds of shapes to take: all, solids or surfaces (reading and writing). Surfaces are faces that belong to no solid.
# Curves and points are never taken. When written, "surfaces" writes the faces of solids as loose trimmed surfaces,
# which older programs read; anything else writes solids as solids.
ENTITY_TYPES = all

# Which curves bound a face where a file gives both: as-preferred (by the file), model-space or parameter-space
# (reading).
TRIM = as-preferred

# Go on without faces that cannot be turned into facets (reading). 0: a format of facets then fails and names the part.
ALLOW_GAPS = 0

# Read bodies that the file marks as blanked like the rest (reading). 0: they are left out and counted.
SHOW_HIDDEN = 0

# What meshes and exact shapes become: as-is, exact or facets (writing).
# as-is: exact shapes stay what they are, a mesh becomes planar faces. exact: a model with a mesh is refused.
# facets: exact shapes become planar faces too, as close as the tolerances say.
REPRESENTATION = as-is

# Meshes: the largest number of planar faces that all of them may become, each as often as it occurs, greater than 0
# (writing). On an ordinary machine each takes about 9 kB of memory and 0.15 milliseconds: 100000 take 1 GB and 15
# seconds.
FACET_LIMIT = 100000

# One file, or one for each part: the further ones stand beside the first (writing).
MULTIPLE_FILES = one-file

# Write colours of products and faces (writing).
WRITE_MATERIALS = 1

# Exact shapes as facets: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes as facets: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
