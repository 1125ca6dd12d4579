#include "annProgress.h"

annProgress::~annProgress() = default;
