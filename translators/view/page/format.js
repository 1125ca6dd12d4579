// Formatting of numbers and lengths.

// With as many digits as are useful for its magnitude.
function lengthText(value, unit) {
  const size = Math.abs(value);
  let text;
  if (size === 0) text = "0";
  else if (size >= 1e7 || size < 1e-4) text = value.toExponential(4);
  else text = String(Number(value.toPrecision(size >= 10000 ? 7 : size >= 100 ? 6 : 5)));
  return (text.replace("-", "\u2212") + (unit ? `\u202f${unit}` : ""));
}

function countText(count, one, several) {
  return `${count.toLocaleString("en").replaceAll(",", "\u202f")} ${count === 1 ? one : several}`;
}
