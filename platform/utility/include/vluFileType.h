#pragma once

#include "apLanguage.h"

// The type of a file, determined by its content. Names and numbers are stable, because cache files contain them.
enum vluFileType : int {
  vluUNKNOWN = 0,
  vluSTL = 1,
  vluOBJ = 2,
  vluPLY = 3,
  vluOFF = 4,
  vluGLTF = 5,
  vluGLB = 6,
  vlu3MF = 7,
  vluHPF = 8,
  vluSTEP = 9,
  vluIGES = 10,
  vluBREP = 11,
};
