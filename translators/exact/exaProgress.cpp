#include "exaProgress.h"

exaProgress::~exaProgress() = default;

Standard_Boolean exaProgress::UserBreak() {
  return output_.cancelled();
}

void exaProgress::Show(const Message_ProgressScope&, const Standard_Boolean) {
  const int percent = from_ + static_cast<int>(GetPosition() * (to_ - from_));
  if (percent <= shown_) return;
  shown_ = percent;
  output_.progress(percent);
}
