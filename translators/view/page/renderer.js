// Draws the scene with WebGL. Each mesh is stored on the graphics processor once; the parts that use it are instances.

const instanceFloats = 18;
const defaultColour = [0.74, 0.78, 0.82, 1];

class Renderer {
  constructor(canvas, model) {
    this.canvas = canvas;
    this.model = model;
    const wishes = { antialias: true, alpha: true, stencil: true, powerPreference: "high-performance" };
    this.gl = canvas.getContext("webgl2", wishes);
    if (!this.gl) return;
    this.options = { edges: true, cut: false, plane: [0, 0, 1, 0], ink: [0, 0, 0, 0.7], accent: [0, 0, 1] };
    this.build();
  }

  build() {
    const gl = this.gl;
    this.surface = this.program(surfaceVertex, surfaceFragment);
    this.edge = this.program(edgeVertex, edgeFragment);
    this.picker = this.spot = null;
    this.caps = new Caps(this);
    this.meshes = this.model.meshes.map((mesh) => (mesh.triangles ? this.upload(mesh) : null));
    this.model.parts.forEach((part) => this.meshes[part.mesh].parts.push(part));
    for (const part of this.model.parts) part.rows = this.rowsOf(part);
    gl.enable(gl.DEPTH_TEST);
    gl.depthFunc(gl.LEQUAL);
    gl.blendFunc(gl.ONE, gl.ONE_MINUS_SRC_ALPHA);
    this.refresh(() => 0);
  }

  program(vertex, fragment) {
    const gl = this.gl;
    const made = gl.createProgram();
    for (const [kind, text] of [[gl.VERTEX_SHADER, vertex], [gl.FRAGMENT_SHADER, fragment]]) {
      const shader = gl.createShader(kind);
      gl.shaderSource(shader, text);
      gl.compileShader(shader);
      gl.attachShader(made, shader);
    }
    gl.linkProgram(made);
    if (!gl.getProgramParameter(made, gl.LINK_STATUS) && !gl.isContextLost()) {
      const said = gl.getAttachedShaders(made).map((shader) => gl.getShaderInfoLog(shader));
      throw new Error([...said, gl.getProgramInfoLog(made)].join(" "));
    }
    const places = {};
    for (let i = gl.getProgramParameter(made, gl.ACTIVE_UNIFORMS) - 1; i >= 0; --i) {
      const { name } = gl.getActiveUniform(made, i);
      places[name] = gl.getUniformLocation(made, name);
    }
    return { made, places };
  }

  upload(mesh) {
    const gl = this.gl;
    const buffer = (target, data) => {
      const made = gl.createBuffer();
      gl.bindBuffer(target, made);
      gl.bufferData(target, data, gl.STATIC_DRAW);
      return made;
    };
    gl.bindVertexArray(null);
    const shown = { mesh, parts: [], instances: gl.createBuffer(), opaque: 0, count: 0 };
    const streams = [
      [0, buffer(gl.ARRAY_BUFFER, mesh.positions), 3, gl.UNSIGNED_SHORT],
      [1, buffer(gl.ARRAY_BUFFER, mesh.normals), 2, gl.SHORT],
    ];
    if (mesh.colours) streams.push([2, buffer(gl.ARRAY_BUFFER, mesh.colours), 4, gl.UNSIGNED_BYTE]);
    const array = (numbers, used) => {
      const made = gl.createVertexArray();
      gl.bindVertexArray(made);
      for (const [place, data, size, type] of streams.slice(0, used)) {
        gl.bindBuffer(gl.ARRAY_BUFFER, data);
        gl.enableVertexAttribArray(place);
        gl.vertexAttribPointer(place, size, type, true, 0, 0);
      }
      buffer(gl.ELEMENT_ARRAY_BUFFER, numbers);
      for (let place = 3; place < 8; ++place) {
        gl.enableVertexAttribArray(place);
        gl.vertexAttribDivisor(place, 1);
      }
      return made;
    };
    shown.triangles = array(mesh.corners, streams.length);
    shown.lines = mesh.lines.length ? array(mesh.lines, 1) : null;
    shown.type = mesh.vertices > 65536 ? gl.UNSIGNED_INT : gl.UNSIGNED_SHORT;
    shown.bytes = mesh.vertices > 65536 ? 4 : 2;
    shown.size = [0, 1, 2].map((i) => mesh.box[i + 3] - mesh.box[i]);
    const largest = Math.max(...shown.size);
    // Normals need a thickness for a flat mesh; its vertices do not use it.
    shown.size = shown.size.map((value) => value || largest);
    shown.extent = shown.size.map((value) => value / largest);
    shown.gap = mesh.gap / Math.cbrt(shown.size[0] * shown.size[1] * shown.size[2]);
    return shown;
  }

