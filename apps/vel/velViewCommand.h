#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velExitCode.h"
#include "vlnTranslator.h"

// `vel view`: a page that shows one or more files, or a picture of them.
struct velViewRequest {
  std::vector<std::string> inputs;
  std::string page;     // empty: among the temporary files, or, with a picture, none
  std::string picture;  // empty: none
  int width = 0;        // of the picture, in pixels; 0 leaves the size to its format
  int height = 0;
  std::string from;  // the format of the inputs; empty: as their content says
  vlnTranslator::Resources input_options;
  vlnTranslator::Resources output_options;  // of the page, of the picture or of both
  bool json = false;
};

// "800x600". False when it is something else, or more or less than a picture may have.
bool vel_size_from_text(const std::string& text, int& width, int& height);

// Prints the name of what was written, the picture's before the page's; when quiet, only one that was not given. A name
// with an extension of something else is refused, one without any is taken as it is. A page is opened in the user's
// browser where there is a desktop and the standard output is a terminal.
velExitCode vel_view(const velViewRequest& request, velConsole& console);
