#include "velCommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "velCacheCommand.h"
#include "velDirsCommand.h"
#include "velFiles.h"
#include "velInfoCommand.h"
#include "velListCommand.h"
#include "velMessages.h"
#include "velNearest.h"
#include "velOptionsCommand.h"
#include "velText.h"
#include "velTranslateCommand.h"
#include "velViewCommand.h"

namespace {

// The parsed arguments.
struct Parsed {
  velCommand command;
  std::vector<std::string> files;  // those that the command reads or writes
  std::string log;                 // empty: none
  bool quiet = false;
};

constexpr char json_help[] = "Print one JSON object";

// Splits "KEY=VALUE" at the first equals sign. The value may be empty.
vlnTranslator::Resources options_from(const char* side, const std::vector<std::string>& texts) {
  vlnTranslator::Resources options;
  for (const std::string& text : texts) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0) {
      throw CLI::ValidationError(side, vel_text(velMSG_NOT_KEY_VALUE, {text}));
    }
    options.emplace_back(text.substr(0, equals), text.substr(equals + 1));
  }
  return options;
}

void refuse_standard_streams(const std::string& file) {
  if (file == "-") throw CLI::ValidationError("-", vel_text(velMSG_STANDARD_STREAM));
}

void add_options_for(CLI::App& app, const char* side, std::vector<std::string>& words, const char* help) {
  app.add_option(side, words, help)->type_name("KEY=VALUE")->expected(1)->take_all()->allow_extra_args(false);
}

void add_from(CLI::App& app, std::string& format) {
  app.add_option("--from", format,
                 "The format to read, by name or extension; else the content decides, then the extension")
      ->type_name("FORMAT");
}

void add_translate(CLI::App& program, Parsed& parsed) {
  struct Words {
    velTranslateRequest request;
    std::vector<std::string> in, out;
  };
  auto words = std::make_shared<Words>();
  CLI::App* app = program.add_subcommand("translate", "Translate one or more files into one");
  app->add_option("IN", words->request.inputs, "The files to read")->required()->type_name("");
  app->add_option("-o,--output", words->request.output, "The file to write")->required()->type_name("OUT");
  add_from(*app, words->request.from);
  app->add_option("--to", words->request.format, "The format to write, named likewise; else the extension of OUT tells")
      ->type_name("FORMAT");
  add_options_for(*app, "--in", words->in, "An option for reading; see `vel options`");
  add_options_for(*app, "--out", words->out, "An option for writing");
  app->add_flag("--json", words->request.json, json_help)->disable_flag_override();
  app->callback([words, &parsed] {
    velTranslateRequest& request = words->request;
    for (const std::string& input : request.inputs) refuse_standard_streams(input);
    refuse_standard_streams(request.output);
    if (request.output.empty()) throw CLI::ValidationError("-o", vel_text(velMSG_OUTPUT_WITHOUT_NAME));
    request.input_options = options_from("--in", words->in);
    request.output_options = options_from("--out", words->out);
    parsed.files = request.inputs;
    parsed.files.push_back(request.output);
    parsed.command = [words](velConsole& console) { return vel_translate(words->request, console); };
  });
}

void add_view(CLI::App& program, Parsed& parsed) {
  struct Words {
    velViewRequest request;
    std::vector<std::string> in, out, png;
  };
  auto words = std::make_shared<Words>();
  CLI::App* app = program.add_subcommand("view", "Show files on a page for the browser, or as a picture");
  app->add_option("FILE", words->request.inputs, "The files to read")->required()->type_name("");
  CLI::Option* page = app->add_option("-o,--output", words->request.page, "Where the page is written");
  page->type_name("PAGE");
  app->add_option("--png", words->png, "Write a picture; no page then but with -o")
      ->type_name("FILE [WIDTHxHEIGHT]")
      ->type_size(2)
      ->expected(1)
      ->allow_extra_args(false);
  add_from(*app, words->request.from);
  add_options_for(*app, "--in", words->in, "An option for reading; see `vel options`");
  add_options_for(*app, "--out", words->out, "An option of the page or the picture: see `vel options html` and png");
  app->add_flag("--json", words->request.json, json_help)->disable_flag_override();
  app->callback([words, page, &parsed] {
    velViewRequest& request = words->request;
    parsed.files = request.inputs;
    if (page->count() > 0) {
      if (request.page.empty()) throw CLI::ValidationError("-o", vel_text(velMSG_OUTPUT_WITHOUT_NAME));
      parsed.files.push_back(request.page);
    }
    if (!words->png.empty()) {
      request.picture = words->png.front();
      if (request.picture.empty()) throw CLI::ValidationError("--png", vel_text(velMSG_OUTPUT_WITHOUT_NAME));
      const std::string& size = words->png.back();
      if (!size.empty() && !vel_size_from_text(size, request.width, request.height)) {
        throw CLI::ValidationError("--png", vel_text(velMSG_NOT_A_SIZE, {size}));
      }
      if (page->count() > 0 && vel_is_same_file(request.picture, request.page)) {
        throw CLI::ValidationError("--png", vel_text(velMSG_PICTURE_IS_PAGE, {request.picture}));
      }
      parsed.files.push_back(request.picture);
    }
    for (const std::string& file : parsed.files) refuse_standard_streams(file);
    request.input_options = options_from("--in", words->in);
    request.output_options = options_from("--out", words->out);
    parsed.command = [words](velConsole& console) { return vel_view(words->request, console); };
  });
}

