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

}  // namespace

vluFileType vluFileTypeFinder::find_file_type(const utString& path) {
  const auto sample = vluFileSample::take(path);
  if (!sample) return vluUNKNOWN;

  vluFileType best = vluUNKNOWN;
  vluSureness best_sureness = vluNO_MARK;
  for (const Recogniser& recogniser : recognisers) {
    const vluSureness sureness = recogniser.sureness(*sample);
    if (sureness == vluUNMISTAKABLE) return recogniser.type;
    // Two formats that are equally sure of one file are both wrong about it.
    if (sureness == best_sureness) best = vluUNKNOWN;
    if (sureness > best_sureness) {
      best = recogniser.type;
      best_sureness = sureness;
    }
  }
  return best;
}
