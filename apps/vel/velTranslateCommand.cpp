#include "velTranslateCommand.h"

#include <sys/stat.h>
#include <unistd.h>

#include "velFiles.h"
#include "velMessages.h"
#include "velText.h"

namespace {

std::string sources_of(const std::vector<std::string>& inputs) {
  constexpr std::size_t most = 4;
  const std::size_t shown = inputs.size() > most ? most - 1 : inputs.size();
  std::vector<std::string> names;
  for (std::size_t i = 0; i < shown; ++i) names.push_back(vel_last_component(inputs[i]));
  const std::string joined = vel_joined(names);
  const std::size_t others = inputs.size() - shown;
  return others == 0 ? joined : vel_text(velMSG_AND_OTHERS, {joined, std::to_string(others)});
}

std::string summary(const velTranslateRequest& request, const velTranslation& translation) {
  const annStatistics &exact = translation.exact(), &facetted = translation.facetted();
  std::vector<std::string> counts{vel_counted(exact.parts + facetted.parts, velMSG_PART)};
  if (exact.parts > 0) counts.push_back(vel_counted(exact.faces, velMSG_EXACT_FACE));
  if (facetted.parts > 0 || exact.parts == 0) counts.push_back(vel_counted(facetted.faces, velMSG_FACE));
  if (exact.parts == 0 && facetted.vertices > 0) counts.push_back(vel_counted(facetted.vertices, velMSG_VERTEX));
  return vel_text(velMSG_TRANSLATED,
                  {request.output, vel_joined(counts), translation.format(), sources_of(request.inputs)});
}

// An output file that is the standard output is read by another program, so no summary may follow it.
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
