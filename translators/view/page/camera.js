// The position and direction of the view. Lengths are in scene units: the model relative to its centre, divided by its
// radius.

const opening = Math.tan((28 / 2) * (Math.PI / 180));

const standardViews = {
  front: [0, 0], back: [180, 0], left: [-90, 0], right: [90, 0], top: [0, 90], bottom: [0, -90], iso: [45, 35.264],
};

class Camera {
  // `up` is the up axis, "y" or "z".
  constructor(up) {
    this.up = up;
    this.target = [0, 0, 0];
    this.turn = Math.PI / 4; // around the up axis; 0 looks along +Y, or along -Z where +Y is up
    this.rise = 0.6155; // elevation above the ground
    this.distance = 4;
    this.parallel = false;
    this.width = this.height = 1;
  }

  // The directions right, up and towards the eye.
  axes() {
    const [ct, st, cr, sr] = [Math.cos(this.turn), Math.sin(this.turn), Math.cos(this.rise), Math.sin(this.rise)];
    const axes = [[ct, st, 0], [-st * sr, ct * sr, cr], [st * cr, -ct * cr, sr]];
    return this.up === "y" ? axes.map(([x, y, z]) => [x, z, -y]) : axes;
  }

  // A scene point in camera directions, relative to the target.
  seen(point, axes = this.axes()) {
    const d = point.map((value, i) => value - this.target[i]);
    return axes.map((axis) => axis[0] * d[0] + axis[1] * d[1] + axis[2] * d[2]);
  }

  placed(seen, axes = this.axes()) {
    return [0, 1, 2].map((i) => this.target[i] + axes[0][i] * seen[0] + axes[1][i] * seen[1] + axes[2][i] * seen[2]);
  }

  // The minimum and maximum distance from the eye to anything visible.
  span() {
    // The scene is within this distance of its centre, and therefore of the target.
    const reach = 1.02 + Math.hypot(...this.target);
    const far = this.distance + reach;
    return [this.parallel ? this.distance - reach : Math.max(this.distance - reach, far / 4000), far];
  }

  // The view and projection matrices, 4 x 4, by columns.
  matrices() {
    const axes = this.axes();
    const at = axes.map((axis) => -(axis[0] * this.target[0] + axis[1] * this.target[1] + axis[2] * this.target[2]));
    const view = [];
    for (let i = 0; i < 3; ++i) view.push(axes[0][i], axes[1][i], axes[2][i], 0);
    view.push(at[0], at[1], at[2] - this.distance, 1);
    const [near, far] = this.span();
    const depth = far - near;
    const y = 1 / opening;
    const x = (y * this.height) / this.width;
    if (this.parallel) {
      const k = 1 / this.distance;
      return [view, [x * k, 0, 0, 0, 0, y * k, 0, 0, 0, 0, -2 / depth, 0, 0, 0, -(far + near) / depth, 1]];
    }
    return [view, [x, 0, 0, 0, 0, y, 0, 0, 0, 0, -(far + near) / depth, -1, 0, 0, (-2 * far * near) / depth, 0]];
  }

  // The size of a pixel at the target.
  pixel() {
    return (2 * opening * this.distance) / this.height;
  }

  // The size of a pixel at a point of the scene.
  pixelAt(point) {
    if (this.parallel) return this.pixel();
    return (this.pixel() * Math.max(this.distance - this.seen(point)[2], 1e-9)) / this.distance;
  }

  // In pixels from the upper left corner.
  onScreen(point) {
    const [x, y, z] = this.seen(point);
    const shrink = this.parallel ? 1 : this.distance / Math.max(this.distance - z, 1e-9);
    const scale = shrink / this.pixel();
    return [this.width / 2 + x * scale, this.height / 2 - y * scale];
  }

  // The point under a pixel, at the depth of the target.
  under(x, y) {
    const pixel = this.pixel();
    return this.placed([(x - this.width / 2) * pixel, (this.height / 2 - y) * pixel, 0]);
  }

  // Rotates around a point, which keeps its position on the screen.
  orbit(dx, dy, about) {
    const before = this.seen(about);
    this.turn -= dx;
    this.rise = Math.min(Math.max(this.rise + dy, -Math.PI / 2), Math.PI / 2);
    const axes = this.axes();
    this.target = [0, 1, 2].map(
      (i) => about[i] - axes[0][i] * before[0] - axes[1][i] * before[1] - axes[2][i] * before[2]);
  }

  pan(dx, dy) {
    const pixel = this.pixel();
    this.target = this.placed([-dx * pixel, dy * pixel, 0]);
  }

  // Zooms about a point, which keeps its position on the screen.
  zoom(factor, about) {
    const k = Math.min(Math.max(this.distance * factor, 1e-4), 60) / this.distance;
    this.distance *= k;
    this.target = this.target.map((value, i) => about[i] + (value - about[i]) * k);
  }

  // Moves the camera, without rotation, so that the boxes are completely visible.
  fit(boxes) {
    if (boxes.length === 0) return;
    const axes = this.axes();
    const low = [Infinity, Infinity, Infinity];
    const high = [-Infinity, -Infinity, -Infinity];
    const corners = [];
    for (const box of boxes) {
      for (let i = 0; i < 8; ++i) {
        const point = [box[i & 1 ? 3 : 0], box[i & 2 ? 4 : 1], box[i & 4 ? 5 : 2]];
        const seen = axes.map((axis) => axis[0] * point[0] + axis[1] * point[1] + axis[2] * point[2]);
        corners.push(seen);
        for (let k = 0; k < 3; ++k) {
          low[k] = Math.min(low[k], seen[k]);
          high[k] = Math.max(high[k], seen[k]);
        }
      }
    }
    const middle = low.map((value, i) => (value + high[i]) / 2);
    this.target = [0, 1, 2].map((i) => axes[0][i] * middle[0] + axes[1][i] * middle[1] + axes[2][i] * middle[2]);
    // The toolbar covers the lower edge.
    const tools = this.height > 320 ? 64 : 0;
    const upright = opening * (1 - tools / this.height);
    const wide = (opening * this.width) / this.height;
    let distance = 1e-4;
    for (const corner of corners) {
      const towards = this.parallel ? 0 : corner[2] - middle[2];
      distance = Math.max(distance, towards + Math.abs(corner[0] - middle[0]) / wide);
      distance = Math.max(distance, towards + Math.abs(corner[1] - middle[1]) / upright);
    }
    this.distance = distance * 1.12;
    this.target = this.placed([0, (-tools / 2) * this.pixel(), 0], axes);
  }

  state() {
    return [...this.target, this.turn, this.rise, this.distance];
  }

  set(state) {
    this.target = state.slice(0, 3);
    [this.turn, this.rise, this.distance] = state.slice(3);
  }
}