velLengthUnit unit_named(const std::string& name) {
  velLengthUnit unit = velLENGTH_UNSPECIFIED;
  if (co_value_from_text(name, unit) && unit != velLENGTH_UNSPECIFIED) return unit;
  utStringcoDList names;
  velLengthUnit_strings(names);
  velLengthUnit_abbreviations(names);
  std::vector<std::string> units;
  for (std::size_t i = velLENGTH_UNSPECIFIED + 1; i < names.count(); ++i) units.push_back(names[i].str());
  throw CLI::ValidationError("--unit", vel_text(velMSG_UNKNOWN_UNIT, {name, vel_joined(units)}));
}

void add_info(CLI::App& program, Parsed& parsed) {
  auto request = std::make_shared<velInfoRequest>();
  CLI::App* app = program.add_subcommand("info", "Tell what a file holds");
  app->add_option("FILE", request->file, "The file to read")->required()->type_name("");
  auto unit = std::make_shared<std::string>();
  CLI::Option* option = app->add_option("--unit", *unit, "The unit of length to show: mm, inch and so on");
  option->type_name("UNIT");
  add_from(*app, request->from);
  app->add_flag("--json", request->json, json_help)->disable_flag_override();
  app->callback([request, unit, option, &parsed] {
    refuse_standard_streams(request->file);
    if (option->count() > 0) request->unit = unit_named(*unit);
    parsed.files = {request->file};
    parsed.command = [request](velConsole& console) { return vel_info(*request, console); };
  });
}

void add_list(CLI::App& program, Parsed& parsed) {
  auto request = std::make_shared<velListRequest>();
  CLI::App* app = program.add_subcommand("list", "List the translators, and the libraries that failed");
  app->add_flag("--json", request->json, json_help)->disable_flag_override();
  app->callback(
      [request, &parsed] { parsed.command = [request](velConsole& console) { return vel_list(*request, console); }; });
}

void add_options(CLI::App& program, Parsed& parsed) {
  auto request = std::make_shared<velOptionsRequest>();
  CLI::App* app = program.add_subcommand("options", "List the options of a format");
  app->add_option("FORMAT", request->format, "The format: its name or an extension, as `vel list` shows them")
      ->required()
      ->type_name("");
  app->add_flag("--json", request->json, json_help)->disable_flag_override();
  app->callback([request, &parsed] {
    parsed.command = [request](velConsole& console) { return vel_options(*request, console); };
  });
}

void add_cache(CLI::App& program, Parsed& parsed) {
  CLI::App* app = program.add_subcommand("cache", "Work on the cache of translators");
  app->require_subcommand(1);
  const auto add = [&](const char* name, const char* help, velExitCode (*run)(velConsole&)) {
    app->add_subcommand(name, help)->callback([run, &parsed] { parsed.command = run; });
  };
  add("refresh", "Write it anew", vel_cache_refresh);
  add("show", "Tell where it is and what it holds", vel_cache_show);
  add("clear", "Remove yours", vel_cache_clear);
}

void add_dirs(CLI::App& program, Parsed& parsed) {
  auto request = std::make_shared<velDirsRequest>();
  CLI::App* app = program.add_subcommand("dirs", "Tell where everything is");
  app->add_flag("--json", request->json, json_help)->disable_flag_override();
  app->callback(
      [request, &parsed] { parsed.command = [request](velConsole& console) { return vel_dirs(*request, console); }; });
}

// The size after the name of a picture is optional. The parser would take any argument after the name for the size.
bool looks_like_size(const std::string& word) {
  return !word.empty() && word.find_first_not_of("0123456789x ") == word.npos;
}

