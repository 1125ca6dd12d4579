#include "pngRequest.h"

#include "vltNames.h"
#include "vltWords.h"

namespace {

constexpr int largest_side = 16384;

// Parses "#RRGGBB".
std::optional<std::array<std::uint8_t, 3>> colour_from(std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  if (text.size() != 7 || text.front() != '#') return std::nullopt;
  std::array<std::uint8_t, 3> colour{};
  for (std::size_t i = 0; i < 6; ++i) {
    const char c = text[i + 1];
    const std::size_t digit = digits.find(c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c);
    if (digit == digits.npos) return std::nullopt;
    colour[i / 2] = static_cast<std::uint8_t>(16 * colour[i / 2] + digit);
  }
  return colour;
}

}  // namespace

std::optional<pngRequest> png_request(const velTableInstance& resources, velabsOutput& output) {
  bool good = true;
  auto refuse = [&](const char* key, const std::string& expected) {
    good = false;
    output.message(velabsERROR, utString(key) + " must be " + expected);
  };
  auto side = [&](const char* key, int standard) {
    const int value = resources.value<int>(key, standard);
    if (value >= 1 && value <= largest_side) return static_cast<std::size_t>(value);
    refuse(key, "a whole number from 1 to " + std::to_string(largest_side) + ", not " + std::to_string(value));
    return std::size_t{1};
  };
  pngRequest request{side("WIDTH", 800),
                     side("HEIGHT", 600),
                     {},
                     std::nullopt,
                     resources.value<utBool>("SHOW_EDGES", utTRUE) == utTRUE};

  std::string view(vlt_trimmed(resources.value<utString>("VIEW", "iso").view()));
  for (char& c : view) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  if (const auto direction = png_direction(view)) {
    request.direction = *direction;
  } else {
    refuse("VIEW", "iso, front, back, left, right, top or bottom, not " + vlt_quoted(view));
  }
  const utString behind = resources.value<utString>("BACKGROUND", "transparent");
  const std::string_view background = vlt_trimmed(behind.view());
  if (!vlt_same_word(background, "transparent")) {
    request.background = colour_from(background);
    if (!request.background) refuse("BACKGROUND", "transparent or a colour as #RRGGBB, not " + vlt_quoted(background));
  }
  return good ? std::optional(request) : std::nullopt;
}
