// The controls around the picture: buttons, keys, theme, sizes.

const element = (id) => document.getElementById(id);

class Ui {
  constructor(viewer) {
    this.viewer = viewer;
    this.panels = ["views", "section", "help"];
    const { model } = viewer;
    // File names wrap after their separators first.
    const pieces = model.title.split(/(?<=[_-])|(?=\.)/);
    element("title").replaceChildren(...pieces.flatMap((piece) => [document.createElement("wbr"), piece]));
    element("title").title = model.title;
    const triangles = model.parts.reduce((sum, part) => sum + model.meshes[part.mesh].triangles, 0);
    element("counts").textContent =
      `${countText(model.parts.length, "part", "parts")} \u00b7 ${countText(triangles, "triangle", "triangles")}`;
    this.actions = {
      fit: () => viewer.fit(),
      views: () => this.toggle("views"),
      projection: () => this.turnProjection(),
      edges: () => this.turnEdges(),
      section: () => this.turnSection(),
      measure: () => this.turnMeasure(),
      theme: () => this.turnTheme(),
      help: () => this.toggle("help"),
      isolate: () => viewer.isolate(),
      hide: () => viewer.hide(),
      "show-all": () => viewer.showAll(),
      "side-switch": () => this.turnSide(),
    };
    for (const [id, action] of Object.entries(this.actions)) element(id).addEventListener("click", action);
    for (const button of document.querySelectorAll("[data-view]")) {
      button.addEventListener("click", () => viewer.look(button.dataset.view));
    }
    element("filter").addEventListener("input", () => viewer.tree.find(element("filter").value));
    document.addEventListener("keydown", (event) => this.key(event));
    if (matchMedia("(max-width: 760px)").matches) this.turnSide();
    this.followTheme();
  }

  followTheme() {
    const dark = matchMedia("(prefers-color-scheme: dark)");
    const apply = () => this.setTheme(this.theme || (dark.matches ? "dark" : "light"));
    dark.addEventListener("change", apply);
    apply();
  }

  turnTheme() {
    this.theme = document.documentElement.dataset.theme === "dark" ? "light" : "dark";
    this.setTheme(this.theme);
  }

  setTheme(theme) {
    document.documentElement.dataset.theme = theme;
    const dark = theme === "dark";
    Object.assign(this.viewer.renderer.options, {
      ink: dark ? [0.02, 0.03, 0.05, 0.85] : [0.09, 0.12, 0.17, 0.8],
      accent: dark ? [0.38, 0.66, 1] : [0.13, 0.45, 0.9],
    });
    this.viewer.redraw();
  }

  isOpen(name) {
    return !element(`${name}-panel`).hidden;
  }

  toggle(name, open = !this.isOpen(name)) {
    for (const other of this.panels) {
      const show = other === name && open;
      element(`${other}-panel`).hidden = !show;
      element(other).setAttribute("aria-expanded", show);
    }
  }

  turnProjection() {
    const { camera } = this.viewer;
    camera.parallel = !camera.parallel;
    element("projection").setAttribute("aria-pressed", !camera.parallel);
    this.viewer.redraw();
  }

  turnEdges() {
    const { options } = this.viewer.renderer;
    options.edges = !options.edges;
    element("edges").setAttribute("aria-pressed", options.edges);
    this.viewer.redraw();
  }

  // The cut stays while another panel is open. The button then shows the section panel; otherwise it ends the cut.
  turnSection(on = !this.isOpen("section")) {
    this.toggle("section", on);
    this.viewer.section.turn(on);
    element("section").classList.toggle("on", on);
  }

  turnMeasure() {
    const { measure } = this.viewer;
    measure.turn(!measure.on);
    element("measure").setAttribute("aria-pressed", measure.on);
    element("measure").classList.toggle("on", measure.on);
    element("view").classList.toggle("measuring", measure.on);
    this.tellMeasuring();
  }

