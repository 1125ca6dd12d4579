// The shaders. A vertex has its position in the mesh's box and an octahedral normal. An instance has its placement,
// its colour, its number and a flag for the selection.

const commonInputs = `#version 300 es
precision highp float;
layout(location = 0) in vec3 place;
layout(location = 1) in vec2 folded;
layout(location = 2) in vec4 tint;
layout(location = 3) in vec4 rowX;
layout(location = 4) in vec4 rowY;
layout(location = 5) in vec4 rowZ;
layout(location = 6) in vec4 paint;
layout(location = 7) in vec2 state;
uniform mat4 view;
uniform mat4 projection;
uniform vec4 plane;
vec3 inScene() {
  vec4 p = vec4(place, 1.0);
  return vec3(dot(rowX, p), dot(rowY, p), dot(rowZ, p));
}
`;

const surfaceVertex = commonInputs + `
uniform vec3 extent;
uniform vec4 look;
uniform int lookKind;
uniform vec3 sky;
out vec3 seen;
out vec3 normal;
out vec4 colour;
out float beyond;
out float upright;
flat out float selected;
vec3 unfolded(vec2 f) {
  vec3 n = vec3(f, 1.0 - abs(f.x) - abs(f.y));
  if (n.z < 0.0) n.xy = (1.0 - abs(n.yx)) * vec2(n.x < 0.0 ? -1.0 : 1.0, n.y < 0.0 ? -1.0 : 1.0);
  return normalize(n);
}
void main() {
  vec3 p = inScene();
  vec4 eye = view * vec4(p, 1.0);
  gl_Position = projection * eye;
  seen = eye.xyz;
  // Normals are transformed by the cofactors of the placement; \`extent\` corrects for the stretched mesh box.
  vec3 x = vec3(rowX.x, rowY.x, rowZ.x);
  vec3 y = vec3(rowX.y, rowY.y, rowZ.y);
  vec3 z = vec3(rowX.z, rowY.z, rowZ.z);
  vec3 n = unfolded(folded) * extent;
  vec3 turned = n.x * cross(y, z) + n.y * cross(z, x) + n.z * cross(x, y);
  float handed = dot(x, cross(y, z)) < 0.0 ? -1.0 : 1.0;
  float size = length(turned);
  turned = size > 0.0 ? turned / size * handed : vec3(0.0);
  upright = dot(turned, sky);
  normal = mat3(view) * turned;
  colour = lookKind == 0 ? paint : look;
  if (lookKind == 2) colour = tint;
  beyond = dot(plane.xyz, p) - plane.w;
  selected = state.y;
}`;

const chosenColour = `uniform vec3 accent;
vec3 linear(vec3 c) { return pow(c, vec3(2.2)); }
vec3 chosen(vec3 base, float selected) { return mix(linear(base), linear(accent), 0.55 * selected); }
`;

const surfaceFragment = `#version 300 es
precision highp float;
in vec3 seen;
in vec3 normal;
in vec4 colour;
in float beyond;
in float upright;
flat in float selected;
uniform bool parallel;
uniform bool cut;
out vec4 painted;
` + chosenColour + `
void main() {
  if (cut && beyond > 0.0) discard;
  vec3 base = chosen(colour.rgb, selected);
  vec3 facet = cross(dFdx(seen), dFdy(seen));
  vec3 n = dot(normal, normal) > 0.01 ? normalize(normal) : normalize(facet);
  float side = dot(n, facet) < 0.0 ? -1.0 : 1.0;
  n *= side;
  vec3 eye = parallel ? vec3(0.0, 0.0, 1.0) : normalize(-seen);
  vec3 key = normalize(vec3(-0.28, 0.42, 1.0));
  float sky = 0.5 + 0.5 * upright * side;
  vec3 light = mix(vec3(0.27, 0.26, 0.255), vec3(0.42, 0.43, 0.445), sky) + 0.62 * max(dot(n, key), 0.0);
  float shine = pow(max(dot(n, normalize(key + eye)), 0.0), 48.0);
  vec3 lit = base * light + 0.055 * shine;
  painted = vec4(pow(min(lit, vec3(1.0)), vec3(1.0 / 2.2)), colour.a) * vec4(vec3(colour.a), 1.0);
}`;

