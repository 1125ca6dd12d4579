#pragma once

#include "vluFileSample.h"

// How sure a recogniser is that a file is of its format: 0 when nothing speaks for it. The steps matter only against
// each other: the surest recogniser wins.
enum vluSureness : int {
  vluNO_MARK = 0,
  vluFRAGMENT = 20,     // so little is there that nothing speaks against it either
  vluRESEMBLES = 40,    // damaged, or common words only
  vluCONSISTENT = 60,   // its content agrees with itself as this format demands
  vluKEYWORD = 80,      // a keyword of the format where it belongs, and what must follow it
  vluEXACT_SIZE = 90,   // a count in the file gives exactly the file's size
  vluUNMISTAKABLE = 99  // a mark made to tell the format from all others
};

// One for each format. Each looks at the sample alone and takes time in proportion to it.
vluSureness vlu_sure_of_stl(const vluFileSample& sample);
vluSureness vlu_sure_of_obj(const vluFileSample& sample);
vluSureness vlu_sure_of_ply(const vluFileSample& sample);
vluSureness vlu_sure_of_off(const vluFileSample& sample);
vluSureness vlu_sure_of_gltf(const vluFileSample& sample);
vluSureness vlu_sure_of_glb(const vluFileSample& sample);
vluSureness vlu_sure_of_3mf(const vluFileSample& sample);
vluSureness vlu_sure_of_hpf(const vluFileSample& sample);
vluSureness vlu_sure_of_step(const vluFileSample& sample);
vluSureness vlu_sure_of_iges(const vluFileSample& sample);
vluSureness vlu_sure_of_brep(const vluFileSample& sample);
