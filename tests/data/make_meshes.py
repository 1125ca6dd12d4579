#!/usr/bin/env python3
"""Makes the mesh files here, the whole and the malformed ones, byte by byte and with none of our code:

    cd tests/data && ./make_meshes.py
"""

import base64
import json
import struct
import zipfile
from pathlib import Path

# A cube of 10 by quads, seen from outside, and its normals.
CUBE = [(x, y, z) for z in (0, 10) for y in (0, 10) for x in (0, 10)]
QUADS = [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)]
NORMALS = [(0, 0, -1), (0, 0, 1), (0, -1, 0), (0, 1, 0), (-1, 0, 0), (1, 0, 0)]
TETRAHEDRON = [(20, 0, 0), (30, 0, 0), (20, 10, 0), (20, 0, 10)]
TRIANGLES = [(0, 2, 1), (0, 1, 3), (0, 3, 2), (1, 2, 3)]


def write(name, content):
    path = Path(name)
    path.parent.mkdir(exist_ok=True)
    path.write_bytes(content if isinstance(content, bytes) else content.encode())


def fan(face):
    return [(face[0], face[i], face[i + 1]) for i in range(1, len(face) - 1)]


def triangles(points, faces):
    return [[points[corner] for corner in triangle] for face in faces for triangle in fan(face)]


def line(*values):
    return " ".join(map(str, values)) + "\n"


# STL


def ascii_stl(name, facets):
    text = f"solid {name}\n"
    for facet in facets:
        text += "facet normal 0 0 0\nouter loop\n" + "".join(line("vertex", *p) for p in facet) + "endloop\nendfacet\n"
    return text + f"endsolid {name}\n"


def normal(facet):
    (ax, ay, az), (bx, by, bz), (cx, cy, cz) = facet
    ux, uy, uz, vx, vy, vz = bx - ax, by - ay, bz - az, cx - ax, cy - ay, cz - az
    n = (uy * vz - uz * vy, uz * vx - ux * vz, ux * vy - uy * vx)
    length = sum(x * x for x in n) ** 0.5
    return [x / length for x in n]


# Without the bytes above 127 of its normals some programs take a binary file for text.
def binary_stl(header, facets, declared=None):
    content = header.ljust(80, b"\0") + struct.pack("<I", len(facets) if declared is None else declared)
    for facet in facets:
        content += struct.pack("<12fH", *normal(facet), *[number for point in facet for number in point], 0)
    return content


cube = triangles(CUBE, QUADS)
tetrahedron = triangles(TETRAHEDRON, TRIANGLES)
write("stl/cube_ascii.stl", ascii_stl("cube", cube))
write("stl/cube_binary.stl", binary_stl(b"", cube))
write("stl/two_solids.stl", ascii_stl("cube", cube) + ascii_stl("tetraèdre", tetrahedron))
write("stl/solid_in_header.stl", binary_stl(b"solid cube", cube) + b"\0")
write("stl/open_box.stl", binary_stl(b"a cube without its lid", triangles(CUBE, QUADS[:1] + QUADS[2:])))

# OBJ

text = "mtllib cube_normals.mtl\no cube\n" + "".join(line("v", *p) for p in CUBE) + "".join(line("vn", *n) for n in NORMALS)
for i, quad in enumerate(QUADS):
    if i in (0, 2):
        text += "usemtl " + ("red" if i == 0 else "glass") + "\n"
    text += line("f", *[f"{corner + 1}//{i + 1}" for corner in quad])
write("obj/cube_normals.obj", text)
write("obj/cube_normals.mtl", "newmtl red\nKd 1 0 0\nnewmtl glass\nKd 0.2 0.4 0.8\nd 0.5\n")
text = "g cube\n" + "".join(line("v", *p, p[0] / 10, p[1] / 10, p[2] / 10) for p in CUBE)
text += "".join(line("f", *[corner - 8 for corner in quad]) for quad in QUADS)
text += "g tetrahedron\n" + "".join(line("v", *p, 1, 1, 0) for p in TETRAHEDRON)
text += "".join(line("f", *[corner - 4 for corner in face]) for face in TRIANGLES)
write("obj/groups_colours.obj", text)
arrow = [(0, 0), (6, 0), (6, -3), (10, 2), (6, 7), (6, 4), (0, 4), (2, 2)]
write("obj/concave.obj", "".join(line("v", x, y, 0) for x, y in arrow) + line("f", *range(1, 9)))
write("obj/lines.obj", "".join(line("v", *p) for p in CUBE) + "l 1 2 4 3 1\nl 5 6\n")

