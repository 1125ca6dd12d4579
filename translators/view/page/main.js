// Starts when the page is loaded. `velReady` resolves to the time, in milliseconds from opening the page, when the
// first picture is drawn.

// Resolves when the graphics processor has finished all commands.
function drawn(gl) {
  const fence = gl.fenceSync(gl.SYNC_GPU_COMMANDS_COMPLETE, 0);
  gl.flush();
  return new Promise((resolve) => {
    const look = () => {
      if (gl.isContextLost() || gl.getSyncParameter(fence, gl.SYNC_STATUS) === gl.SIGNALED) resolve();
      else setTimeout(look, 1);
    };
    look();
  });
}

async function start() {
  const canvas = document.getElementById("view");
  const trouble = (text) => {
    document.getElementById("trouble").textContent = text;
    document.getElementById("trouble").hidden = false;
  };
  performance.mark("vel-start");
  const model = readModel();
  performance.mark("vel-read");
  const renderer = new Renderer(canvas, model);
  if (!renderer.gl) {
    trouble("This browser cannot draw the model: WebGL 2 is missing or switched off. " +
      "Another browser, or its hardware acceleration switched on, will do.");
    return Infinity;
  }
  new Viewer(model, canvas, renderer);
  performance.mark("vel-drawn");
  await drawn(renderer.gl);
  performance.mark("vel-ready");
  return performance.now();
}

window.velReady = start();