  // The transform from the mesh's box to the scene.
  rowsOf(part) {
    const { centre, radius } = this.model;
    const { size, mesh } = this.meshes[part.mesh];
    const m = part.placement;
    const rows = new Float32Array(12);
    for (let row = 0; row < 3; ++row) {
      let moved = m[4 * row + 3] - centre[row];
      for (let i = 0; i < 3; ++i) {
        rows[4 * row + i] = (m[4 * row + i] * size[i]) / radius;
        moved += m[4 * row + i] * mesh.box[i];
      }
      rows[4 * row + 3] = moved / radius;
    }
    return rows;
  }

  colourOf(part) {
    return part.colour < 0 ? defaultColour : this.model.colours[part.colour];
  }

  // Updates which parts are visible and which are selected. Opaque parts of each mesh come first.
  refresh(isSelected) {
    const gl = this.gl;
    for (const shown of this.meshes) {
      if (!shown) continue;
      const visible = shown.parts.filter((part) => part.visible);
      const isOpaque = (part) => this.colourOf(part)[3] >= 1;
      const opaque = visible.filter(isOpaque);
      shown.drawn = opaque.length === visible.length ? visible : [...opaque, ...visible.filter((p) => !isOpaque(p))];
      shown.opaque = opaque.length;
      const data = new Float32Array(instanceFloats * visible.length);
      shown.drawn.forEach((part, i) => {
        data.set(part.rows, instanceFloats * i);
        data.set(this.colourOf(part), instanceFloats * i + 12);
        data[instanceFloats * i + 16] = part.number;
        part.marked = isSelected(part);
        data[instanceFloats * i + 17] = part.marked ? 1 : 0;
      });
      gl.bindBuffer(gl.ARRAY_BUFFER, shown.instances);
      gl.bufferData(gl.ARRAY_BUFFER, data, gl.DYNAMIC_DRAW);
    }
    this.caps.forget();
    this.sortLooks();
  }

  // Sorts the draw calls: opaque ones first, then transparent ones, which are sorted from back to front when drawn.
  sortLooks() {
    this.solids = [];
    this.clears = [];
    for (const shown of this.meshes) {
      if (!shown || shown.drawn.length === 0) continue;
      for (const [look, first, count] of shown.mesh.ranges) {
        const own = look < 0, tinted = Boolean(shown.mesh.colours);
        const draw = { shown, first: 3 * first * shown.bytes, count: 3 * count, look: own ? null : this.model.colours[look] };
        draw.kind = tinted ? 2 : own ? 0 : 1;
        const clear = tinted ? shown.mesh.clear : !own && draw.look[3] < 1;
        const opaque = clear ? 0 : own && !tinted ? shown.opaque : shown.drawn.length;
        if (opaque > 0) this.solids.push({ ...draw, instances: opaque });
        for (let i = opaque; i < shown.drawn.length; ++i) {
          this.clears.push({ ...draw, instances: 1, offset: i, middle: this.middleOf(shown.drawn[i]) });
        }
      }
    }
  }

  middleOf(part) {
    return [0, 1, 2].map((i) => ((part.box[i] + part.box[i + 3]) / 2 - this.model.centre[i]) / this.model.radius);
  }

