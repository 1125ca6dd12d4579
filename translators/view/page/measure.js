// Measures the distance between two points of the model and draws a ruler.

// The maximum error of a picked point, relative to the model's radius.
const pickSlack = 1e-5;

// A vertex within this distance of the pointer, in pixels, replaces the point under it.
const snapping = 10;

// The number of vertices to check for visibility: most of the nearest ones are visible.
const mostCandidates = 6;

class Measure {
  // `pick(x, y)` returns what is visible at a pixel, as in the renderer.
  constructor(model, camera, section, pick) {
    Object.assign(this, { model, camera, section, pick });
    this.on = false;
    this.ends = []; // {point, slack, snapped}
    this.aim = null; // the vertex that a click would select
    this.ruler = document.getElementById("ruler");
    this.text = document.getElementById("ruler-text");
    this.snap = document.getElementById("snap");
  }

  turn(on) {
    this.on = on;
    this.ends = [];
    this.aim = null;
    this.draw();
  }

  // Shows which vertex a click at the pointer position would select.
  point(x, y) {
    if (!this.on) return;
    this.aim = this.vertexNear(x, y);
    this.draw();
  }

  leave() {
    this.aim = null;
    this.snap.setAttribute("hidden", "");
  }

  take(x, y) {
    const end = this.vertexNear(x, y) || this.surfaceAt(x, y);
    if (!end) return;
    if (this.ends.length === 2) this.ends = [];
    this.ends.push(end);
    this.aim = null;
    this.draw();
  }

  // The maximum error of a vertex of a part: positions have 65536 steps along each side of the box.
  slackOf({ box }) {
    return Math.max(...[0, 1, 2].map((i) => box[i + 3] - box[i])) / 65535;
  }

  surfaceAt(x, y) {
    const hit = this.pick(x, y);
    if (!hit) return null;
    return { point: hit.point, slack: pickSlack * this.model.radius + this.slackOf(hit.part), snapped: false };
  }

  // The visible vertex nearest to a screen position; null when none is near enough.
  vertexNear(x, y) {
    const candidates = [];
    const axes = this.camera.axes();
    for (const part of this.model.parts) {
      if (part.visible && this.reaches(part, x, y, axes)) this.addVertices(part, x, y, axes, candidates);
    }
    const found = candidates.find((candidate) => this.isSeen(candidate));
    return found ? { point: found.point, slack: this.slackOf(found.part), snapped: true } : null;
  }

  // True when a vertex of the part may be near a screen position, from the sphere around the part's box.
  reaches({ box }, x, y, axes) {
    const { camera } = this;
    const { centre, radius } = this.model;
    const middle = centre.map((value, i) => ((box[i] + box[i + 3]) / 2 - value) / radius);
    const reach = Math.hypot(box[3] - box[0], box[4] - box[1], box[5] - box[2]) / 2 / radius;
    const [right, up, near] = camera.seen(middle, axes);
    let scale = 1 / camera.pixel();
    let largest = scale;
    if (!camera.parallel) {
      const away = camera.distance - near;
      // A sphere that reaches the eye may be anywhere on the screen.
      if (away <= 1.001 * reach) return true;
      largest *= camera.distance / (away - reach);
      scale *= camera.distance / away;
    }
    const off = Math.hypot(scale * right - (x - camera.width / 2), scale * up - (camera.height / 2 - y));
    return off < largest * reach + (largest - scale) * Math.hypot(right, up) + snapping;
  }

