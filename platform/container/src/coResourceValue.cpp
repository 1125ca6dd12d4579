#include "coResourceValue.h"

#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "apNumberText.h"

namespace {

// Only a locale set for this thread is used; the host's setlocale is ignored.
bool in_locale_of_thread() {
  return uselocale(static_cast<locale_t>(nullptr)) != LC_GLOBAL_LOCALE;
}

bool starts_as_number(const utString& text) {
  return !text.empty() && static_cast<unsigned char>(text[0]) > ' ';
}

bool double_in_locale(const utString& text, double& value) {
  // strtod accepts leading blanks and hexadecimal numbers, which are not valid here.
  if (!starts_as_number(text) || text.view().find_first_of("xX") != utString::npos) return false;
  char* end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return end == text.c_str() + text.length();
}

utString with_blanks(const utString& text) {
  std::string result = text.str();
  std::replace(result.begin(), result.end(), '-', ' ');
  return utString(result);
}

}  // namespace

bool co_value_from_text(const utString& text, utString& value) {
  value = text;
  return true;
}

bool co_value_from_text(const utString& text, double& value) {
  double number = 0;
  if (in_locale_of_thread()) {
    if (!double_in_locale(text, number)) return false;
  } else {
    std::string_view rest = text.view();
    if (!ap_take_double(rest, number) || !rest.empty()) return false;
  }
  if (!std::isfinite(number)) return false;
  value = number;
  return true;
}

bool co_value_from_text(const utString& text, int& value) {
  // The text of an integer is the same in every locale.
  std::string_view rest = text.view();
  long long number = 0;
  if (!ap_take_int(rest, number) || !rest.empty()) return false;
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max()) return false;
  value = static_cast<int>(number);
  return true;
}

bool co_value_from_text(const utString& text, utBool& value) {
  if (text == "1" || text.case_compare("true")) {
    value = utTRUE;
    return true;
  }
  if (text == "0" || text.case_compare("false")) {
    value = utFALSE;
    return true;
  }
  return false;
}

utString co_value_to_text(const utString& value) {
  return value;
}

utString co_value_to_text(double value) {
  char room[ap_number_room];
  std::string text(room, ap_write_number(room, value));
  const std::size_t point = text.find('.');
  if (point != text.npos && in_locale_of_thread()) text.replace(point, 1, nl_langinfo(RADIXCHAR));
  return text;
}

utString co_value_to_text(int value) {
  return std::to_string(value);
}

utString co_value_to_text(utBool value) {
  return value == utFALSE ? "0" : "1";
}

int co_position_of_name(const utStringcoDList& names, const utString& text) {
  const utString wanted = with_blanks(text);
  for (std::size_t i = 0; i < names.count(); ++i) {
    if (with_blanks(names[i]).case_compare(wanted)) return static_cast<int>(i);
  }
  return -1;
}
