#include "plyText.h"

#include "vltNames.h"

namespace {

bool is_remark(std::string_view line) {
  if (!line.starts_with('c') && !line.starts_with('o')) return false;
  const std::string_view word = line.substr(0, line.find_first_of(" \t\r\n"));
  return word == "comment" || word == "obj_info";
}

}  // namespace

bool plyText::begin_entry() {
  while (lines_.next_line()) {
    if (!is_remark(lines_.rest())) return true;
  }
  reason_ = "the file ends here";
  return false;
}

void plyText::end_entry() {
  if (lines_.at_line_end()) return;
  findings_.count(velabsWARNING, "more stands on the line than the head says: it is passed over", lines_.line());
}

bool plyText::number_elsewhere(double& value) {
  return on_next_line() && (lines_.take(value) || fail_at_word());
}

bool plyText::whole_elsewhere(long long& value) {
  return on_next_line() && (lines_.take(value) || fail_at_word());
}

bool plyText::on_next_line() {
  return lines_.at_line_end() ? begin_entry() : fail_at_word();
}

bool plyText::fail_at_word() {
  reason_ = vlt_quoted(lines_.take_word()) + " is not the number that is expected";
  return false;
}

bool plyText::count(plyType, plyType, std::size_t& value) {
  long long number = 0;
  if (lines_.at_line_end()) {
    findings_.count(velabsWARNING, "a list is missing at the end of the line and taken as empty", lines_.line());
  } else if (!lines_.take(number)) {
    return fail_at_word();
  }
  // Each item takes at least a digit and a blank.
  if (number < 0 || static_cast<unsigned long long>(number) > (size_ - lines_.offset() + 1) / 2) {
    reason_ = "a list of " + std::to_string(number) + " items does not fit into the file";
    return false;
  }
  value = static_cast<std::size_t>(number);
  return true;
}

bool plyText::skip(plyType type, std::size_t how_many) {
  double ignored = 0;
  for (; how_many > 0; --how_many) {
    if (!number(type, ignored)) return false;
  }
  return true;
}