  // Binds the arrays so that instances are read from `offset`; it is usually 0, so most arrays need no change.
  bind(shown, array, offset = 0) {
    const gl = this.gl;
    gl.bindVertexArray(array);
    if (array.offset === offset) return;
    array.offset = offset;
    gl.bindBuffer(gl.ARRAY_BUFFER, shown.instances);
    const stride = 4 * instanceFloats;
    for (let i = 0; i < 4; ++i) gl.vertexAttribPointer(3 + i, 4, gl.FLOAT, false, stride, offset * stride + 16 * i);
    gl.vertexAttribPointer(7, 2, gl.FLOAT, false, stride, offset * stride + 64);
  }

  use(program, view, projection) {
    const gl = this.gl;
    gl.useProgram(program.made);
    gl.uniformMatrix4fv(program.places.view, false, view);
    gl.uniformMatrix4fv(program.places.projection, false, projection);
    gl.uniform4fv(program.places.plane, this.options.plane);
    gl.uniform1i(program.places.cut, this.options.cut ? 1 : 0);
    if (program.places.sky) gl.uniform3fv(program.places.sky, this.model.up === "y" ? [0, 1, 0] : [0, 0, 1]);
    if (program.places.span) gl.uniform2fv(program.places.span, this.span);
    if (program.places.accent) gl.uniform3fv(program.places.accent, this.options.accent);
  }

  drawSurface(draw) {
    const gl = this.gl;
    const { places } = this.surface;
    gl.uniform3fv(places.extent, draw.shown.extent);
    gl.uniform1i(places.lookKind, draw.kind);
    if (draw.look) gl.uniform4fv(places.look, draw.look);
    this.bind(draw.shown, draw.shown.triangles, draw.offset);
    gl.drawElementsInstanced(gl.TRIANGLES, draw.count, draw.shown.type, draw.first, draw.instances);
  }

  draw(camera) {
    const gl = this.gl;
    const [view, projection] = camera.matrices();
    gl.viewport(0, 0, this.canvas.width, this.canvas.height);
    gl.clearColor(0, 0, 0, 0);
    gl.clear(gl.COLOR_BUFFER_BIT | gl.DEPTH_BUFFER_BIT | gl.STENCIL_BUFFER_BIT);
    gl.disable(gl.BLEND);
    gl.enable(gl.POLYGON_OFFSET_FILL);
    gl.polygonOffset(1, 2);
    this.use(this.surface, view, projection);
    gl.uniform1i(this.surface.places.parallel, camera.parallel ? 1 : 0);
    for (const draw of this.solids) this.drawSurface(draw);
    if (this.options.cut) {
      // Cut faces must cover surfaces that lie in the plane; the slope of long, thin triangles is not computed
      // exactly.
      gl.polygonOffset(0.5, 0);
      this.caps.draw(camera, view, projection);
    }
    gl.disable(gl.POLYGON_OFFSET_FILL);
    gl.enable(gl.BLEND);
    const nudge = camera.parallel ? [0, 1.6 * camera.pixel()] : [(1.6 * camera.pixel()) / camera.distance, 0];
    if (this.options.cut) this.caps.drawOutlines(camera, view, projection, nudge);
    if (this.options.edges) {
      this.use(this.edge, view, projection);
      gl.uniform4fv(this.edge.places.ink, this.options.ink);
      gl.uniform2fv(this.edge.places.nudge, nudge);
      gl.uniform1f(this.edge.places.halfHeight, this.canvas.height / 2);
      for (const shown of this.meshes) {
        if (!shown || !shown.lines || shown.drawn.length === 0) continue;
        this.bind(shown, shown.lines);
        gl.uniform1f(this.edge.places.gap, shown.gap);
        gl.drawElementsInstanced(gl.LINES, shown.mesh.lines.length, shown.type, 0, shown.drawn.length);
      }
    }
    if (this.clears.length > 0) this.drawClear(camera, view, projection);
  }

  drawClear(camera, view, projection) {
    const gl = this.gl;
    const towards = camera.axes()[2];
    for (const draw of this.clears) draw.near = draw.middle.reduce((sum, value, i) => sum + value * towards[i], 0);
    this.clears.sort((a, b) => a.near - b.near);
    gl.depthMask(false);
    gl.enable(gl.POLYGON_OFFSET_FILL);
    gl.polygonOffset(1, 2);
    this.use(this.surface, view, projection);
    for (const draw of this.clears) this.drawSurface(draw);
    gl.disable(gl.POLYGON_OFFSET_FILL);
    gl.depthMask(true);
  }

