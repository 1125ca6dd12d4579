#pragma once

#include "vluFileSample.h"

// The confidence of a recogniser that a file has its format; 0 if nothing indicates it. Only the order matters: the
// highest confidence wins.
enum vluSureness : int {
  vluNO_MARK = 0,
  vluFRAGMENT = 20,     // too little content to exclude the format
  vluRESEMBLES = 40,    // damaged, or common words only
  vluCONSISTENT = 60,   // its content is consistent with this format
  vluKEYWORD = 80,      // a keyword of the format at the right position, followed by what the format requires
  vluEXACT_SIZE = 90,   // a count in the file gives exactly the file's size
  vluUNMISTAKABLE = 99  // a signature that identifies only this format
};

// One for each format. Each reads only the sample, in linear time.
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