# PLY and OFF

COLOURS = [(25 * x, 25 * y, 25 * z) for x, y, z in CUBE]
FACES = QUADS[1:] + fan(QUADS[0])


def ply(form, elements, body):
    return f"ply\nformat {form} 1.0\ncomment made for tests\n{elements}end_header\n".encode() + body


VERTEX = "element vertex 8\n" + "".join(f"property float {axis}\n" for axis in "xyz")
COLOUR = "".join(f"property uchar {name}\n" for name in ("red", "green", "blue"))
FACE = f"element face {len(FACES)}\nproperty list uchar int vertex_indices\n"
body = "".join(line(*p, *c) for p, c in zip(CUBE, COLOURS)) + "".join(line(len(f), *f) for f in FACES)
write("ply/cube_ascii.ply", ply("ascii", VERTEX + COLOUR + FACE, body.encode()))
for form, order in (("binary_little_endian", "<"), ("binary_big_endian", ">")):
    body = b"".join(struct.pack(order + "3f3B", *p, *c) for p, c in zip(CUBE, COLOURS))
    body += b"".join(struct.pack(f"{order}B{len(f)}i", len(f), *f) for f in FACES)
    write(f"ply/cube_{form}.ply", ply(form, VERTEX + COLOUR + FACE, body))
sides = "".join(line(4, *quad, *colour) for quad, colour in zip(QUADS[:5], [(255, 0, 0), (0, 255, 0)] * 3))
declared = "element face 5\nproperty list uchar int vertex_indices\n" + COLOUR
write("ply/open_face_colours.ply", ply("ascii", VERTEX + declared, ("".join(line(*p) for p in CUBE) + sides).encode()))
write("ply/points.ply", ply("ascii", VERTEX, "".join(line(*p) for p in CUBE).encode()))
faces = "".join(line(len(f), *f) for f in TRIANGLES)
write("off/tetrahedron.off", "OFF\n# made for tests\n4 4 6\n" + "".join(line(*p) for p in TETRAHEDRON) + faces)
faces = "".join(line(4, *quad, 0, 60 * i, 255) for i, quad in enumerate(QUADS))
write("off/cube_face_colours.off", "OFF\n8 6\n" + "".join(line(*p) for p in CUBE) + faces)

# glTF: metres, +Y up


