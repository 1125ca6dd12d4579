// Fills the cut faces of solids in the section plane, and draws the outlines of all cuts. Each part is filled
// separately. Triangles from its segments to one point count the winding number of the outline in the stencil buffer;
// where it is not 0, the plane is painted and the count is reset to 0.

class Caps {
  constructor(renderer) {
    this.renderer = renderer;
    const gl = (this.gl = renderer.gl);
    this.painter = this.liner = this.picker = null;
    this.buffer = gl.createBuffer();
    this.array = gl.createVertexArray();
    gl.bindVertexArray(this.array);
    for (const place of [0, 1]) {
      gl.enableVertexAttribArray(place);
      gl.vertexAttribDivisor(place, 1);
    }
    gl.bindVertexArray(null);
    this.plane = null;
  }

  // Call this when the visible parts change.
  forget() {
    this.plane = null;
  }

  update() {
    const { options, meshes } = this.renderer;
    if (this.plane === options.plane) return;
    this.plane = options.plane;
    this.frame = { ...this.frameOf(options.plane), first: 0 };
    this.cuts = [];
    let first = this.frame.count;
    for (const shown of meshes) {
      for (const part of shown ? shown.drawn : []) {
        if (!part.cut || part.cut.plane !== options.plane) part.cut = cutOf(part, shown.mesh, options.plane);
        const { segments, low, high } = part.cut;
        if (!segments) continue;
        const pivot = low.map((value, i) => (value + high[i]) / 2);
        const gap = outlineGap(part.cut);
        this.cuts.push({ part, mesh: shown.mesh, segments, pivot, gap, first, count: segments.length / 6 });
        first += segments.length / 6;
      }
    }
    const data = new Float32Array(6 * first);
    for (const cut of [this.frame, ...this.cuts]) data.set(cut.segments, 6 * cut.first);
    this.gl.bindBuffer(this.gl.ARRAY_BUFFER, this.buffer);
    this.gl.bufferData(this.gl.ARRAY_BUFFER, data, this.gl.DYNAMIC_DRAW);
  }

  // A square in the plane that contains all cuts. All cuts are painted with it, so they have the same depth.
  frameOf(plane) {
    const axis = [0, 1, 2].reduce((most, i) => (Math.abs(plane[i]) > Math.abs(plane[most]) ? i : most), 0);
    const pivot = plane.slice(0, 3).map((value) => value * plane[3]);
    const corner = (u, v) => {
      const point = [...pivot];
      point[(axis + 1) % 3] += 1.01 * u;
      point[(axis + 2) % 3] += 1.01 * v;
      return point;
    };
    const corners = [corner(-1, -1), corner(1, -1), corner(1, 1), corner(-1, 1)];
    const segments = corners.flatMap((from, i) => [...from, ...corners[(i + 1) % 4]]);
    return { pivot, segments, count: 4 };
  }

  draw(camera, view, projection) {
    const { gl, renderer } = this;
    this.update();
    this.painter ??= renderer.program(cutVertex, capFragment);
    renderer.use(this.painter, view, projection);
    const { places } = this.painter;
    gl.uniform2f(places.nudge, 0, 0);
    gl.enable(gl.SCISSOR_TEST);
    this.fill(this.painter, (cut) => {
      gl.scissor(...this.spanOf(cut.part.cut, camera));
      gl.uniform3fv(places.look, (lookOf(renderer.model, cut.part) || defaultColour).slice(0, 3));
      gl.uniform1f(places.mark, cut.part.marked ? 1 : 0);
      // Hatching in different directions separates parts that touch.
      gl.uniform1f(places.slant, cut.part.number % 2 ? 1 : -1);
    });
    gl.disable(gl.SCISSOR_TEST);
  }

