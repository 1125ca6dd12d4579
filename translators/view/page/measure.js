// The distance between two points of the model, which a ruler in the picture shows.

// How far off what is picked can be, over the model's radius.
const pickSlack = 1e-5;

// Ends of lines that are so close to the pointer are meant, in pixels.
const snapping = 9;

class Measure {
  constructor(model, camera, section) {
    this.model = model;
    this.camera = camera;
    this.section = section;
    this.on = false;
    this.points = [];
    this.slacks = [];
    this.ruler = document.getElementById("ruler");
    this.text = document.getElementById("ruler-text");
  }

  turn(on) {
    this.on = on;
    this.points = [];
    this.draw();
  }

  take(hit) {
    if (this.points.length === 2) this.points = [];
    this.slacks[this.points.length] = this.slackOf(hit.part);
    this.points.push(this.snapped(hit));
    this.draw();
  }

  // How far off a point of a part can be: its vertices have places in 65535 steps along the box.
  slackOf({ box }) {
    return pickSlack * this.model.radius + Math.max(...[0, 1, 2].map((i) => box[i + 3] - box[i])) / 65535;
  }

  // The end of a line of the part near the point that was hit, unless it is cut away; else that point.
  snapped(hit) {
    const { positions, lines } = this.model.meshes[hit.part.mesh];
    const { rows } = hit.part;
    let nearest = hit.point;
    let best = snapping * this.camera.pixel();
    if (!this.camera.parallel) best *= (this.camera.distance - this.camera.seen(hit.point)[2]) / this.camera.distance;
    best *= best;
    for (let i = 0; i < lines.length; ++i) {
      const at = 3 * lines[i];
      const [x, y, z] = [positions[at] / 65535, positions[at + 1] / 65535, positions[at + 2] / 65535];
      const px = rows[0] * x + rows[1] * y + rows[2] * z + rows[3];
      const py = rows[4] * x + rows[5] * y + rows[6] * z + rows[7];
      const pz = rows[8] * x + rows[9] * y + rows[10] * z + rows[11];
      const d = (px - hit.point[0]) ** 2 + (py - hit.point[1]) ** 2 + (pz - hit.point[2]) ** 2;
      if (d >= best || this.section.removes([px, py, pz])) continue;
      best = d;
      nearest = [px, py, pz];
    }
    return nearest;
  }

  // To be called whenever the picture changes.
  draw() {
    const shown = this.on && this.points.length > 0;
    this.ruler.toggleAttribute("hidden", !shown);
    this.text.hidden = !shown || this.points.length < 2;
    if (!shown) return;
    const ends = this.points.map((point) => this.camera.onScreen(point));
    const from = ends[0];
    const to = ends[ends.length - 1];
    for (const id of ["ruler-line", "ruler-back"]) {
      const line = document.getElementById(id);
      [["x1", from[0]], ["y1", from[1]], ["x2", to[0]], ["y2", to[1]]].forEach(([key, value]) => line.setAttribute(key, value));
    }
    [["ruler-from", from], ["ruler-to", to]].forEach(([id, end]) => {
      const circle = document.getElementById(id);
      circle.setAttribute("cx", end[0]);
      circle.setAttribute("cy", end[1]);
    });
    if (this.points.length === 2) this.tell(from, to);
  }

  tell(from, to) {
    const { radius, unit } = this.model;
    const steps = this.points[1].map((value, i) => (value - this.points[0][i]) * radius);
    // All with the digits that the two points make sense of.
    const last = 10 ** Math.ceil(Math.log10(this.slacks[0] + this.slacks[1]));
    const text = (value, of) => lengthText(Math.round(value / last) * last, of);
    const [dx, dy, dz] = steps.map((value) => text(value, ""));
    const details = document.createElement("small");
    details.textContent = `X ${dx}   Y ${dy}   Z ${dz}`;
    this.text.replaceChildren(text(Math.hypot(...steps), unit), details);
    const x = (from[0] + to[0]) / 2;
    const y = (from[1] + to[1]) / 2;
    this.text.style.transform = `translate(calc(${x}px - 50%), calc(${y}px - 100% - 14px))`;
  }
}
