// The section plane.

// The plane is moved by this distance towards the removed side, in scene units, so that faces in the plane stay on one
// side. Vertices have an error of up to half a step of the positions along each side of their mesh's box.
const sectionSlack = 3e-5;

class Section {
  // `changed(cut, plane)` is called with the plane as normal and distance in the scene.
  constructor(model, camera, changed) {
    this.model = model;
    this.camera = camera;
    this.changed = changed;
    this.on = false;
    this.flipped = false;
    this.place = document.getElementById("section-place");
    this.at = document.getElementById("section-at");
    this.place.addEventListener("input", () => this.apply());
    for (const choice of document.getElementsByName("axis")) choice.addEventListener("change", () => this.face());
    document.getElementById("section-flip").addEventListener("click", () => {
      this.flipped = !this.flipped;
      this.apply();
    });
  }

  turn(on) {
    if (on === this.on) return;
    this.on = on;
    this.face();
  }

  // Removes the side nearer to the eye, so that the cut is visible.
  face() {
    this.flipped = this.camera.axes()[2][this.axis()] < 0;
    this.apply();
  }

  axis() {
    return Number(document.querySelector("input[name=axis]:checked").value);
  }

  apply() {
    const { box, centre, radius, unit } = this.model;
    const axis = this.axis();
    const value = box[axis] + (box[axis + 3] - box[axis]) * (this.place.value / 1000);
    const text = `${"XYZ"[axis]} = ${lengthText(Math.abs(value) < 1e-9 * radius ? 0 : value, unit)}`;
    this.at.textContent = text;
    this.place.setAttribute("aria-valuetext", text);
    const sign = this.flipped ? -1 : 1;
    const plane = [0, 0, 0, (sign * (value - centre[axis])) / radius + sectionSlack];
    plane[axis] = sign;
    this.plane = plane;
    this.changed(this.on, plane);
  }

  // True when a point of the scene is cut away.
  removes(point) {
    const { plane } = this;
    return this.on && plane[0] * point[0] + plane[1] * point[1] + plane[2] * point[2] > plane[3];
  }
}