// The arguments in reverse order, as the parser takes them. Some are changed, because the parser
// - reads an argument in square brackets as a list,
// - recognises options and commands even after "--", once a file came before them.
// Such files get "./" before their names. An empty argument is inserted where a picture has no size.
std::vector<std::string> reversed_words(const CLI::App& program, int count, char** words) {
  std::vector<std::string> reversed;
  bool only_files = false;
  int size_at = 0;
  for (int i = 1; i < count; ++i) {
    const std::string word = i == 1 && words[i] == std::string_view("help") ? "--help" : words[i];
    if (i == size_at && !looks_like_size(word)) reversed.emplace_back();
    if (!only_files && word.starts_with("--png=")) size_at = i + 1;
    if (!only_files && word == "--png" && i + 1 < count && *words[i + 1] != '-') size_at = i + 2;
    if (word == "--" && !std::exchange(only_files, true)) continue;
    const auto is_it = [&](const CLI::App* command) { return command->check_name(word); };
    const bool looks_otherwise =
        only_files && ((word.starts_with('-') && word != "-") || !program.get_subcommands(is_it).empty());
    const bool looks_like_list = word.starts_with('[') && word.ends_with(']');
    reversed.push_back(looks_otherwise || looks_like_list ? "./" + word : word);
  }
  if (size_at == count) reversed.emplace_back();
  std::reverse(reversed.begin(), reversed.end());
  return reversed;
}

std::string with_nearest(const std::string& complaint, const std::string& word, const std::vector<std::string>& names) {
  const std::string nearest = vel_nearest(word, names);
  return nearest.empty() ? complaint : vel_text(velMSG_MEANT, {complaint, nearest});
}

std::string unknown_option(const std::string& word, const CLI::App& command) {
  const bool looks_like_file = word.find('.') != std::string::npos;
  const std::string complaint =
      vel_text(looks_like_file ? velMSG_UNKNOWN_OPTION_OR_FILE : velMSG_UNKNOWN_OPTION, {word});
  std::vector<std::string> names;
  for (const CLI::App* app = &command; app; app = app->get_parent()) {
    for (const CLI::Option* option : app->get_options()) {
      for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    }
  }
  return word.starts_with("--") ? with_nearest(complaint, word.substr(0, word.find('=')), names) : complaint;
}

std::string unknown_command(const std::string& word, const CLI::App& app, bool is_first) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    names.push_back(command->get_name());
  }
  const std::string nearest = vel_nearest(word, names);
  if (is_first && nearest.empty()) return vel_text(velMSG_NO_COMMAND_BUT_TRANSLATE, {word});
  return with_nearest(vel_text(velMSG_UNKNOWN_COMMAND, {word}), word, names);
}

// For an argument like "-q=1", the parser removes the flag and reports only the rest, "-=1". This finds the argument.
std::string complaint_about_rest(const std::string& rest, const std::vector<std::string>& reversed,
                                 const CLI::App& command) {
  if (!rest.starts_with("-=")) return unknown_option(rest, command);
  for (const std::string& word : reversed) {
    if (word.starts_with('-') && word.ends_with(rest.substr(1))) {
      return vel_text(velMSG_TAKES_NO_VALUE, {word.substr(0, word.find('='))});
    }
  }
  return unknown_option(rest, command);
}

// The error about an unknown command, an unknown option or an unexpected argument; empty without such an error. The
// parser would report only what is missing as a consequence.
std::string complaint_about_words(const CLI::App& program, const std::vector<std::string>& reversed) {
  const auto any = [](const CLI::App*) { return true; };
  const CLI::App* app = &program;
  for (auto word = reversed.rbegin(); !app->get_subcommands(any).empty(); ++word) {
    if (word == reversed.rend()) return vel_text(velMSG_NO_COMMAND);
    if (word->starts_with('-')) {
      const CLI::Option* option = program.get_option_no_throw(word->substr(0, word->find('=')));
      if (!option) return unknown_option(*word, *app);
      const bool has_value_behind = option->get_items_expected_max() > 0 && word->find('=') == std::string::npos;
      if (has_value_behind && ++word == reversed.rend()) return "";
      continue;
    }
    const auto named = app->get_subcommands([&](const CLI::App* command) { return command->check_name(*word); });
    if (named.empty()) return unknown_command(*word, *app, app == &program);
    app = named.front();
  }
  for (const std::string& word : program.remaining(true)) {
    return word.starts_with('-') ? complaint_about_rest(word, reversed, *app) : vel_text(velMSG_WORD_TOO_MANY, {word});
  }
  return "";
}

// A command and the names before it, "vel cache" for instance.
struct Reached {
  std::string name;  // without the name of the command itself
  const CLI::App* app;

