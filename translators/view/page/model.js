// The model in the page: meshes with their vertices, and nodes in tree order.

// Decodes the base64 text of all elements of class "data".
function decodeData() {
  const elements = [...document.querySelectorAll("script.data")];
  const pieces = elements.map((element) => {
    const text = element.textContent;
    element.textContent = "";
    if (Uint8Array.fromBase64) return Uint8Array.fromBase64(text);
    const binary = atob(text);
    const bytes = new Uint8Array(binary.length);
    for (let i = 0; i < bytes.length; ++i) bytes[i] = binary.charCodeAt(i);
    return bytes;
  });
  if (pieces.length === 1 && pieces[0].byteOffset === 0) return pieces[0];
  const all = new Uint8Array(pieces.reduce((sum, piece) => sum + piece.length, 0));
  let at = 0;
  for (const piece of pieces) {
    all.set(piece, at);
    at += piece.length;
  }
  return all;
}

const upToFour = (size) => (size + 3) & ~3;

// Each index is stored as its distance below the next unused index.
function decodeCorners(bytes, at, count, vertices) {
  const corners = vertices > 65536 ? new Uint32Array(count) : new Uint16Array(count);
  let next = 0;
  for (let i = 0; i < count; ++i) {
    let byte = bytes[at++];
    let below = byte & 127;
    for (let shift = 7; byte > 127; shift += 7) {
      byte = bytes[at++];
      below |= (byte & 127) << shift;
    }
    const corner = next - below;
    if (below === 0) ++next;
    corners[i] = corner;
  }
  return corners;
}

// Pairs of vertex indices, stored as differences.
function decodeLines(bytes, at, count, vertices) {
  const lines = vertices > 65536 ? new Uint32Array(2 * count) : new Uint16Array(2 * count);
  const take = () => {
    let byte = bytes[at++];
    let value = byte & 127;
    for (let shift = 7; byte > 127; shift += 7) {
      byte = bytes[at++];
      value |= (byte & 127) << shift;
    }
    return value & 1 ? -((value + 1) >>> 1) : value >>> 1;
  };
  let first = 0;
  for (let i = 0; i < 2 * count; i += 2) {
    first += take();
    lines[i] = first;
    lines[i + 1] = first + take();
  }
  return lines;
}

function readMeshes(list) {
  const bytes = decodeData();
  let at = 0;
  const take = (size) => {
    const from = at;
    at += upToFour(size);
    return from;
  };
  return list.map((entry) => {
    const { box, ranges, gap } = entry;
    const mesh = { box, ranges, gap, solid: entry.solid === 1, vertices: entry.v, triangles: entry.t };
    if (entry.t === 0) return mesh;
    mesh.positions = new Uint16Array(bytes.buffer, take(6 * entry.v), 3 * entry.v);
    mesh.normals = new Int16Array(bytes.buffer, take(4 * entry.v), 2 * entry.v);
    if (entry.tinted) {
      mesh.colours = new Uint8Array(bytes.buffer, take(4 * entry.v), 4 * entry.v);
      mesh.clear = mesh.colours.some((value, i) => i % 4 === 3 && value < 255);
    }
    mesh.corners = decodeCorners(bytes, take(entry.c), 3 * entry.t, entry.v);
    mesh.lines = decodeLines(bytes, take(entry.l), entry.e, entry.v);
    return mesh;
  });
}

// A named instance has two names: the instance's and the part's. `title` has both.
function namesOf(names) {
  if (!Array.isArray(names)) return { name: names, part: "", title: names };
  const [name, part] = names;
  return { name, part, title: part ? `${name} (${part})` : name };
}

// Nodes come before their descendants, so the descendants of node i are the nodes from i + 1 to its `end`.
function readNodes(list) {
  const nodes = list.map(([parent, names, mesh = -1, colour = -1, placement = null, box = null], number) => ({
    number, parent, ...namesOf(names), mesh, colour, placement, box,
    end: number + 1, depth: 0, visible: true, open: false,
  }));
  for (let i = nodes.length - 1; i >= 0; --i) {
    const parent = nodes[nodes[i].parent];
    if (parent) parent.end = Math.max(parent.end, nodes[i].end);
  }
  for (const node of nodes) {
    if (node.parent >= 0) node.depth = nodes[node.parent].depth + 1;
  }
  return nodes;
}

function joinBoxes(nodes) {
  const box = [Infinity, Infinity, Infinity, -Infinity, -Infinity, -Infinity];
  for (const node of nodes) {
    if (!node.box) continue;
    for (let i = 0; i < 3; ++i) {
      box[i] = Math.min(box[i], node.box[i]);
      box[i + 3] = Math.max(box[i + 3], node.box[i + 3]);
    }
  }
  return box[0] <= box[3] ? box : null;
}

function readModel() {
  const scene = JSON.parse(document.getElementById("scene").textContent);
  const nodes = readNodes(scene.nodes);
  const parts = nodes.filter((node) => node.mesh >= 0);
  const box = joinBoxes(parts);
  const size = [0, 1, 2].map((i) => box[i + 3] - box[i]);
  return {
    title: scene.title,
    unit: scene.unit,
    up: scene.up,
    colours: scene.colours,
    meshes: readMeshes(scene.meshes),
    nodes,
    parts,
    box,
    // The scene is drawn relative to this centre and in units of this radius, to keep precision.
    centre: [0, 1, 2].map((i) => box[i] + size[i] / 2),
    radius: Math.hypot(...size) / 2 || 1,
  };
}
