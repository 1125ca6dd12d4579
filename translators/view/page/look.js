// The main colour of a part.

// The colour of its mesh, else of the part itself; null where neither has one.
function lookOf(model, part) {
  const mesh = model.meshes[part.mesh];
  if (mesh && mesh.colours) return (mesh.mean ??= meanColour(mesh.colours));
  const look = mesh && mesh.triangles ? (mesh.main ??= mainLook(mesh)) : -1;
  return model.colours[look < 0 ? part.colour : look] || null;
}

// The index of the colour that covers most of a mesh, also used for its cut faces; -1 for the part's colour.
function mainLook(mesh) {
  if (mesh.ranges.length === 1) return mesh.ranges[0][0];
  const { positions, corners, box } = mesh;
  const step = [0, 1, 2].map((i) => (box[i + 3] - box[i]) / 65535);
  const side = (from, to) => step.map((size, i) => size * (positions[3 * to + i] - positions[3 * from + i]));
  const areas = new Map();
  for (const [look, first, count] of mesh.ranges) {
    let area = areas.get(look) || 0;
    for (let at = 3 * first; at < 3 * (first + count); at += 3) {
      const u = side(corners[at], corners[at + 1]);
      const v = side(corners[at], corners[at + 2]);
      area += Math.hypot(u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]);
    }
    areas.set(look, area);
  }
  return [...areas].reduce((most, entry) => (entry[1] > most[1] ? entry : most))[0];
}

// The mean of the vertex colours.
function meanColour(colours) {
  const sum = [0, 0, 0];
  for (let i = 0; i < colours.length; ++i) if (i % 4 < 3) sum[i % 4] += colours[i];
  return sum.map((value) => (4 * value) / (255 * colours.length));
}
