#include "vluFileTypeFinder.h"

#include "vluRecognisers.h"

namespace {

struct Recogniser {
  vluFileType type;
  vluSureness (*sureness)(const vluFileSample&);
};

constexpr Recogniser recognisers[] = {
    {vluGLB, vlu_sure_of_glb},   {vluHPF, vlu_sure_of_hpf},   {vluPLY, vlu_sure_of_ply}, {vluSTEP, vlu_sure_of_step},
    {vluBREP, vlu_sure_of_brep}, {vlu3MF, vlu_sure_of_3mf},   {vluOFF, vlu_sure_of_off}, {vluSTL, vlu_sure_of_stl},
    {vluIGES, vlu_sure_of_iges}, {vluGLTF, vlu_sure_of_gltf}, {vluOBJ, vlu_sure_of_obj},
};

// In UTF-16 an ASCII character is a null byte and another byte. Nearly all characters in text files of CAD programs are
// ASCII.
bool is_mostly_wide_ascii(std::string_view bytes, std::size_t place_of_null) {
  const std::size_t pairs = bytes.size() / 2;
  std::size_t wide = 0;
  for (std::size_t i = 0; i < pairs; ++i) {
    wide += bytes[2 * i + place_of_null] == '\0' && bytes[2 * i + 1 - place_of_null] != '\0';
  }
  return pairs > 3 && wide >= pairs - pairs / 8;
}

}  // namespace

bool vluFileTypeFinder::is_utf16_text(const utString& path) {
  const auto sample = vluFileSample::take(path);
  if (!sample) return false;
  std::string_view head = sample->head();
  if (head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF")) head.remove_prefix(2);
  return is_mostly_wide_ascii(head, 0) || is_mostly_wide_ascii(head, 1);
}

vluFileType vluFileTypeFinder::find_file_type(const utString& path) {
  const auto sample = vluFileSample::take(path);
  if (!sample) return vluUNKNOWN;

  vluFileType best = vluUNKNOWN;
  vluSureness best_sureness = vluNO_MARK;
  for (const Recogniser& recogniser : recognisers) {
    const vluSureness sureness = recogniser.sureness(*sample);
    if (sureness == vluUNMISTAKABLE) return recogniser.type;
    // Two formats with equal confidence: the file is ambiguous.
    if (sureness == best_sureness) best = vluUNKNOWN;
    if (sureness > best_sureness) {
      best = recogniser.type;
      best_sureness = sureness;
    }
  }
  return best;
}
