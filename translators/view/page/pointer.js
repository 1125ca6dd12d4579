// Mouse, pen and touch input on the picture.

class Pointer {
  // `actions` has pick(x, y), click(x, y), rest(x, y) for a pointer that stops without a button, leave() for when it
  // moves again, fit(), redraw(), and middle(): the point to rotate around where nothing is hit.
  constructor(canvas, camera, actions) {
    this.canvas = canvas;
    this.camera = camera;
    this.actions = actions;
    this.down = new Map();
    this.wheel = { time: -Infinity, x: 0, y: 0, about: null };
    canvas.addEventListener("pointerdown", (event) => this.press(event));
    canvas.addEventListener("pointermove", (event) => this.move(event));
    for (const kind of ["pointerup", "pointercancel"]) canvas.addEventListener(kind, (event) => this.release(event));
    canvas.addEventListener("pointerleave", () => this.leave());
    canvas.addEventListener("wheel", (event) => this.roll(event), { passive: false });
    canvas.addEventListener("contextmenu", (event) => event.preventDefault());
    canvas.addEventListener("dblclick", () => actions.fit());
  }

  place(event) {
    const box = this.canvas.getBoundingClientRect();
    return { x: event.clientX - box.left, y: event.clientY - box.top };
  }

  leave() {
    clearTimeout(this.resting);
    this.actions.leave();
  }

  press(event) {
    this.leave();
    this.canvas.setPointerCapture(event.pointerId);
    this.canvas.focus({ preventScroll: true });
    const place = this.place(event);
    this.down.set(event.pointerId, place);
    this.pans = event.button !== 0 || event.shiftKey || event.ctrlKey || event.metaKey;
    this.start = this.down.size === 1 && event.button === 0 ? place : null;
    this.about = null;
  }

  move(event) {
    const last = this.down.get(event.pointerId);
    const place = this.place(event);
    clearTimeout(this.resting);
    if (!last) {
      this.resting = setTimeout(() => this.actions.rest(place.x, place.y), 30);
      return;
    }
    if (this.start) {
      // A pointer moves a little during a click.
      if (Math.hypot(place.x - this.start.x, place.y - this.start.y) < 4) return;
      this.start = null;
      this.canvas.classList.add("turning");
    }
    if (this.down.size === 2) this.pinch(event.pointerId, last, place);
    else if (this.pans) this.camera.pan(place.x - last.x, place.y - last.y);
    else this.turn(last, place);
    this.down.set(event.pointerId, place);
    this.actions.redraw();
  }

  turn(last, place) {
    if (!this.about) {
      const hit = this.actions.pick(last.x, last.y);
      this.about = hit ? hit.point : this.actions.middle();
    }
    this.camera.orbit((place.x - last.x) * 0.008, (place.y - last.y) * 0.008, this.about);
  }

  // Two fingers move and zoom.
  pinch(id, last, place) {
    const other = [...this.down].find(([key]) => key !== id)[1];
    const before = Math.hypot(last.x - other.x, last.y - other.y);
    const after = Math.hypot(place.x - other.x, place.y - other.y);
    this.camera.pan((place.x - last.x) / 2, (place.y - last.y) / 2);
    const middle = this.camera.under((place.x + other.x) / 2, (place.y + other.y) / 2);
    if (before > 0 && after > 0) this.camera.zoom(before / after, middle);
  }

  release(event) {
    if (!this.down.delete(event.pointerId)) return;
    this.canvas.classList.remove("turning");
    if (this.start && event.type === "pointerup") this.actions.click(this.start.x, this.start.y);
    this.start = null;
  }

  roll(event) {
    event.preventDefault();
    const { x, y } = this.place(event);
    const { wheel } = this;
    // The point under the pointer is picked once for a sequence of wheel events.
    if (event.timeStamp - wheel.time > 400 || Math.hypot(x - wheel.x, y - wheel.y) > 3) {
      const hit = this.actions.pick(x, y);
      wheel.about = hit ? hit.point : this.camera.under(x, y);
    }
    Object.assign(wheel, { time: event.timeStamp, x, y });
    const step = event.deltaY * [1, 16, 400][event.deltaMode];
    this.camera.zoom(Math.exp(Math.min(Math.max(step, -240), 240) * 0.0016), wheel.about);
    this.actions.redraw();
  }
}
