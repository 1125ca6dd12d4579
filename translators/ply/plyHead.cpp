#include "plyHead.h"

#include <algorithm>
#include <unordered_set>

#include "apNumberText.h"
#include "vltInput.h"
#include "vltNames.h"
#include "vltWords.h"

namespace {

class HeadReader {
 public:
  HeadReader(std::string_view file, plyHead& head, velabsOutput& output)
      : file_(file), at_(file.size() - vlt_without_mark(file).size()), head_(head), output_(output) {
    const std::size_t first = file.find_first_of("\r\n");
    lone_cr_ = first != file.npos && file[first] == '\r' && file.substr(first + 1, 1) != "\n";
  }

  bool read() {
    std::string_view line;
    if (!next(line) || vlt_take_word(line) != "ply") return fail("a PLY file begins with the line \"ply\"");
    while (next(line)) {
      const std::string_view keyword = vlt_take_word(line);
      if (keyword == "end_header") return finish();
      if (!statement(keyword, line)) return false;
    }
    return fail("the file ends before its head does: no line \"end_header\"");
  }

 private:
  bool next(std::string_view& line) {
    if (at_ >= file_.size()) return false;
    const std::size_t end = std::min(file_.find(lone_cr_ ? '\r' : '\n', at_), file_.size());
    line = file_.substr(at_, end - at_);
    if (line.ends_with('\r')) line.remove_suffix(1);
    at_ = std::min(end + 1, file_.size());
    ++line_;
    return true;
  }

  bool statement(std::string_view keyword, std::string_view rest) {
    if (keyword.empty() || keyword == "comment" || keyword == "obj_info") return true;
    if (keyword == "format") return format(rest);
    if (keyword == "element") return element(rest);
    if (keyword == "property") return property(rest);
    return fail(vlt_quoted(keyword) + " is no statement of a PLY head");
  }

  bool format(std::string_view rest) {
    const std::string_view form = vlt_take_word(rest);
    const std::string_view version = vlt_take_word(rest);
    if (form == "ascii") {
      head_.form = plyForm::ascii;
    } else if (form == "binary_little_endian") {
      head_.form = plyForm::little_endian;
    } else if (form == "binary_big_endian") {
      head_.form = plyForm::big_endian;
    } else {
      return fail("the format " + vlt_quoted(form) + " is not known");
    }
    if (has_format_) return fail("a second statement \"format\"");
    has_format_ = true;
    if (version != "1.0") {
      output_.message(velabsWARNING, utString("line " + std::to_string(line_) + ": version " + vlt_quoted(version) +
                                              " is not known; the file is read as version 1.0"));
    }
    return true;
  }

  bool element(std::string_view rest) {
    plyElement element;
    element.name = vlt_take_word(rest);
    element.line = line_;
    element.is_first = names_.insert(element.name).second;
    const std::string_view count = vlt_take_word(rest);
    long long number = 0;
    if (element.name.empty() || !ap_parse_int(count, number) || number < 0) {
      return fail("an element needs a name and a number of entries: " + vlt_quoted(count) + " is none");
    }
    element.count = static_cast<std::uint64_t>(number);
    head_.elements.push_back(std::move(element));
    return true;
  }

  bool property(std::string_view rest) {
    if (head_.elements.empty()) return fail("a property stands before the first element");
    plyProperty property;
    std::string_view type = vlt_take_word(rest);
    property.is_list = type == "list";
    if (property.is_list) {
      if (!take_type(vlt_take_word(rest), property.count_type)) return false;
      type = vlt_take_word(rest);
    }
    if (!take_type(type, property.type)) return false;
    property.name = vlt_take_word(rest);
    if (property.name.empty()) return fail("a property has no name");
    head_.elements.back().properties.push_back(std::move(property));
    return true;
  }

  bool take_type(std::string_view name, plyType& type) {
    const std::optional<plyType> known = ply_type_of(name);
    if (!known) return fail("the type " + vlt_quoted(name) + " is not known");
    type = *known;
    return true;
  }

  bool finish() {
    if (!has_format_) return fail("the head ends without a statement \"format\"");
    head_.size = at_;
    head_.body_line = line_ + 1;
    std::uint64_t room = file_.size() - at_;
    if (head_.form == plyForm::ascii) ++room;  // the last number needs no blank after it
    for (const plyElement& element : head_.elements) {
      const std::uint64_t least = head_.form == plyForm::ascii ? element.least_text() : element.least_size();
      if (least == 0) continue;
      if (element.count > room / least) {
        return vlt_fail_at_line(output_, element.line,
                                std::to_string(element.count) + " entries of the element " + vlt_quoted(element.name) +
                                    " need more bytes than the file has");
      }
      room -= element.count * least;
    }
    return true;
  }

  bool fail(std::string_view reason) { return vlt_fail_at_line(output_, std::max<std::size_t>(line_, 1), reason); }

  std::string_view file_;
  std::size_t at_;
  plyHead& head_;
  velabsOutput& output_;
  std::size_t line_ = 0;
  bool lone_cr_ = false;
  bool has_format_ = false;
  std::unordered_set<std::string> names_;  // of elements
};

}  // namespace

std::optional<plyType> ply_type_of(std::string_view name) {
  constexpr std::string_view names[][2] = {{"char", "int8"},     {"uchar", "uint8"},   {"short", "int16"},
                                           {"ushort", "uint16"}, {"int", "int32"},     {"uint", "uint32"},
                                           {"float", "float32"}, {"double", "float64"}};
  for (std::size_t i = 0; i < std::size(names); ++i) {
    if (name == names[i][0] || name == names[i][1]) return static_cast<plyType>(i);
  }
  return std::nullopt;
}

std::size_t plyElement::least_size() const {
  std::size_t size = 0;
  for (const plyProperty& property : properties)
    size += ply_size_of(property.is_list ? property.count_type : property.type);
  return size;
}

std::size_t plyElement::least_text() const {
  if (properties.empty()) return 0;
  auto is_number = [](const plyProperty& property) { return !property.is_list; };
  const auto numbers = std::count_if(properties.begin(), properties.end(), is_number);
  return 2 * std::max<std::size_t>(static_cast<std::size_t>(numbers), 1);
}

bool plyElement::has_lists() const {
  return std::any_of(properties.begin(), properties.end(), [](const plyProperty& each) { return each.is_list; });
}

bool plyHead::read(std::string_view file, velabsOutput& output) {
  return HeadReader(file, *this, output).read();
}

const plyElement* plyHead::find(std::string_view name) const {
  auto has_name = [&](const plyElement& element) { return element.name == name; };
  const auto found = std::find_if(elements.begin(), elements.end(), has_name);
  return found == elements.end() ? nullptr : &*found;
}