  // Adds the part's vertices near a screen position to the candidates, which are sorted by screen distance.
  addVertices(part, x, y, axes, candidates) {
    const { positions, vertices } = this.model.meshes[part.mesh];
    const { camera } = this;
    const { rows } = part;
    // From a position in the mesh's box to camera directions, in one step.
    const [right, up, near] = axes.map((axis) => {
      const way = [0, 1, 2, 3].map((i) => axis[0] * rows[i] + axis[1] * rows[4 + i] + axis[2] * rows[8 + i]);
      way[3] -= axis[0] * camera.target[0] + axis[1] * camera.target[1] + axis[2] * camera.target[2];
      return way;
    });
    const scale = 1 / camera.pixel();
    const [fromX, fromY] = [x - camera.width / 2, camera.height / 2 - y];
    for (let i = 0, at = 0; i < vertices; ++i, at += 3) {
      const [a, b, c] = [positions[at] / 65535, positions[at + 1] / 65535, positions[at + 2] / 65535];
      const z = near[0] * a + near[1] * b + near[2] * c + near[3];
      if (!camera.parallel && z >= camera.distance) continue;
      const k = camera.parallel ? scale : (scale * camera.distance) / (camera.distance - z);
      const dx = k * (right[0] * a + right[1] * b + right[2] * c + right[3]) - fromX;
      const dy = k * (up[0] * a + up[1] * b + up[2] * c + up[3]) - fromY;
      const off = dx * dx + dy * dy;
      const last = candidates[mostCandidates - 1];
      if (off > snapping * snapping || (last && (off > last.off || (off === last.off && z <= last.z)))) continue;
      // Vertices at the same point have different normals.
      if (candidates.some((other) => other.off === off && other.z === z)) continue;
      const point = [0, 4, 8].map((row) => rows[row] * a + rows[row + 1] * b + rows[row + 2] * c + rows[row + 3]);
      if (this.section.removes(point)) continue;
      // Of two vertices at the same screen position, the one nearer to the eye comes first.
      const before = candidates.findIndex((other) => off < other.off || (off === other.off && z > other.z));
      candidates.splice(before < 0 ? candidates.length : before, 0, { part, point, off, z });
      candidates.length = Math.min(candidates.length, mostCandidates);
    }
  }

  // True when nothing hides a vertex.
  isSeen({ point, z }) {
    const hit = this.pick(...this.camera.onScreen(point));
    return !hit || this.camera.seen(hit.point)[2] - z < 2 * this.camera.pixelAt(point) + 2 * pickSlack;
  }

  // Call this when the picture changes.
  draw() {
    const { ends } = this;
    const shown = this.on && ends.length > 0;
    this.ruler.toggleAttribute("hidden", !shown);
    this.text.hidden = !shown || ends.length < 2;
    this.snap.toggleAttribute("hidden", !this.on || !this.aim);
    if (this.on && this.aim) this.drawAim();
    if (!shown) return;
    const places = ends.map((end) => this.camera.onScreen(end.point));
    const from = places[0];
    const to = places[places.length - 1];
    for (const id of ["ruler-line", "ruler-back"]) {
      this.set(document.getElementById(id), { x1: from[0], y1: from[1], x2: to[0], y2: to[1] });
    }
    // A square at a vertex, a circle elsewhere.
    [["ruler-from", from, ends[0]], ["ruler-to", to, ends[ends.length - 1]]].forEach(([id, [x, y], end]) => {
      this.set(document.getElementById(id), { x: x - 4.5, y: y - 4.5, rx: end.snapped ? 0 : 4.5 });
    });
    if (ends.length === 2) this.tell(from, to);
  }

  drawAim() {
    const [x, y] = this.camera.onScreen(this.aim.point);
    this.set(this.snap.querySelector("rect"), { x: x - 6.5, y: y - 6.5 });
    this.set(this.snap.querySelector("text"), { x: x + 13, y: y - 9 });
  }

  set(shape, values) {
    for (const [key, value] of Object.entries(values)) shape.setAttribute(key, value);
  }

  tell(from, to) {
    const { radius, unit } = this.model;
    const { ends } = this;
    const steps = ends[1].point.map((value, i) => (value - ends[0].point[i]) * radius);
    // All numbers are rounded to the error of the two points.
    const last = 10 ** Math.ceil(Math.log10(ends[0].slack + ends[1].slack));
    const text = (value, of) => lengthText(Math.round(value / last) * last, of);
    const [dx, dy, dz] = steps.map((value) => text(value, ""));
    const lines = [`X ${dx}   Y ${dy}   Z ${dz}`, ends.map((end) => (end.snapped ? "vertex" : "point")).join(" to ")];
    const details = lines.map((line) => {
      const made = document.createElement("small");
      made.textContent = line;
      return made;
    });
    this.text.replaceChildren(text(Math.hypot(...steps), unit), ...details);
    const x = (from[0] + to[0]) / 2;
    const y = (from[1] + to[1]) / 2;
    this.text.style.transform = `translate(calc(${x}px - 50%), calc(${y}px - 100% - 14px))`;
  }
}
