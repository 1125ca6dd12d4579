#include "velInputCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "velText.h"
#include "velTranslators.h"
#include "vluFileTypeFinder.h"
#include "vluFileTypeInfo.h"

namespace {

// Empty when the file can be read.
std::string complaint_about(const std::string& file) {
  struct stat state = {};
  if (stat(file.c_str(), &state) != 0) return std::string(std::strerror(errno)) + ". Check its name.";
  if (S_ISDIR(state.st_mode)) return "this is a directory. Name a file.";
  if (!S_ISREG(state.st_mode)) {
    return "this is no regular file (a pipe, socket or device). Save what it gives to a file and name that.";
  }
  // Opened rather than asked for its permissions: only that tells for every kind of user and file system.
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return std::string("it cannot be opened: ") + std::strerror(errno) + ".";
  close(descriptor);
  if (state.st_size == 0) return "this file is empty. Ask for a fresh copy.";
  return "";
}

}  // namespace

velExitCode vel_check_input_files(const std::vector<std::string>& files, velConsole& console) {
  velExitCode code = velEXIT_DONE;
  for (const std::string& file : files) {
    const std::string complaint = complaint_about(file);
    if (complaint.empty()) continue;
    console.error((file.empty() ? "(empty name)" : file) + ": " + complaint);
    code = velEXIT_BAD_INPUT;
  }
  return code;
}

velExitCode vel_check_input_translators(const std::vector<std::string>& files, const velDriver& driver,
                                        velConsole& console) {
  velExitCode code = velEXIT_DONE;
  for (const std::string& file : files) {
    std::string complaint;
    if (const vlnTranslatorInfo* info = driver.inputs().translator_for_file(file)) {
      complaint = vel_library_complaint(driver, *info);
    } else {
      const vluFileType type = vluFileTypeFinder::find_file_type(file);
      const std::string found = type == vluUNKNOWN ? "its content is of no known type"
                                                   : "this is a file of type " + vluFileTypeInfo::name(type).str() +
                                                         ", and no translator here reads it";
      complaint = found + ". Formats that can be read: " + vel_format_names(driver.inputs()) + ".";
    }
    if (complaint.empty()) continue;
    console.error(file + ": " + complaint);
    code = velEXIT_NO_TRANSLATOR;
  }
  return code;
}

std::string vel_library_complaint(const velDriver& driver, const vlnTranslatorInfo& info) {
  const std::string failure = driver.discovery().failure_to_load(info);
  if (failure.empty()) return "";
  return "its translator " + info.file_ut().str() + " cannot be used: " + vel_sentence(failure) +
         " Run `vel cache refresh` if that library was replaced.";
}