def packed(arrays):
    """The views, the accessors and the bytes of arrays of numbers, each ("VEC3" or "SCALAR", numbers)."""
    views, accessors, content = [], [], b""
    for kind, numbers in arrays:
        floats = kind == "VEC3"
        data = struct.pack(f"<{len(numbers)}{'f' if floats else 'H'}", *numbers)
        accessor = {"bufferView": len(views), "componentType": 5126 if floats else 5123, "type": kind,
                    "count": len(numbers) // (3 if floats else 1)}
        if floats:
            accessor["min"] = [min(numbers[axis::3]) for axis in range(3)]
            accessor["max"] = [max(numbers[axis::3]) for axis in range(3)]
        views.append({"buffer": 0, "byteOffset": len(content), "byteLength": len(data)})
        accessors.append(accessor)
        content += data + b"\0" * (-len(data) % 4)
    return {"asset": {"version": "2.0"}, "scene": 0, "bufferViews": views, "accessors": accessors,
            "buffers": [{"byteLength": len(content)}]}, content


def glb(model, content, length=None):
    text = json.dumps(model).encode()
    text += b" " * (-len(text) % 4)
    chunks = struct.pack("<I4s", len(text), b"JSON") + text + struct.pack("<I4s", len(content), b"BIN\0") + content
    return struct.pack("<4sII", b"glTF", 2, len(chunks) + 12 if length is None else length) + chunks


# Four corners for each side, so that each has the normal of its side.
points = [n / 100 for quad in QUADS for corner in quad for n in CUBE[corner]]
normals = [float(n) for i in range(6) for _ in range(4) for n in NORMALS[i]]
indices = [4 * i + corner for i in range(6) for corner in (0, 1, 2, 0, 2, 3)]
model, content = packed([("VEC3", points), ("VEC3", normals), ("SCALAR", indices)])
model["materials"] = [{"name": "paint", "pbrMetallicRoughness": {"baseColorFactor": [0.8, 0.2, 0.1, 1]}}]
model["meshes"] = [{"name": "cube", "primitives": [
    {"attributes": {"POSITION": 0, "NORMAL": 1}, "indices": 2, "material": 0}]}]
model["nodes"] = [{"name": "pair", "children": [1, 2]}, {"name": "left", "mesh": 0},
                  {"name": "right", "mesh": 0, "translation": [0.3, 0, 0], "rotation": [0, 0.7071068, 0, 0.7071068]}]
model["scenes"] = [{"nodes": [0]}]
write("gltf/instances.glb", glb(model, content))
instances = (model, content)
model, content = packed([("VEC3", [0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0])])
model["buffers"][0]["uri"] = "data:application/octet-stream;base64," + base64.b64encode(content).decode()
model["meshes"] = [{"primitives": [{"attributes": {"POSITION": 0}}]}]
model["nodes"] = [{"mesh": 0}]
model["scenes"] = [{"nodes": [0]}]
write("gltf/sheet_no_indices.gltf", json.dumps(model, indent=1) + "\n")

# 3MF

TYPES = """<?xml version="1.0" encoding="UTF-8"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Default Extension="model" ContentType="application/vnd.ms-package.3dmanufacturing-3dmodel+xml"/>
</Types>
"""
CORE = "http://schemas.microsoft.com/3dmanufacturing/core/2015/02"
MATERIAL = "http://schemas.microsoft.com/3dmanufacturing/material/2015/02"
PRODUCTION = "http://schemas.microsoft.com/3dmanufacturing/production/2015/06"


def relationships(target):
    return f"""<?xml version="1.0" encoding="UTF-8"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">
<Relationship Id="rel0" Target="{target}" Type="http://schemas.microsoft.com/3dmanufacturing/2013/01/3dmodel"/>
</Relationships>
"""


def xml_model(resources, build, attributes="", unit="millimeter", prologue=""):
    return f"""<?xml version="1.0" encoding="UTF-8"?>
{prologue}<model unit="{unit}" xml:lang="en-US" xmlns="{CORE}"{attributes}>
<resources>
{resources}</resources>
<build{' p:UUID="00000000-0000-4000-8000-000000000001"' if PRODUCTION in attributes else ''}>
{build}</build>
</model>
"""


def mesh(points, faces, attributes=lambda index: ""):
    text = "<mesh>\n<vertices>\n" + "".join(f'<vertex x="{x}" y="{y}" z="{z}"/>\n' for x, y, z in points)
    text += "</vertices>\n<triangles>\n"
    for index, face in enumerate(faces):
        for a, b, c in fan(face):
            text += f'<triangle v1="{a}" v2="{b}" v3="{c}"{attributes(index)}/>\n'
    return text + "</triangles>\n</mesh>\n"


def threemf(name, parts):
    Path(name).parent.mkdir(exist_ok=True)
    with zipfile.ZipFile(name, "w", zipfile.ZIP_DEFLATED) as package:
        for part, text in parts.items():
            # A fixed time, so that the file comes out the same each time.
            package.writestr(zipfile.ZipInfo(part, (2020, 1, 1, 0, 0, 0)), text, zipfile.ZIP_DEFLATED)


def package(text, more=None):
    return {"[Content_Types].xml": TYPES, "_rels/.rels": relationships("/3D/3dmodel.model"), "3D/3dmodel.model": text,
            **(more or {})}


cube_mesh = mesh(CUBE, QUADS)
pair = (f'<object id="1" name="cube" type="model">\n{cube_mesh}</object>\n'
        '<object id="2" name="pair" type="model"><components>\n<component objectid="1"/>\n'
        '<component objectid="1" transform="0 1 0 -1 0 0 0 0 1 40 0 0"/>\n</components></object>\n')
threemf("3mf/components_inch.3mf", package(xml_model(pair, '<item objectid="2"/>\n', unit="inch")))
colours = ('<m:colorgroup id="5"><m:color color="#FF0000"/><m:color color="#00FF0080"/></m:colorgroup>\n'
           '<object id="1" type="model" pid="5" pindex="0">\n' +
           mesh(CUBE, QUADS, lambda index: ' pid="5" p1="1"' if index == 1 else "") + "</object>\n")
threemf("3mf/colours.3mf", package(xml_model(colours, '<item objectid="1"/>\n', f' xmlns:m="{MATERIAL}"')))
uuid = "00000000-0000-4000-8000-0000000000"
main = (f'<object id="2" p:UUID="{uuid}02" type="model"><components>\n'
        f'<component objectid="1" p:path="/3D/Objects/cube.model" p:UUID="{uuid}03"/>\n</components></object>\n')
needed = f' xmlns:p="{PRODUCTION}" requiredextensions="p"'
part = xml_model(f'<object id="1" p:UUID="{uuid}04" type="model">\n{cube_mesh}</object>\n', "", needed)
part = part.replace(f'<build p:UUID="{uuid}01">', "<build>")
threemf("3mf/production.3mf", package(
    xml_model(main, f'<item objectid="2" p:UUID="{uuid}05" transform="1 0 0 0 1 0 0 0 1 5 0 0"/>\n', needed),
    {"3D/Objects/cube.model": part, "3D/_rels/3dmodel.model.rels": relationships("/3D/Objects/cube.model")}))

# Malformed

write("malformed/declares_more.stl", binary_stl(b"", cube, 1000))
write("malformed/cut_in_a_facet.stl", ascii_stl("cube", cube)[:-150])
write("malformed/index_out_of_range.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 4\n")
write("malformed/zero_index.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 0 1 2\n")
write("malformed/not_a_number.obj", "v 0 0 nan\nv 1 0 0\nv 0 1 0\nf 1 2 3\n")
write("malformed/utf16.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n".encode("utf-16"))
write("malformed/empty.obj", "")
write("malformed/header_only.ply", ply("ascii", VERTEX + FACE, b""))
write("malformed/huge_count.ply", ply("binary_little_endian", VERTEX.replace("8", "4000000000") + FACE, b"\0" * 40))
write("malformed/huge_count.off", "OFF\n353535235358 6 0\n0 0 0\n")
write("malformed/index_out_of_range.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 7\n")
write("malformed/wrong_length.glb", glb(*instances, 12))
write("malformed/header_only.glb", b"glTF" + struct.pack("<II", 2, 12))
circle = {"asset": {"version": "2.0"}, "scenes": [{"nodes": [0]}], "nodes": [{"children": [1]}, {"children": [0]}]}
write("malformed/nodes_in_a_circle.gltf", json.dumps(circle) + "\n")
threemf("malformed/no_model.3mf", {"[Content_Types].xml": TYPES, "_rels/.rels": relationships("/3D/missing.model")})
doctype = '<!DOCTYPE model [<!ENTITY a "b">]>\n'
threemf("malformed/doctype.3mf", package(xml_model(pair, '<item objectid="2"/>\n', prologue=doctype)))
bad_index = cube_mesh.replace('v1="0"', 'v1="99"', 1)
threemf("malformed/index_out_of_range.3mf", package(
    xml_model(f'<object id="1" type="model">\n{bad_index}</object>\n', '<item objectid="1"/>\n')))
whole = {name: Path(name).read_text() for name in ("step/cup_open.step", "iges/cup_open.igs", "brep/cup_open.brep")}
for name, text in whole.items():
    write("malformed/cut_" + Path(name).name, text[: len(text) // 2])
write("malformed/missing_entity.step", whole["step/cup_open.step"].replace("CYLINDRICAL_SURFACE('',#", "CYLINDRICAL_SURFACE('',#9"))
write("malformed/first_line_83_columns.igs", " " * 83 + "\n")
