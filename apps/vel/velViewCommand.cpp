#include "velViewCommand.h"

#include <strings.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>

#include "apNumberText.h"
#include "apStringEncodingChooser.h"
#include "velDesktop.h"
#include "velFiles.h"
#include "velMessages.h"
#include "velOutputCheck.h"
#include "velText.h"
#include "velTranslation.h"
#include "velValidator.h"

namespace {

// A directory among the temporary files that only its user can access. The destructor removes it unless `keep` was
// called.
class PrivateDirectory {
 public:
  ~PrivateDirectory() {
    std::error_code ignored;
    if (!kept_ && !path_.empty()) std::filesystem::remove_all(path_, ignored);
  }

  bool make(velConsole& console) {
    const char* chosen = std::getenv("TMPDIR");
    std::string name = std::string(chosen && *chosen ? chosen : "/tmp") + "/vel-view-XXXXXX";
    if (mkdtemp(name.data())) {
      path_ = name;
      return true;
    }
    console.error(vel_text(velMSG_NO_TEMPORARY_DIRECTORY, {name, std::strerror(errno)}));
    return false;
  }

  std::string file(const std::string& name) const { return path_ + "/" + name; }
  void keep() { kept_ = true; }

 private:
  std::string path_;
  bool kept_ = false;
};

// Whether the name has one of these extensions or none.
bool may_be_called(const std::string& file, std::initializer_list<const char*> extensions) {
  const std::string extension = std::filesystem::path(vel_last_component(file)).extension().string();
  return extension.empty() || std::any_of(extensions.begin(), extensions.end(),
                                          [&](const char* known) { return strcasecmp(extension.c_str(), known) == 0; });
}

// Writes the picture, then the page.
class View {
 public:
  View(const velViewRequest& request, velConsole& console) : request_(request), console_(console) {}

  velExitCode run() {
    const velExitCode code = show();
    if (request_.json) {
      print_json(code == velEXIT_DONE);
    } else {
      for (const std::string& file : written_) {
        const bool was_given = file == request_.picture || file == request_.page;
        was_given ? console_.report(file) : console_.print_line(file);
      }
    }
    if (code == velEXIT_DONE && !page_.empty() && !request_.json) vel_open_on_desktop(page_);
    return code;
  }

 private:
  velExitCode show() {
    for (const std::string& file : {request_.picture, request_.page}) {
      if (file.empty()) continue;
      if (const velExitCode code = vel_check_output(file, request_.inputs, console_)) return code;
    }
    if (!are_names_good()) return velEXIT_USAGE;
    if (!request_.picture.empty()) {
      vlnTranslator::Resources size;
      if (request_.width > 0) {
        size = {{"WIDTH", std::to_string(request_.width)}, {"HEIGHT", std::to_string(request_.height)}};
      }
      if (const velExitCode code = write(request_.picture, "PNG", size)) return code;
      if (request_.page.empty()) return velEXIT_DONE;
    }
    PrivateDirectory directory;
    std::string page = request_.page;
    if (page.empty()) {
      if (!directory.make(console_)) return velEXIT_FAILED;
      page = directory.file(name_of_page());
    }
    if (const velExitCode code = write(page, "Viewer", {{"TITLE", title()}})) return code;
    directory.keep();
    page_ = page;
    return velEXIT_DONE;
  }

  bool are_names_good() {
    const bool page = may_be_called(request_.page, {".html", ".htm"});
    const bool picture = may_be_called(request_.picture, {".png"});
    if (!page) console_.error(vel_text(velMSG_NO_NAME_OF_PAGE, {request_.page}));
    if (!picture) console_.error(vel_text(velMSG_NO_NAME_OF_PICTURE, {request_.picture}));
    return page && picture;
  }

  velExitCode write(const std::string& file, const char* format, vlnTranslator::Resources options) {
    options.insert(options.end(), request_.output_options.begin(), request_.output_options.end());
    velTranslationRequest request{request_.inputs, request_.from, file, format, request_.input_options, options, ""};
    const bool are_both_written = !request_.picture.empty() && !request_.page.empty();
    if (are_both_written) request.other_format = std::string_view(format) == "PNG" ? "Viewer" : "PNG";
    velTranslation translation(request, console_);
    const velExitCode code = translation.run();
    counts_ = translation.counts();
    if (code == velEXIT_DONE) written_.push_back(file);
    return code;
  }

  std::string title() const {
    std::vector<std::string> names;
    for (const std::string& input : request_.inputs) names.push_back(vel_last_component(input));
    return vel_joined(names);
  }

  // The name of the first input, with "_" for control characters and invalid UTF-8, which lines and JSON cannot hold.
  std::string name_of_page() const {
    constexpr std::size_t longest = 200;
    const std::string stem = std::filesystem::path(vel_last_component(request_.inputs.front())).stem().string();
    const apIStringEncoding& encoding = *apStringEncodingChooser().ut_encoding();
    std::wstring text;
    std::string name;
    apStatus status;
    encoding.decode(stem.substr(0, longest), text, status);
    for (wchar_t& c : text) {
      const bool is_stray_byte = c >= 0xdc80 && c <= 0xdcff;
      if (c < 0x20 || c == 0x7f || is_stray_byte) c = L'_';
    }
    encoding.encode(text, name, status);
    return name + ".html";
  }

  void print_json(bool done) const {
    auto name = [](const std::string& file) { return file.empty() ? velJson(nullptr) : velJson(file); };
    vel_print_json(console_, {{"inputs", request_.inputs},
                              {"page", name(page_)},
                              {"png", name(done ? request_.picture : "")},
                              {"done", done},
                              {"counts", counts_},
                              {"messages", vel_messages_as_json(console_)}});
  }

  const velViewRequest& request_;
  velConsole& console_;
  std::vector<std::string> written_;
  std::string page_;
  velJson counts_ = nullptr;
};

}  // namespace

bool vel_size_from_text(const std::string& text, int& width, int& height) {
  const std::size_t cross = text.find('x');
  if (cross == std::string::npos) return false;
  auto side = [](std::string_view digits, const char* key, int& value) {
    long long number = 0;
    const auto* bounds = velValidator::bounds(key);
    if (digits.find_first_not_of("0123456789") != digits.npos || !ap_parse_int(digits, number)) return false;
    value = static_cast<int>(number);
    return static_cast<double>(number) >= bounds->least && static_cast<double>(number) <= bounds->most;
  };
  const std::string_view whole = text;
  return side(whole.substr(0, cross), "WIDTH", width) && side(whole.substr(cross + 1), "HEIGHT", height);
}

velExitCode vel_view(const velViewRequest& request, velConsole& console) {
  return View(request, console).run();
}
