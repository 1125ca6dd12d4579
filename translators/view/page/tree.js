// The list of parts. Only visible rows exist in the page, so that 100,000 parts are as fast as ten.

const rowHeight = 28;
const deepestIndent = 14;

class Tree {
  // `actions` has select(node), show(node, visible), fit().
  constructor(model, actions) {
    this.model = model;
    this.actions = actions;
    this.box = document.getElementById("tree");
    this.sheet = document.getElementById("rows");
    this.drawn = new Map(); // the existing rows by node number
    this.selected = null;
    this.wanted = "";
    const few = model.nodes.length <= 400;
    for (const node of model.nodes) node.open = few || node.depth < 1;
    this.box.addEventListener("scroll", () => this.render());
    this.sheet.addEventListener("click", (event) => this.click(event));
    this.sheet.addEventListener("dblclick", (event) => this.doubleClick(event));
    this.box.addEventListener("keydown", (event) => this.key(event));
    new ResizeObserver(() => this.render()).observe(this.box);
    this.list();
  }

  find(text) {
    this.wanted = text.trim().toLowerCase();
    this.list();
    if (this.selected && !this.wanted) this.reveal(this.selected);
  }

  // Computes which nodes have a row.
  list() {
    this.rows = this.wanted ? this.found() : this.unfolded();
    document.getElementById("not-found").hidden = this.rows.length > 0;
    this.sheet.style.height = `${this.rows.length * rowHeight}px`;
    this.render();
  }

  // The nodes whose ancestors are open.
  unfolded() {
    const { nodes } = this.model;
    const rows = [];
    for (let i = 0; i < nodes.length;) {
      rows.push(nodes[i]);
      i = nodes[i].open ? i + 1 : nodes[i].end;
    }
    return rows;
  }

  // The nodes that match the search, their ancestors, and the open nodes below them.
  found() {
    const { nodes } = this.model;
    const meant = nodes.map(({ name, part }) => [name, part].some((text) => text.toLowerCase().includes(this.wanted)));
    const holds = nodes.map(() => false);
    for (let i = nodes.length - 1; i >= 0; --i) {
      if ((meant[i] || holds[i]) && nodes[i].parent >= 0) holds[nodes[i].parent] = true;
    }
    const belongs = [];
    return nodes.filter(({ number, parent }) => {
      belongs[number] = meant[number] || (parent >= 0 && belongs[parent] && nodes[parent].open);
      return belongs[number] || holds[number];
    });
  }

  // Opens and scrolls the list so that the row of the selected node is visible.
  reveal(node) {
    this.selected = node;
    if (node) {
      let closed = false;
      for (let i = node.parent; i >= 0; i = this.model.nodes[i].parent) {
        closed = closed || !this.model.nodes[i].open;
        this.model.nodes[i].open = true;
      }
      if (closed) this.list();
      const at = this.rows.indexOf(node) * rowHeight;
      if (at >= 0 && (at < this.box.scrollTop || at + rowHeight > this.box.scrollTop + this.box.clientHeight)) {
        this.box.scrollTop = at - this.box.clientHeight / 2;
      }
    }
    this.render();
  }

  // "all", "some" or "none" of the parts at and below a node.
  shown(node) {
    let visible = 0;
    let parts = 0;
    for (let i = node.number; i < node.end; ++i) {
      if (this.model.nodes[i].mesh < 0) continue;
      ++parts;
      if (this.model.nodes[i].visible) ++visible;
      if (visible > 0 && visible < parts) return "some";
    }
    return visible === 0 && parts > 0 ? "none" : "all";
  }