  std::string whole_name() const { return name.empty() ? app->get_name() : name + " " + app->get_name(); }
};

// The last command that the parser recognised: its help fits the arguments best.
Reached innermost(const CLI::App& program) {
  Reached reached{"", &program};
  for (auto chosen = program.get_subcommands(); !chosen.empty(); chosen = reached.app->get_subcommands()) {
    reached = {reached.whole_name(), chosen.front()};
  }
  return reached;
}

// An option as a user types it, with a placeholder for its value.
std::string shown(const CLI::Option& option) {
  if (option.get_positional()) return option.get_name();
  const std::string name = option.get_snames().empty() ? option.get_name() : "-" + option.get_snames().front();
  return name + " " + option.get_type_name();
}

// The parser's error as a message of the program.
std::string complaint_about(const CLI::ParseError& error, const CLI::App& command) {
  if (dynamic_cast<const CLI::RequiredError*>(&error)) {
    for (const CLI::Option* option : command.get_options()) {
      if (option->get_required() && option->count() == 0) return vel_text(velMSG_WORD_IS_MISSING, {shown(*option)});
    }
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
    // The parser's text begins with the name of the option. The name of a flag has no dashes.
    const std::string text = error.what();
    const std::string name = text.substr(0, text.find_first_of(": "));
    const CLI::Option* option = nullptr;
    for (const CLI::App* app = &command; app && !option; app = app->get_parent()) {
      option = app->get_option_no_throw(name.starts_with('-') ? name : "--" + name);
    }
    if (!option) return text;
    if (option->get_items_expected_max() == 0) return vel_text(velMSG_TAKES_NO_VALUE, {option->get_name()});
    if (option->count() > 1) return vel_text(velMSG_GIVEN_TWICE, {name});
    return vel_text(velMSG_VALUE_IS_MISSING, {name, option->get_type_name()});
  }
  return error.what();
}

velExitCode open_log(const Parsed& parsed, velConsole& console) {
  for (const std::string& file : parsed.files) {
    if (!vel_is_same_file(parsed.log, file)) continue;
    console.error(vel_text(velMSG_LOG_IS_NAMED, {parsed.log}));
    return velEXIT_USAGE;
  }
  return console.open_log(parsed.log) ? velEXIT_DONE : velEXIT_FAILED;
}

}  // namespace

velCommand vel_parse_command_line(int count, char** words, velConsole& console, velExitCode& exit_code) {
  Parsed parsed;
  CLI::App program("Translates CAD data from one format to another.", "vel");
  program.require_subcommand(1);
  program.get_formatter()->label("SUBCOMMAND", "COMMAND");
  program.get_formatter()->label("REQUIRED", "(required)");
  program.set_help_flag("-h,--help", "Print this help");
  program.set_version_flag("--version", "vel " VEL_VERSION, "Print the version");
  program.add_option("--log", parsed.log, "Append every message to this file too")->type_name("FILE");
  program.add_flag("-q,--quiet", parsed.quiet, "Say nothing but errors and what was asked for")
      ->disable_flag_override();
  add_translate(program, parsed);
  add_view(program, parsed);
  add_info(program, parsed);
  add_list(program, parsed);
  add_options(program, parsed);
  add_cache(program, parsed);
  add_dirs(program, parsed);
  for (CLI::App* group : {&program, program.get_subcommand("cache")}) {
    for (CLI::App* app : group->get_subcommands(nullptr)) {
      app->group("Commands")->fallthrough()->footer("Every command takes -q and --log FILE too; see `vel --help`.");
    }
  }

  exit_code = velEXIT_DONE;
  try {
    std::vector<std::string> reversed = reversed_words(program, count, words);
    program.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    const Reached reached = innermost(program);
    console.print(reached.app->help(reached.name));
    return nullptr;
  } catch (const CLI::CallForVersion& version) {
    console.print(std::string(version.what()) + "\n");
    return nullptr;
  } catch (const CLI::ParseError& error) {
    const Reached reached = innermost(program);
    std::string complaint = complaint_about_words(program, reversed_words(program, count, words));
    if (complaint.empty()) complaint = complaint_about(error, *reached.app);
    console.error(vel_text(velMSG_TRY_HELP, {vel_sentence(complaint), reached.whole_name()}));
    exit_code = velEXIT_USAGE;
    return nullptr;
  }
  if (parsed.quiet) console.be_quiet();
  if (!parsed.log.empty()) exit_code = open_log(parsed, console);
  return exit_code == velEXIT_DONE ? parsed.command : nullptr;
}
