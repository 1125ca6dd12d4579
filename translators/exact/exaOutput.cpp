#include "exaOutput.h"

#include "exaFence.h"

void exaOutput::message(velabsSeverity severity, const utString& text) {
  const exaAloud aloud;
  target_.message(severity, text);
}

void exaOutput::progress(int percent) {
  const exaAloud aloud;
  target_.progress(percent);
}
