#include "velInputCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "velFiles.h"
#include "velMessages.h"
#include "velText.h"
#include "velTranslators.h"
#include "vluFileTypeFinder.h"
#include "vluFileTypeInfo.h"

namespace {

// The error about a file that cannot be read; empty when it can.
std::string complaint_about(const std::string& file) {
  const std::string shown = file.empty() ? vel_text(velMSG_EMPTY_NAME) : file;
  struct stat state = {};
  if (stat(file.c_str(), &state) != 0) return vel_text(velMSG_INPUT_MISSING, {shown, std::strerror(errno)});
  if (S_ISDIR(state.st_mode)) return vel_text(velMSG_INPUT_IS_DIRECTORY, {shown});
  if (!S_ISREG(state.st_mode)) return vel_text(velMSG_INPUT_IS_SPECIAL, {shown});
  // Open the file instead of checking its permissions: only that is right for all users and file systems.
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return vel_text(velMSG_INPUT_UNREADABLE, {shown, std::strerror(errno)});
  close(descriptor);
  return state.st_size == 0 ? vel_text(velMSG_INPUT_EMPTY, {shown}) : "";
}

// Chooses the reader by the extension of the file, with a note, when its content shows no format. Null otherwise, and
// when no reader has the extension.
const vlnTranslatorInfo* reader_for_extension(const std::string& file, const velDriver& driver, velConsole& console) {
  if (vluFileTypeFinder::find_file_type(file) != vluUNKNOWN) return nullptr;
  const std::size_t dot = vel_last_component(file).rfind('.');
  if (dot == std::string::npos) return nullptr;
  const std::string extension = vel_last_component(file).substr(dot + 1);
  const vlnTranslatorInfo* reader = vel_translator_for_extension(driver.inputs(), extension);
  if (reader) {
    console.note(vel_text(velMSG_READ_BY_EXTENSION, {file, reader->format_name().ut_string().view()}));
  }
  return reader;
}

// The error about a file that no reader takes.
std::string complaint_about_content(const std::string& file, const velDriver& driver) {
  const vluFileType type = vluFileTypeFinder::find_file_type(file);
  const std::string formats = vel_format_names({&driver.inputs()});
  if (type == vluUNKNOWN) return vel_text(velMSG_CONTENT_UNKNOWN, {file, formats});
  const std::string name = vluFileTypeInfo::name(type).str();
  const std::string packages = vel_packages_for_format(name);
  if (!packages.empty()) return vel_text(velMSG_READER_NOT_BUILT, {file, name, packages});
  return vel_text(velMSG_NO_READER, {file, name, formats});
}

// The error about a requested format without a reader.
std::string complaint_about_format(const std::string& format, const velDriver& driver) {
  const std::string packages = vel_packages_for_format(format);
  return packages.empty() ? vel_text(velMSG_NO_READER_OF_FORMAT, {format, vel_format_names({&driver.inputs()})})
                          : vel_text(velMSG_WRITER_NOT_BUILT, {format, packages});
}

// The error when the content of a file is of a type that its reader does not read; empty when it is not.
std::string mistake_of_format(const std::string& file, const vlnTranslatorInfo& reader) {
  const vluFileType type = vluFileTypeFinder::find_file_type(file);
  if (type == vluUNKNOWN) return "";
  const std::string name = vluFileTypeInfo::name(type).str();
  const velTranslatorRow row = vel_translator_row(reader);
  if (std::find(row.file_types.begin(), row.file_types.end(), name) != row.file_types.end()) return "";
  return vel_text(velMSG_FROM_IS_MISTAKEN, {file, name, row.format});
}

}  // namespace

velExitCode vel_check_input_files(const std::vector<std::string>& files, velConsole& console) {
  velExitCode code = velEXIT_DONE;
  for (const std::string& file : files) {
    const std::string complaint = complaint_about(file);
    if (complaint.empty()) continue;
    console.error(complaint);
    code = velEXIT_BAD_INPUT;
  }
  return code;
}

velExitCode vel_choose_readers(const std::vector<std::string>& files, const std::string& from, const velDriver& driver,
                               std::vector<const vlnTranslatorInfo*>& readers, velConsole& console) {
  const vlnTranslatorInfo* named = from.empty() ? nullptr : vel_translator_named(driver.inputs(), from);
  if (!named && !from.empty()) {
    console.error(complaint_about_format(from, driver));
    return velEXIT_NO_TRANSLATOR;
  }
  velExitCode code = velEXIT_DONE;
  for (const std::string& file : files) {
    const vlnTranslatorInfo* reader = named ? named : driver.inputs().translator_for_file(file);
    if (!reader && vluFileTypeFinder::is_utf16_text(file)) {
      console.error(vel_text(velMSG_INPUT_IS_UTF16, {file}));
      code = velEXIT_BAD_INPUT;
      readers.push_back(nullptr);
      continue;
    }
    if (!reader) reader = reader_for_extension(file, driver, console);
    readers.push_back(reader);
    const std::string complaint =
        reader ? vel_library_complaint(driver, *reader, file) : complaint_about_content(file, driver);
    if (complaint.empty()) continue;
    console.error(complaint);
    if (code == velEXIT_DONE) code = velEXIT_NO_TRANSLATOR;
  }
  return code;
}

std::vector<std::string> vel_explained(const std::vector<std::string>& errors, const std::vector<std::string>& files,
                                       const std::vector<const vlnTranslatorInfo*>& readers) {
  std::vector<std::string> explained;
  for (std::string error : errors) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      if (!error.starts_with(files[i] + ": ")) continue;
      const std::string mistake = mistake_of_format(files[i], *readers[i]);
      if (!mistake.empty()) error = mistake;
      break;
    }
    if (explained.empty() || explained.back() != error) explained.push_back(error);
  }
  return explained;
}

std::string vel_library_complaint(const velDriver& driver, const vlnTranslatorInfo& info, const std::string& file) {
  const std::string failure = driver.discovery().failure_to_load(info);
  if (failure.empty()) return "";
  return vel_text(velMSG_TRANSLATOR_UNUSABLE, {file, info.file_ut().view(), vel_sentence(failure)});
}
