#pragma once

#include <string>
#include <vector>

#include "velConsole.h"
#include "velDriver.h"
#include "velExitCode.h"

// Looks at input files before any work begins. Each says what is wrong with every file that is wrong, what can be done
// about it, and gives the exit code.

// Missing, unreadable, empty, or no regular file at all. Never blocks.
velExitCode vel_check_input_files(const std::vector<std::string>& files, velConsole& console);

// Of a type that nothing reads, text in UTF-16, or read by a library that cannot be opened. Else `readers` are those of
// the files, in their order: the one of the format `from`, or of this extension; when that is empty, the one for the
// file's content; where the content shows no format, the one for the file's extension, with a note.
velExitCode vel_choose_readers(const std::vector<std::string>& files, const std::string& from, const velDriver& driver,
                               std::vector<const vlnTranslatorInfo*>& readers, velConsole& console);

// Errors of reading. Those about a file whose content is of another type than --from made of it say just that.
std::vector<std::string> vel_explained(const std::vector<std::string>& errors, const std::vector<std::string>& files,
                                       const std::vector<const vlnTranslatorInfo*>& readers);

// The complaint about the translator of a file whose library cannot be opened; empty when it can.
std::string vel_library_complaint(const velDriver& driver, const vlnTranslatorInfo& info, const std::string& file);
