# Options of the STEP translators. Each line "KEY = value" sets a default, which a request can override.

# Unit of the numbers in the file (writing; reading takes it from the file).
# Numbers are converted from the model's unit; "unspecified" keeps the model's, millimetre for a model without one.
LENGTH_UNIT = unspecified

# Unit of the plane angles in the file (writing; reading takes it from the file): degree, radian, gradian, arc-minute,
# arc-second or turn. All but radian leave curves in the parameters of surfaces out, as TRIM = model-space does.
ANGULAR_UNIT = radian

# Factor for all coordinates, greater than 0 (reading and writing).
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). auto is +Z.
# Writing turns a model with another axis up; keep leaves every model as it is.
UP_AXIS = auto

# Take colours of products and faces (reading).
READ_MATERIALS = 1

# Kinds of shapes to take: all, solids or surfaces (reading). Surfaces are faces that belong to no solid.
# Curves and points are never taken.
ENTITY_TYPES = all

# Which curves bound a face where there are both (writing). model-space leaves those in the parameters of the surface
# out, which makes smaller files. Reading takes both and makes those that are missing.
TRIM = as-preferred

# Go on without faces that cannot be turned into facets (reading). 0: a format of facets then fails and names the part.
ALLOW_GAPS = 0

# Read bodies that the file hides by INVISIBILITY, by their style or their layer, like the rest (reading). 0: they are
# left out and counted.
SHOW_HIDDEN = 0

# Application protocol: AP203, AP214 or AP242 (writing).
STEP_AP = AP214

# What meshes and exact shapes become: as-is, exact or facets (writing).
# as-is: exact shapes stay what they are, a mesh becomes planar faces. exact: a model with a mesh is refused.
# facets: exact shapes become planar faces too, as close as the tolerances say.
REPRESENTATION = as-is

# Meshes: the largest number of planar faces that all of them may become, greater than 0 (writing). On an ordinary
# machine each takes about 23 kB of memory and 0.3 milliseconds: 40000 take 1 GB and 13 seconds.
FACET_LIMIT = 40000

# One file, or one for each part: the further ones stand beside the first (writing).
MULTIPLE_FILES = one-file

# Write colours of products and faces (writing).
WRITE_MATERIALS = 1

# Exact shapes as facets: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes as facets: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
