#include "velOutputCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "velFiles.h"
#include "velMessages.h"

namespace {

bool may(const std::string& path, int how) {
  return faccessat(AT_FDCWD, path.c_str(), how, AT_EACCESS) == 0;
}

// The number of the error message; no value when the output can be written.
std::optional<velMessage> complaint_about(const std::string& output, const std::vector<std::string>& inputs) {
  const auto is_output = [&](const std::string& input) { return vel_is_same_file(input, output); };
  if (std::any_of(inputs.begin(), inputs.end(), is_output)) return velMSG_OUTPUT_IS_INPUT;

  struct stat state = {};
  const bool exists = stat(output.c_str(), &state) == 0;
  if (!exists && errno == ELOOP) return velMSG_OUTPUT_IN_CIRCLE;
  if (output.ends_with('/') || (exists && S_ISDIR(state.st_mode))) return velMSG_OUTPUT_IS_DIRECTORY;
  if (exists && !may(output, W_OK)) return velMSG_OUTPUT_READ_ONLY;
  // A device or a pipe is opened directly. For a file, a new one is created in the same directory, so check that.
  if (exists && !S_ISREG(state.st_mode)) return std::nullopt;

  // Split the name as the system does, so that links and backslashes have their usual meaning.
  const std::size_t separator = output.rfind('/');
  const std::string directory =
      separator == std::string::npos ? "." : output.substr(0, std::max<std::size_t>(separator, 1));
  if (stat(directory.c_str(), &state) != 0) return velMSG_OUTPUT_NO_DIRECTORY;
  if (!S_ISDIR(state.st_mode)) return velMSG_OUTPUT_BELOW_FILE;
  if (!may(directory, W_OK | X_OK)) return velMSG_OUTPUT_DIRECTORY_CLOSED;
  return std::nullopt;
}

}  // namespace

velExitCode vel_check_output(const std::string& output, const std::vector<std::string>& inputs, velConsole& console) {
  const std::optional<velMessage> complaint = complaint_about(output, inputs);
  if (!complaint) return velEXIT_DONE;
  console.error(vel_text(*complaint, {output}));
  return velEXIT_FAILED;
}
