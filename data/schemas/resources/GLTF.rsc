# Options of the glTF translators. Each line "KEY = value" sets a default, which a request can override.

# Factor for all coordinates, greater than 0 (reading and writing). The unit of glTF is the metre.
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (reading and writing). auto is +Y.
# Writing turns a model with another axis up by a node at the top, which reading removes again; keep leaves every model
# as it is.
UP_AXIS = auto

# Give equal points one number, so that triangles share them (reading). Where normals differ at a point,
# they are kept for each corner.
WELD_POINTS = 0

# Take the colours of materials (reading).
READ_MATERIALS = 1

# Write the colours of faces and parts as materials (writing).
# The materials of bodies that are not closed show both sides of a face.
WRITE_MATERIALS = 1

# Write normals, where the model has them (writing). A point at a hard edge is written once for each of its normals.
WRITE_NORMALS = 1

# Write the colours of vertices, where the model has them (writing).
WRITE_VERTEX_COLOURS = 1

# Put the binary data into the file itself and not into a file beside it (writing).
EMBED_BUFFERS = 0

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
