#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velDriver.h"
#include "velExitCode.h"

// Checks of input files before any work begins. Each reports every bad file with a remedy and returns the exit code.

// Reports files that are missing, unreadable, empty or not regular. Never blocks.
velExitCode vel_check_input_files(const std::vector<std::string>& files, velConsole& console);

// Chooses a reader for each file, in their order. `from` names its format or an extension. When `from` is empty, the
// content of the file chooses the reader; when the content shows no format, the extension of the file does, with a
// note. Reports files that no reader takes, text in UTF-16, and readers whose library cannot be opened.
velExitCode vel_choose_readers(const std::vector<std::string>& files, const std::string& from, const velDriver& driver,
                               std::vector<const vlnTranslatorInfo*>& readers, velConsole& console);

// The errors of reading. When the content of a file contradicts --from, its errors are replaced by a message about
// that.
std::vector<std::string> vel_explained(const std::vector<std::string>& errors, const std::vector<std::string>& files,
                                       const std::vector<const vlnTranslatorInfo*>& readers);

// The error about a translator for a file whose library cannot be opened; empty when it can.
std::string vel_library_complaint(const velDriver& driver, const vlnTranslatorInfo& info, const std::string& file);