  drawOutlines(camera, view, projection, nudge) {
    const { gl, renderer } = this;
    const sharpness = renderer.canvas.height / camera.height;
    this.liner ??= renderer.program(cutVertex, edgeFragment);
    const { places } = this.liner;
    renderer.use(this.liner, view, projection);
    gl.uniform4fv(places.ink, renderer.options.ink);
    gl.uniform2fv(places.nudge, nudge);
    gl.bindVertexArray(this.array);
    for (const cut of this.cuts) {
      gl.uniform1f(places.mark, cut.part.marked ? 1 : 0);
      gl.uniform1f(places.fade, Math.min((cut.gap * sharpness) / (linesApart * camera.pixelAt(cut.pivot)), 1) ** 2);
      this.drawSegments(this.liner, gl.LINES, 2, cut);
    }
  }

  // Draws into the framebuffer for picking.
  pick(view, projection) {
    const { gl, renderer } = this;
    this.update();
    this.picker ??= renderer.program(cutVertex, pickFragment);
    renderer.use(this.picker, view, projection);
    gl.uniform2f(this.picker.places.nudge, 0, 0);
    this.fill(this.picker, (cut) => gl.uniform1f(this.picker.places.part, cut.part.number));
  }

  fill(program, prepare) {
    const gl = this.gl;
    gl.bindVertexArray(this.array);
    gl.enable(gl.STENCIL_TEST);
    for (const cut of this.cuts) {
      if (!cut.mesh.solid) continue;
      prepare(cut);
      this.write(false);
      gl.stencilFunc(gl.ALWAYS, 0, 255);
      gl.stencilOpSeparate(gl.FRONT, gl.KEEP, gl.INCR_WRAP, gl.INCR_WRAP);
      gl.stencilOpSeparate(gl.BACK, gl.KEEP, gl.DECR_WRAP, gl.DECR_WRAP);
      this.drawSegments(program, gl.TRIANGLES, 3, cut);
      this.write(true);
      gl.stencilFunc(gl.NOTEQUAL, 0, 255);
      gl.stencilOp(gl.KEEP, gl.ZERO, gl.ZERO);
      this.drawSegments(program, gl.TRIANGLES, 3, this.frame);
    }
    gl.disable(gl.STENCIL_TEST);
  }

  write(on) {
    this.gl.colorMask(on, on, on, on);
    this.gl.depthMask(on);
  }

  drawSegments(program, kind, vertices, { pivot, first, count }) {
    const gl = this.gl;
    gl.bindBuffer(gl.ARRAY_BUFFER, this.buffer);
    for (const place of [0, 1]) gl.vertexAttribPointer(place, 3, gl.FLOAT, false, 24, 24 * first + 12 * place);
    gl.uniform3fv(program.places.pivot, pivot);
    gl.drawArraysInstanced(kind, 0, vertices, count);
  }

  // The pixels that a cut may cover: left, bottom, width and height.
  spanOf({ low, high }, camera) {
    const { width, height } = this.renderer.canvas;
    const corners = [0, 1, 2, 3, 4, 5, 6, 7].map((k) => low.map((value, i) => (k >> i & 1 ? high[i] : value)));
    // A box that extends behind the eye may cover any pixel.
    if (!camera.parallel && corners.some((corner) => camera.seen(corner)[2] > 0.99 * camera.distance)) {
      return [0, 0, width, height];
    }
    const places = corners.map((corner) => camera.onScreen(corner));
    const scale = [width / camera.width, height / camera.height];
    const within = (value, most) => Math.min(Math.max(value, 0), most);
    const least = [0, 1].map((i) => Math.floor(Math.min(...places.map((place) => place[i])) * scale[i] - 1));
    const most = [0, 1].map((i) => Math.ceil(Math.max(...places.map((place) => place[i])) * scale[i] + 1));
    const [left, right] = [within(least[0], width), within(most[0], width)];
    const [bottom, top] = [within(height - most[1], height), within(height - least[1], height)];
    return [left, bottom, right - left, top - bottom];
  }
}
