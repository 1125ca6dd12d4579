// The intersection of the section plane with the facets of a part.

// The approximate distance between the lines of an outline: the area of its box divided by its length.
function outlineGap({ segments, low, high }) {
  const sides = low.map((value, i) => high[i] - value).sort((a, b) => b - a);
  let length = 0;
  for (let i = 0; i < segments.length; i += 6) {
    length += Math.hypot(segments[i] - segments[i + 3], segments[i + 1] - segments[i + 4], segments[i + 2] - segments[i + 5]);
  }
  return length > 0 ? (sides[0] * sides[1]) / length : 0;
}

// The segments in the plane, six scene coordinates each, and their box. Each segment has the material on the same
// side. Neighbouring facets give exactly equal ends, so the segments of a solid form closed loops.
function cutOf(part, mesh, plane) {
  const cut = { plane, segments: null, low: [Infinity, Infinity, Infinity], high: [-Infinity, -Infinity, -Infinity] };
  const { rows } = part;
  // Heights above the plane, from positions in the mesh's box.
  const [a, b, c, d] = [0, 1, 2, 3].map((i) => plane[0] * rows[i] + plane[1] * rows[4 + i] + plane[2] * rows[8 + i]);
  const base = d - plane[3];
  const least = base + Math.min(a, 0) + Math.min(b, 0) + Math.min(c, 0);
  const greatest = base + Math.max(a, 0) + Math.max(b, 0) + Math.max(c, 0);
  if (least > 0 || greatest <= 0) return cut;

  const { positions, corners } = mesh;
  const heights = new Float64Array(mesh.vertices);
  for (let i = 0, at = 0; i < heights.length; ++i, at += 3) {
    heights[i] = (a * positions[at] + b * positions[at + 1] + c * positions[at + 2]) / 65535 + base;
  }
  const found = [];
  // Always computed from the kept end to the removed one, so that both facets at an edge get the same point.
  const cross = (kept, gone, to) => {
    const share = heights[kept] / (heights[kept] - heights[gone]);
    const place = [0, 1, 2].map((i) => {
      const from = positions[3 * kept + i];
      return (from + share * (positions[3 * gone + i] - from)) / 65535;
    });
    for (let row = 0; row < 3; ++row) {
      const at = 4 * row;
      const value = rows[at] * place[0] + rows[at + 1] * place[1] + rows[at + 2] * place[2] + rows[at + 3];
      found[to + row] = value;
      cut.low[row] = Math.min(cut.low[row], value);
      cut.high[row] = Math.max(cut.high[row], value);
    }
  };
  for (let first = 0; first < corners.length; first += 3) {
    const above = heights[corners[first]] > 0;
    if (above === (heights[corners[first + 1]] > 0) && above === (heights[corners[first + 2]] > 0)) continue;
    const segment = found.length;
    for (let i = 0; i < 3; ++i) {
      const [from, to] = [corners[first + i], corners[first + ((i + 1) % 3)]];
      if ((heights[from] > 0) === (heights[to] > 0)) continue;
      if (heights[from] > 0) cross(to, from, segment + 3);
      else cross(from, to, segment);
    }
  }
  if (found.length > 0) cut.segments = new Float32Array(found);
  return cut;
}
