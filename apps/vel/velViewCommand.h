#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velExitCode.h"
#include "vlnTranslator.h"

// `vel view`: writes a page that shows one or more files, or a picture of them.
struct velViewRequest {
  std::vector<std::string> inputs;
  std::string page;     // empty: in a temporary directory, or no page if there is a picture
  std::string picture;  // empty: none
  int width = 0;        // of the picture, in pixels; 0: the default of the PNG writer
  int height = 0;
  std::string from;  // the format of the inputs; empty: chosen by the content
  vlnTranslator::Resources input_options;
  vlnTranslator::Resources output_options;  // of the page, of the picture or of both
  bool json = false;
};

// Parses a size such as "800x600". Returns false for any other text and for sizes that a picture cannot have.
bool vel_size_from_text(const std::string& text, int& width, int& height);

// Prints the names of the written files, first the picture, then the page; when quiet, only a name that the user did
// not give. A name with a wrong extension is an error, a name without one is used unchanged. A page is opened in the
// browser when there is a desktop and the standard output is a terminal.
velExitCode vel_view(const velViewRequest& request, velConsole& console);
