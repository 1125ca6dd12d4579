// node gltf_judge.js VALIDATOR FILE...: asks the Khronos glTF validator, an npm package in the directory VALIDATOR, about
// each glTF or GLB file and prints an array of its reports as JSON. A file that it cannot read has a report with
// "failure" alone.

const fs = require('fs');
const path = require('path');

const [directory, ...files] = process.argv.slice(2);
const validator = require(path.resolve(directory));

function report(file) {
  const resource = (uri) => fs.promises.readFile(path.resolve(path.dirname(file), decodeURIComponent(uri)));
  return validator
    .validateBytes(new Uint8Array(fs.readFileSync(file)), { externalResourceFunction: resource })
    .catch((error) => ({ failure: String(error) }));
}

Promise.all(files.map(report)).then((reports) => console.log(JSON.stringify(reports)));