  // Shows what was clicked and what to click next.
  tellMeasuring() {
    const { on, ends } = this.viewer.measure;
    if (!on) this.hint("");
    else if (ends.length === 1) this.hint(`From ${ends[0].snapped ? "a vertex" : "a point"}: click the second point`);
    else if (ends.length === 0) this.hint("Click two points to measure between them");
    else this.hint("Click a point to measure again");
  }

  turnSide() {
    element("side").classList.toggle("closed");
  }

  hint(text) {
    element("hint").textContent = text;
    element("hint").hidden = !text;
  }

  closeAll() {
    for (const name of this.panels) if (this.isOpen(name) && name !== "section") return this.toggle(name, false);
    if (this.viewer.measure.on) return this.turnMeasure();
    if (this.viewer.section.on) return this.turnSection(false);
    return this.viewer.select(null);
  }

  key(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || event.target === element("filter")) return;
    const { viewer } = this;
    const { camera } = viewer;
    const arrows = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };
    const keys = {
      f: this.actions.fit, p: this.actions.projection, e: this.actions.edges, s: this.actions.section,
      m: this.actions.measure, d: this.actions.theme, l: this.actions["side-switch"], "?": this.actions.help,
      i: this.actions.isolate, h: this.actions.hide, a: this.actions["show-all"], escape: () => this.closeAll(),
      1: () => viewer.look("front"), 2: () => viewer.look("back"), 3: () => viewer.look("left"),
      4: () => viewer.look("right"), 5: () => viewer.look("top"), 6: () => viewer.look("bottom"),
      7: () => viewer.look("iso"),
      "+": () => this.zoom(0.85), "=": () => this.zoom(0.85), "-": () => this.zoom(1 / 0.85),
    };
    const arrow = arrows[event.key];
    const action = keys[event.key.toLowerCase()];
    if (arrow && !event.target.matches("input")) {
      if (event.shiftKey) camera.pan(-40 * arrow[0], -40 * arrow[1]);
      else camera.orbit(0.1 * arrow[0], 0.1 * arrow[1], viewer.middle());
      viewer.redraw();
    } else if (action) {
      action();
    } else {
      return;
    }
    event.preventDefault();
  }

  zoom(factor) {
    this.viewer.camera.zoom(factor, this.viewer.camera.target);
    this.viewer.redraw();
  }

  // Shows the size of the selection, else of the whole model.
  tellSize(node, parts) {
    const { model } = this.viewer;
    const box = joinBoxes(parts);
    element("size-of").textContent = node ? node.title || "without a name" : "Size of the model";
    for (let i = 0; i < 3; ++i) {
      element(`size-${"xyz"[i]}`).textContent = box ? lengthText(box[i + 3] - box[i], model.unit) : "\u2013";
    }
    const triangles = parts.reduce((sum, part) => sum + model.meshes[part.mesh].triangles, 0);
    const made = countText(triangles, "triangle", "triangles");
    element("size-note").textContent = !node
      ? model.unit ? "" : "The file names no unit of length"
      : parts.length === 1 ? made : `${countText(parts.length, "part", "parts")}, ${made}`;
    for (const id of ["isolate", "hide"]) element(id).disabled = !node;
  }

  // The model's axes in the lower left corner.
  drawTriad(axes, height) {
    const at = [46, height - 46];
    ["x", "y", "z"].forEach((name, i) => {
      const to = [axes[0][i], -axes[1][i]];
      const line = element(`axis-${name}`);
      const text = element(`name-${name}`);
      const values = [["x1", at[0]], ["y1", at[1]], ["x2", at[0] + 24 * to[0]], ["y2", at[1] + 24 * to[1]]];
      for (const [key, value] of values) line.setAttribute(key, value);
      text.setAttribute("x", at[0] + 34 * to[0]);
      text.setAttribute("y", at[1] + 34 * to[1]);
      line.style.opacity = text.style.opacity = axes[2][i] < -0.2 ? 0.45 : 1;
    });
  }
}
