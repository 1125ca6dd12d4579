#pragma once

#include "velTranslation.h"

// `vel translate`: translates one or more files into one.
struct velTranslateRequest : velTranslationRequest {
  bool json = false;
};

velExitCode vel_translate(const velTranslateRequest& request, velConsole& console);
