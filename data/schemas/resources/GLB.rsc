# Options for writing binary glTF; GLTF.rsc has those for reading it. Each line "KEY = value" sets a default, which a
# request can override.

# Factor for all coordinates, greater than 0 (writing). The unit of glTF is the metre.
SCALE = 1

# Axis that points up in the file: auto, y, z or keep (writing). auto is +Y. A model with another axis up is turned by a
# node at the top; keep leaves every model as it is.
UP_AXIS = auto

# Write the colours of faces and parts as materials (writing).
# The materials of bodies that are not closed show both sides of a face.
WRITE_MATERIALS = 1

# Write normals, where the model has them (writing). A point at a hard edge is written once for each of its normals.
WRITE_NORMALS = 1

# Write the colours of vertices, where the model has them (writing).
WRITE_VERTEX_COLOURS = 1

# Exact shapes: largest distance between a facet and the true surface, in the model's unit (writing).
# 0: a two thousandth of the part's size, the diagonal of its box.
CHORD_TOLERANCE = 0

# Exact shapes: largest angle between neighbouring facets, in degrees (writing). 0: 20 degrees.
ANGLE_TOLERANCE = 0