  // A row keeps its element while it is visible, so that double clicks work.
  render() {
    const first = Math.max(0, Math.floor(this.box.scrollTop / rowHeight) - 4);
    const last = Math.min(this.rows.length, first + Math.ceil((this.box.clientHeight || 600) / rowHeight) + 8);
    const before = this.drawn;
    this.drawn = new Map();
    for (let i = first; i < last; ++i) {
      const node = this.rows[i];
      const row = before.get(node.number) || this.makeRow(node);
      before.delete(node.number);
      this.drawn.set(node.number, row);
      this.updateRow(row, node, i);
    }
    for (const row of before.values()) row.remove();
    // Remaining rows are already in this order and are not moved.
    let at = this.sheet.firstChild;
    for (const row of this.drawn.values()) {
      if (row === at) at = at.nextSibling;
      else this.sheet.insertBefore(row, at);
    }
    const active = this.selected && this.drawn.get(this.selected.number);
    if (active) this.box.setAttribute("aria-activedescendant", active.id);
    else this.box.removeAttribute("aria-activedescendant");
  }

  makeRow(node) {
    const make = (kind, name) => {
      const made = document.createElement(kind);
      if (name) made.className = name;
      return made;
    };
    const row = make("div", "row-of-tree");
    const title = node.title || "without a name";
    row.id = `node-${node.number}`;
    row.dataset.node = node.number;
    row.style.paddingLeft = `${4 + 14 * Math.min(node.depth, deepestIndent)}px`;
    row.setAttribute("role", "treeitem");
    row.setAttribute("aria-level", node.depth + 1);
    const twist = make("span", "twist");
    twist.classList.toggle("leaf", node.end === node.number + 1);
    const check = make("input");
    check.type = "checkbox";
    check.tabIndex = -1;
    check.setAttribute("aria-label", `Show ${title}`);
    row.append(twist, check);
    const colour = lookOf(this.model, node);
    if (colour) {
      const dot = make("span", "dot");
      const parts = colour.slice(0, 3).map((value) => Math.round(255 * value));
      dot.style.background = `rgb(${parts.join(" ")})`;
      row.append(dot);
    }
    const name = make("span", node.name ? "name" : "name none");
    name.textContent = node.name || title;
    row.title = node.title;
    row.append(name);
    if (node.part) {
      const part = make("span", "part");
      part.textContent = node.part;
      row.append(part);
    }
    return row;
  }

  // Updates the parts of a row that can change.
  updateRow(row, node, index) {
    const shown = this.shown(node);
    const [twist, check] = row.children;
    row.style.top = `${index * rowHeight}px`;
    row.setAttribute("aria-selected", node === this.selected);
    row.classList.toggle("selected", node === this.selected);
    row.classList.toggle("unseen", shown === "none");
    const next = this.rows[index + 1];
    const open = next !== undefined && next.number < node.end;
    if (node.end > node.number + 1) row.setAttribute("aria-expanded", open);
    twist.classList.toggle("open", open);
    check.checked = shown !== "none";
    check.indeterminate = shown === "some";
  }

  click(event) {
    const row = event.target.closest(".row-of-tree");
    if (!row) return;
    const node = this.model.nodes[Number(row.dataset.node)];
    if (event.target.matches("input")) {
      // The list handles the keys, not the checkboxes in it.
      this.box.focus({ preventScroll: true });
      this.actions.show(node, event.target.checked);
    } else if (event.target.matches(".twist:not(.leaf)")) {
      this.open(node, !node.open);
    } else {
      this.actions.select(node);
    }
  }

  doubleClick(event) {
    if (event.target.closest(".row-of-tree") && !event.target.matches("input, .twist:not(.leaf)")) this.actions.fit();
  }

  open(node, open) {
    node.open = open;
    this.list();
  }

  key(event) {
    const at = this.rows.indexOf(this.selected);
    const node = this.selected;
    const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (step) {
      const next = this.rows[Math.min(Math.max(at + step, 0), this.rows.length - 1)];
      if (next) this.actions.select(next);
    } else if (event.key === "ArrowRight" && node) {
      this.open(node, true);
    } else if (event.key === "ArrowLeft" && node) {
      if (node.open && node.end > node.number + 1) this.open(node, false);
      else if (node.parent >= 0) this.actions.select(this.model.nodes[node.parent]);
    } else if (event.key === " " && node) {
      this.actions.show(node, this.shown(node) === "none");
    } else if (event.key === "Enter" && node) {
      this.actions.fit();
    } else {
      return;
    }
    event.preventDefault();
    event.stopPropagation();
  }
}
