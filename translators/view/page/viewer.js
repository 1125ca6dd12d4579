// Connects all parts of the page: visibility, selection and drawing.

class Viewer {
  constructor(model, canvas, renderer) {
    this.model = model;
    this.canvas = canvas;
    this.renderer = renderer;
    this.camera = new Camera(model.up);
    this.selected = null;
    this.waiting = 0;
    this.tree = new Tree(model, {
      select: (node) => this.select(node),
      show: (node, visible) => this.show(node, visible),
      fit: () => this.fit(),
    });
    this.section = new Section(model, this.camera, (cut, plane) => {
      Object.assign(renderer.options, { cut, plane });
      this.redraw();
    });
    this.measure = new Measure(model, this.camera, this.section, (x, y) => renderer.pick(this.camera, x, y));
    this.pointer = new Pointer(canvas, this.camera, {
      pick: (x, y) => renderer.pick(this.camera, x, y),
      click: (x, y) => this.click(x, y),
      rest: (x, y) => this.measure.point(x, y),
      leave: () => this.measure.leave(),
      fit: () => this.fit(),
      redraw: () => this.redraw(),
      middle: () => this.middle(),
    });
    this.ui = new Ui(this);
    new ResizeObserver(() => {
      if (!this.resize()) return;
      // The model is fitted to the picture until the user moves the camera.
      if (this.camera.state().join() === this.first) this.fitFirst();
      // At once: a resized canvas is empty until it is drawn.
      this.draw();
    }).observe(canvas);
    canvas.addEventListener("webglcontextlost", (event) => event.preventDefault());
    canvas.addEventListener("webglcontextrestored", () => {
      renderer.build();
      this.refresh();
    });
    this.resize();
    this.ui.tellSize(null, model.parts);
    this.fitFirst();
    this.draw();
  }

  fitFirst() {
    this.camera.fit([this.boxOf(this.model.box)]);
    this.first = this.camera.state().join();
  }

  // A box of the model in scene coordinates.
  boxOf(box) {
    const { centre, radius } = this.model;
    return box.map((value, i) => (value - centre[i % 3]) / radius);
  }

  resize() {
    const { clientWidth: width, clientHeight: height } = this.canvas;
    const sharpness = Math.min(devicePixelRatio || 1, 2.5);
    Object.assign(this.camera, { width: Math.max(width, 1), height: Math.max(height, 1) });
    const size = [Math.max(1, Math.round(width * sharpness)), Math.max(1, Math.round(height * sharpness))];
    if (this.canvas.width === size[0] && this.canvas.height === size[1]) return false;
    [this.canvas.width, this.canvas.height] = size;
    return true;
  }

  redraw() {
    if (this.waiting) return;
    this.waiting = requestAnimationFrame(() => this.draw());
  }

  draw() {
    cancelAnimationFrame(this.waiting);
    this.waiting = 0;
    this.renderer.draw(this.camera);
    this.measure.draw();
    this.ui.drawTriad(this.camera.axes(), this.camera.height);
  }

  partsOf(node) {
    if (!node) return this.model.parts;
    return this.model.nodes.slice(node.number, node.end).filter((below) => below.mesh >= 0);
  }

  refresh() {
    const { selected } = this;
    this.renderer.refresh((part) => selected && part.number >= selected.number && part.number < selected.end);
    this.ui.tellSize(selected, this.partsOf(selected));
    this.redraw();
  }

  select(node) {
    this.selected = node;
    this.tree.reveal(node);
    this.refresh();
  }

  show(node, visible) {
    for (const part of this.partsOf(node)) part.visible = visible;
    this.tree.render();
    this.refresh();
  }

  isolate() {
    if (!this.selected) return;
    for (const part of this.model.parts) part.visible = false;
    this.show(this.selected, true);
  }

  hide() {
    if (!this.selected) return;
    const node = this.selected;
    this.selected = null;
    this.tree.reveal(null);
    this.show(node, false);
  }

  showAll() {
    this.show(null, true);
  }

  click(x, y) {
    if (this.measure.on) {
      this.measure.take(x, y);
      this.ui.tellMeasuring();
    } else {
      const hit = this.renderer.pick(this.camera, x, y);
      this.select(hit ? hit.part : null);
    }
  }

  // The selected parts that are visible, else all visible parts.
  subject() {
    const chosen = this.selected ? this.partsOf(this.selected).filter((part) => part.visible) : [];
    return chosen.length > 0 ? chosen : this.model.parts.filter((part) => part.visible);
  }

  middle() {
    const box = joinBoxes(this.subject());
    if (!box) return this.camera.target;
    const scene = this.boxOf(box);
    return [0, 1, 2].map((i) => (scene[i] + scene[i + 3]) / 2);
  }

  fit() {
    this.travel(() => this.camera.fit(this.subject().map((part) => this.boxOf(part.box))));
  }

  look(name) {
    const [turn, rise] = standardViews[name].map((degrees) => (degrees * Math.PI) / 180);
    this.travel(() => {
      // Turn by the smaller angle.
      this.camera.turn = turn + 2 * Math.PI * Math.round((this.camera.turn - turn) / (2 * Math.PI));
      this.camera.rise = rise;
      this.camera.fit(this.subject().map((part) => this.boxOf(part.box)));
    });
  }

  // Moves the camera to the state set by `change`, with a short animation.
  travel(change) {
    const from = this.camera.state();
    change();
    const to = this.camera.state();
    const journey = (this.journey = {});
    if (matchMedia("(prefers-reduced-motion: reduce)").matches) return this.redraw();
    const start = performance.now();
    const step = () => {
      if (this.journey !== journey) return;
      const passed = Math.min((performance.now() - start) / 280, 1);
      const eased = 1 - (1 - passed) ** 3;
      this.camera.set(from.map((value, i) => value + (to[i] - value) * eased));
      this.draw();
      if (passed < 1) requestAnimationFrame(step);
    };
    this.camera.set(from);
    return step();
  }
}