// Lines less than `linesApart` pixels apart are drawn fainter, so that small parts keep their colour. `gap` is the
// distance of lines relative to the size of the mesh's box.
const linesApart = 8;

const edgeVertex = commonInputs + `
uniform vec2 nudge;
uniform float gap;
uniform float halfHeight;
out float beyond;
out float strength;
out float whole;
void main() {
  vec3 p = inScene();
  float volume = dot(vec3(rowX.x, rowY.x, rowZ.x),
    cross(vec3(rowX.y, rowY.y, rowZ.y), vec3(rowX.z, rowY.z, rowZ.z)));
  // Moved slightly towards the eye, at the same screen position.
  vec3 eye = (view * vec4(p, 1.0)).xyz * (1.0 - nudge.x);
  gl_Position = projection * vec4(eye.xy, eye.z + nudge.y, 1.0);
  float apart = gap * pow(abs(volume), 1.0 / 3.0) * projection[1][1] * halfHeight / max(gl_Position.w, 1e-6);
  float share = min(apart / ${linesApart}.0, 1.0);
  whole = share * share;
  beyond = dot(plane.xyz, p) - plane.w;
  strength = state.y;
}`;

const edgeFragment = `#version 300 es
precision highp float;
in float beyond;
in float strength;
in float whole;
uniform bool cut;
uniform vec4 ink;
uniform vec3 accent;
out vec4 painted;
void main() {
  if (cut && beyond > 0.0) discard;
  vec4 c = mix(ink, vec4(accent * 0.75, 1.0), strength);
  painted = vec4(c.rgb * c.a, c.a) * whole;
}`;

const pickVertex = commonInputs + `
out float beyond;
out float away;
flat out float number;
void main() {
  vec3 p = inScene();
  vec4 eye = view * vec4(p, 1.0);
  gl_Position = projection * eye;
  away = -eye.z;
  beyond = dot(plane.xyz, p) - plane.w;
  number = state.x;
}`;

// The depth buffer is too coarse for positions: \`span\` has the minimum and maximum distance.
const pickFragment = `#version 300 es
precision highp float;
in float beyond;
in float away;
flat in float number;
uniform bool cut;
uniform vec2 span;
layout(location = 0) out vec4 who;
layout(location = 1) out vec4 depth;
vec4 inBytes(float whole) {
  return vec4(mod(whole, 256.0), mod(floor(whole / 256.0), 256.0), floor(whole / 65536.0), 255.0) / 255.0;
}
void main() {
  if (cut && beyond > 0.0) discard;
  who = inBytes(number + 1.0);
  depth = inBytes(floor((away - span.x) / (span.y - span.x) * 16777215.0 + 0.5));
}`;

// For a segment in the section plane: its two ends and the third point of its triangle.
const cutVertex = `#version 300 es
precision highp float;
layout(location = 0) in vec3 from;
layout(location = 1) in vec3 to;
uniform mat4 view;
uniform mat4 projection;
uniform vec3 pivot;
uniform vec2 nudge;
uniform float mark;
uniform float part;
uniform float fade;
out float beyond;
out float strength;
out float whole;
out float away;
flat out float number;
void main() {
  vec3 p = gl_VertexID == 0 ? from : gl_VertexID == 1 ? to : pivot;
  vec3 eye = (view * vec4(p, 1.0)).xyz * (1.0 - nudge.x);
  gl_Position = projection * vec4(eye.xy, eye.z + nudge.y, 1.0);
  beyond = 0.0;
  away = -eye.z;
  strength = mark;
  whole = fade;
  number = part;
}`;

// Flat shading with hatching.
const capFragment = `#version 300 es
precision highp float;
in float strength;
uniform vec3 look;
uniform float slant;
out vec4 painted;
` + chosenColour + `
void main() {
  float stripe = mod(gl_FragCoord.x + slant * gl_FragCoord.y, 9.0);
  float dark = smoothstep(0.0, 1.0, stripe) * (1.0 - smoothstep(1.5, 2.5, stripe));
  vec3 base = mix(chosen(look, strength), vec3(0.5), 0.15);
  painted = vec4(pow(base * (0.8 - 0.32 * dark), vec3(1.0 / 2.2)), 1.0);
}`;
