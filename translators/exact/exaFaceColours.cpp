#include "exaFaceColours.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "apNumberText.h"
#include "vltWords.h"

namespace {

constexpr std::string_view mark = "\nvel-face-colours ";

void append(std::string& text, double number) {
  char digits[ap_number_room];
  text.append(digits, ap_write_number(digits, number));
}

bool take_number(vltWords& words, double& number) {
  std::string_view word = words.next();
  return ap_take_double(word, number) && word.empty() && std::isfinite(number);
}

}  // namespace

void exaFaceColours::add(const annColour* colour) {
  if (!colour) {
    of_face.push_back(none);
    return;
  }
  const std::array key{std::bit_cast<std::uint32_t>(colour->red), std::bit_cast<std::uint32_t>(colour->green),
                       std::bit_cast<std::uint32_t>(colour->blue), std::bit_cast<std::uint32_t>(colour->opacity)};
  const auto [known, is_new] = numbers_.try_emplace(key, static_cast<std::uint32_t>(colours.size()));
  if (is_new) colours.push_back(*colour);
  of_face.push_back(known->second);
}

void exaFaceColours::settle() {
  numbers_.clear();
  if (colours.empty()) of_face.clear();
}

std::string exaFaceColours::text() const {
  if (empty()) return {};
  std::string text(mark);
  text += std::to_string(colours.size()) + ' ' + std::to_string(of_face.size());
  for (const annColour& colour : colours) {
    text += '\n';
    for (float part : {colour.red, colour.green, colour.blue, colour.opacity}) {
      append(text, static_cast<double>(part));
      text += ' ';
    }
  }
  text += '\n';
  for (std::uint32_t number : of_face) {
    text += std::to_string(number == none ? -1 : static_cast<long long>(number)) + ' ';
  }
  return text + '\n';
}

exaFaceColours exaFaceColours::from_text(std::string_view bytes, std::size_t faces) {
  const std::size_t at = bytes.rfind(mark);
  if (at == bytes.npos) return {};
  vltWords words(bytes.substr(at + mark.size()));
  double colour_count = 0, face_count = 0;
  if (!take_number(words, colour_count) || !take_number(words, face_count)) return {};
  const double most = static_cast<double>(std::min(faces, bytes.size()));
  if (face_count != static_cast<double>(faces) || !(colour_count >= 1) || colour_count > most) return {};
  exaFaceColours result;
  for (double i = 0; i < colour_count; ++i) {
    double part[4];
    for (double& number : part) {
      if (!take_number(words, number) || number < 0 || number > 1) return {};
    }
    result.colours.push_back({static_cast<float>(part[0]), static_cast<float>(part[1]), static_cast<float>(part[2]),
                              static_cast<float>(part[3])});
  }
  for (std::size_t face = 0; face < faces; ++face) {
    double number = 0;
    if (!take_number(words, number) || !(number >= -1) || number >= colour_count) return {};
    result.of_face.push_back(number < 0 ? none : static_cast<std::uint32_t>(number));
  }
  return result;
}