  // A framebuffer of one pixel, for picking.
  makeSpot() {
    const gl = this.gl;
    const frame = gl.createFramebuffer();
    gl.bindFramebuffer(gl.FRAMEBUFFER, frame);
    for (const place of [gl.COLOR_ATTACHMENT0, gl.COLOR_ATTACHMENT1]) {
      const texture = gl.createTexture();
      gl.bindTexture(gl.TEXTURE_2D, texture);
      gl.texStorage2D(gl.TEXTURE_2D, 1, gl.RGBA8, 1, 1);
      gl.framebufferTexture2D(gl.FRAMEBUFFER, place, gl.TEXTURE_2D, texture, 0);
    }
    const depth = gl.createRenderbuffer();
    gl.bindRenderbuffer(gl.RENDERBUFFER, depth);
    gl.renderbufferStorage(gl.RENDERBUFFER, gl.DEPTH24_STENCIL8, 1, 1);
    gl.framebufferRenderbuffer(gl.FRAMEBUFFER, gl.DEPTH_STENCIL_ATTACHMENT, gl.RENDERBUFFER, depth);
    gl.drawBuffers([gl.COLOR_ATTACHMENT0, gl.COLOR_ATTACHMENT1]);
    gl.bindFramebuffer(gl.FRAMEBUFFER, null);
    return frame;
  }

  // The part at a pixel and the scene point that is hit; null where there is none.
  pick(camera, x, y) {
    const gl = this.gl;
    this.picker ??= this.program(pickVertex, pickFragment);
    this.spot ??= this.makeSpot();
    const [view, projection] = camera.matrices();
    this.span = camera.span();
    // The projection, enlarged around the middle of this pixel. Otherwise the rasteriser snaps corners to a coarse
    // grid within the pixel, which moves the hit point by the same amount.
    const spotX = (2 * x) / camera.width - 1;
    const spotY = 1 - (2 * y) / camera.height;
    const large = projection.slice();
    for (let column = 0; column < 4; ++column) {
      large[4 * column] = (projection[4 * column] - spotX * projection[4 * column + 3]) * 64 * camera.width;
      large[4 * column + 1] = (projection[4 * column + 1] - spotY * projection[4 * column + 3]) * 64 * camera.height;
    }
    gl.bindFramebuffer(gl.FRAMEBUFFER, this.spot);
    gl.viewport(0, 0, 1, 1);
    gl.disable(gl.BLEND);
    gl.clearBufferfv(gl.COLOR, 0, [0, 0, 0, 0]);
    gl.clearBufferfv(gl.COLOR, 1, [0, 0, 0, 0]);
    gl.clearBufferfi(gl.DEPTH_STENCIL, 0, 1, 0);
    this.use(this.picker, view, large);
    for (const shown of this.meshes) {
      if (!shown || shown.drawn.length === 0) continue;
      this.bind(shown, shown.triangles);
      gl.drawElementsInstanced(gl.TRIANGLES, shown.mesh.corners.length, shown.type, 0, shown.drawn.length);
    }
    if (this.options.cut) this.caps.pick(view, large);
    const bytes = [0, 1].map((number) => {
      const read = new Uint8Array(4);
      gl.readBuffer(gl.COLOR_ATTACHMENT0 + number);
      gl.readPixels(0, 0, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, read);
      return read[0] + 256 * read[1] + 65536 * read[2];
    });
    gl.bindFramebuffer(gl.FRAMEBUFFER, null);
    if (bytes[0] === 0) return null;
    const away = this.span[0] + ((this.span[1] - this.span[0]) * bytes[1]) / 16777215;
    const w = camera.parallel ? 1 : away;
    const seen = [(spotX * w) / projection[0], (spotY * w) / projection[5], camera.distance - away];
    return { part: this.model.nodes[bytes[0] - 1], point: camera.placed(seen) };
  }
}
