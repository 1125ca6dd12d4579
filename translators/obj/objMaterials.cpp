#include "objMaterials.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>

#include "apMappedFile.h"
#include "apNumberText.h"
#include "vltBeside.h"
#include "vltLines.h"
#include "vltNames.h"
#include "vltWords.h"

namespace {

constexpr std::size_t most_names = 1000;
constexpr std::size_t cancel_step = 4096;
constexpr annColour undefined_colour{0.8F, 0.8F, 0.8F, 1};

// The path of a file name. For a path that does not exist, for example from another computer, the last component is
// tried.
std::string companion_path(const std::string& directory, std::string_view name) {
  std::string relative(name);
  std::replace(relative.begin(), relative.end(), '\\', '/');
  const std::string path = vlt_path_beside(directory, relative);
  return path.empty() ? vlt_path_beside(directory, std::filesystem::path(relative).filename().string()) : path;
}

bool take_number(std::string_view& rest, double& number) {
  std::string_view word = vlt_take_word(rest);
  double taken = 0;
  if (!ap_take_double(word, taken) || !std::isfinite(taken)) return false;
  number = taken;
  return true;
}

float unit_range(double value) {
  return static_cast<float>(std::clamp(value, 0.0, 1.0));
}

}  // namespace

objMaterials::objMaterials(const utString& file, vltOnce& findings, const velabsOutput& output)
    : directory_(vlt_directory_of(file.str())), findings_(findings), output_(output) {
  std::error_code error;
  own_path_ = std::filesystem::canonical(file.str(), error).string();
}

bool objMaterials::load(std::string_view names, std::size_t line) {
  const std::string_view whole = vlt_before_comment(names);
  if (load_file(whole, line)) return !output_.cancelled();
  std::vector<std::string_view> missing;
  std::size_t loaded = 0;
  for (std::string_view rest = whole, word = vlt_take_word(rest); !word.empty(); word = vlt_take_word(rest)) {
    if (load_file(word, line)) {
      ++loaded;
    } else {
      missing.push_back(word);
    }
  }
  // If none of the words is a file, the whole text was one name.
  if (loaded == 0) missing.assign(1, whole);
  for (std::string_view name : missing) {
    findings_.count(velabsWARNING, "the material file " + vlt_quoted(name) + " is not there or cannot be read", line);
  }
  return !output_.cancelled();
}

bool objMaterials::load_file(std::string_view name, std::size_t line) {
  if (const auto known = tried_.find(std::string(name)); known != tried_.end()) return known->second;
  if (tried_.size() == most_names) {
    findings_.count(velabsWARNING, "more than 1000 material files are named, the further ones are not read", line);
    return true;
  }
  return tried_[std::string(name)] = find_and_read(name);
}

bool objMaterials::find_and_read(std::string_view name) {
  const std::string path = companion_path(directory_, name);
  if (path.empty() || path == own_path_) return false;
  if (paths_read_.contains(path)) return true;
  apStatus status;
  const auto file = apMappedFile::open(utString(path), status);
  if (!file) return false;
  paths_read_.insert(path);
  read(file->bytes());
  return true;
}

void objMaterials::read(std::string_view text) {
  vltLines lines(text);
  Material* current = nullptr;
  for (std::string_view line; lines.next(line);) {
    if (lines.line() % cancel_step == 0 && output_.cancelled()) return;
    statement(line, current);
  }
}

void objMaterials::statement(std::string_view line, Material*& current) {
  const std::string_view keyword = vlt_take_word(line);
  if (keyword.empty() || keyword.starts_with('#')) return;
  if (keyword == "newmtl") {
    current = &material(vlt_name_on_line(line));
    // Later definitions of the same name are ignored.
    if (current->defined) current = nullptr;
    if (current) current->defined = true;
  } else if (!current) {
    return;
  } else if (keyword == "Kd") {
    diffuse(line, *current);
  } else if (keyword == "d" || keyword == "Tr") {
    opacity(keyword, line, *current);
  } else {
    findings_.count(velabsNOTE, "of materials only colour and opacity are kept, no textures and no gloss");
  }
}

void objMaterials::diffuse(std::string_view rest, Material& material) {
  std::array<double, 3> c{};
  if (!take_number(rest, c[0])) {
    findings_.count(velabsWARNING, "the colour of material " + vlt_quoted(material.look.name.view()) +
                                       " is not given as red, green, blue and is left out");
    return;
  }
  // A single number is used for all three components.
  c[1] = c[2] = c[0];
  if (take_number(rest, c[1])) take_number(rest, c[2]);
  annColour& colour = material.look.colour;
  colour = {unit_range(c[0]), unit_range(c[1]), unit_range(c[2]), colour.opacity};
}

void objMaterials::opacity(std::string_view keyword, std::string_view rest, Material& material) {
  // "d" is the standard keyword; "Tr", its opposite, is only used if there is no "d".
  const bool by_d = keyword == "d";
  if (!by_d && material.opacity_by_d) return;
  double value = 0;
  std::string_view behind_option = rest;
  if (vlt_take_word(behind_option) == "-halo") rest = behind_option;
  if (!take_number(rest, value)) {
    findings_.count(velabsWARNING, "an opacity of a material that is no number is left out");
    return;
  }
  material.look.colour.opacity = unit_range(by_d ? value : 1 - value);
  material.opacity_by_d = by_d;
}

objMaterials::Material& objMaterials::material(std::string_view name) {
  const auto [entry, is_new] = numbers_.try_emplace(std::string(name), static_cast<std::uint32_t>(materials_.size()));
  if (is_new) materials_.push_back({{utString(name), undefined_colour}});
  return materials_[entry->second];
}

std::uint32_t objMaterials::number_of(std::string_view name, std::size_t line) {
  Material& known = material(name);
  if (known.first_line == 0) known.first_line = line;
  return static_cast<std::uint32_t>(&known - materials_.data());
}

const annMaterial& objMaterials::use(std::uint32_t number) {
  Material& known = materials_[number];
  if (!known.defined && !known.missing_told) {
    if (undefined_.empty()) {
      undefined_ =
          "a material that is defined nowhere becomes grey, the first is " + vlt_quoted(known.look.name.view());
    }
    findings_.count(velabsWARNING, undefined_, known.first_line);
    known.missing_told = true;
  }
  return known.look;
}
