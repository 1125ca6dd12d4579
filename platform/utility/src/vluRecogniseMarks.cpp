// The formats with a signature at the start of the file.

#include "vluRecognisers.h"
#include "vluTextScan.h"

vluSureness vlu_sure_of_glb(const vluFileSample& sample) {
  return sample.head().starts_with("glTF") ? vluUNMISTAKABLE : vluNO_MARK;
}

vluSureness vlu_sure_of_hpf(const vluFileSample& sample) {
  return sample.head().starts_with("\x89HPF\r\n\x1a\n") ? vluUNMISTAKABLE : vluNO_MARK;
}

vluSureness vlu_sure_of_ply(const vluFileSample& sample) {
  std::string_view rest = sample.head();
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);
  std::string_view line = vlu_take_line(rest);
  if (vlu_take_word(line) != "ply" || !vlu_take_word(line).empty()) return vluNO_MARK;
  vlu_skip_space(rest);
  for (std::string_view follower : {"format", "comment", "obj_info", "element", "end_header"}) {
    if (rest.starts_with(follower)) return vluUNMISTAKABLE;
  }
  return rest.empty() ? vluKEYWORD : vluRESEMBLES;
}

vluSureness vlu_sure_of_step(const vluFileSample& sample) {
  std::string_view text = sample.head();
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  vlu_skip_space(text);
  return text.starts_with("ISO-10303-21") ? vluUNMISTAKABLE : vluNO_MARK;
}

vluSureness vlu_sure_of_brep(const vluFileSample& sample) {
  // The text form may have a line of its drawing program before its version line. The signature of the binary form has
  // one more word in front.
  const std::string_view front = sample.head().substr(0, 256);
  if (front.find("CASCADE Topology V") != front.npos) return vluUNMISTAKABLE;
  std::string_view text = sample.text();
  vlu_skip_space(text);
  return text.starts_with("DBRep_DrawableShape") ? vluKEYWORD : vluNO_MARK;
}
