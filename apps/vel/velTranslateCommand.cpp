#include "velTranslateCommand.h"

#include <sys/stat.h>
#include <unistd.h>

#include "velFiles.h"
#include "velMessages.h"
#include "velText.h"

namespace {

std::string summary(const velTranslateRequest& request, const velTranslation& translation) {
  std::vector<std::string> sources;
  for (const std::string& input : request.inputs) sources.push_back(vel_last_component(input));
  const annStatistics& statistics = *translation.statistics();
  std::vector<std::string> counts{vel_counted(statistics.parts, velMSG_PART),
                                  vel_counted(statistics.faces, velMSG_FACE)};
  // Exact shapes have none that anybody counts.
  if (statistics.vertices > 0) counts.push_back(vel_counted(statistics.vertices, velMSG_VERTEX));
  return vel_text(velMSG_TRANSLATED, {request.output, vel_joined(counts), translation.format(), vel_joined(sources)});
}

// What goes there is for a program, which does not want to be told.
bool is_standard_output(const std::string& file) {
  struct stat one;
  struct stat other;
  return stat(file.c_str(), &one) == 0 && fstat(STDOUT_FILENO, &other) == 0 && one.st_dev == other.st_dev &&
         one.st_ino == other.st_ino;
}

void print_json(const velTranslateRequest& request, const velTranslation& translation, bool done, velConsole& console) {
  velJson format = nullptr;
  if (!translation.format().empty()) format = translation.format();
  vel_print_json(console, {{"inputs", request.inputs},
                           {"output", request.output},
                           {"format", format},
                           {"done", done},
                           {"counts", translation.counts()},
                           {"messages", vel_messages_as_json(console)}});
}

}  // namespace

velExitCode vel_translate(const velTranslateRequest& request, velConsole& console) {
  velTranslation translation(request, console);
  const velExitCode code = translation.run();
  if (request.json) {
    print_json(request, translation, code == velEXIT_DONE, console);
  } else if (code == velEXIT_DONE && !is_standard_output(request.output)) {
    console.report(summary(request, translation));
  }
  return code;
}
