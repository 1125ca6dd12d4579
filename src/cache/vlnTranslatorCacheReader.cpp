#include "vlnTranslatorCacheReader.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "apRegularFile.h"
#include "apStringCompareInsensitive.h"
#include "apStringEncodingChooser.h"
#include "vlnLibraryIndex.h"
#include "vlnRecordText.h"
#include "vlnViewerName.h"
#include "vln_shared_library_extension.h"
#include "vluFileTypeInfo.h"

namespace {

// The name with the prefix "lib" added or removed, because the library may have been renamed since the record was
// written.
std::wstring other_form(const std::wstring& name) {
  return name.starts_with(L"lib") ? name.substr(3) : L"lib" + name;
}

bool direction_from_text(std::string_view text, vlnTranslatorType& type) {
  const utString direction(text);
  if (direction.case_compare("input")) {
    type = vlnTRANSLATOR_INPUT;
  } else if (direction.case_compare("output")) {
    type = vlnTRANSLATOR_OUTPUT;
  } else {
    return false;
  }
  return true;
}

}  // namespace

vlnTranslatorCacheReader::vlnTranslatorCacheReader(vlnTranslatorDlls& inputs, vlnTranslatorDlls& outputs,
                                                   const apPathName& cache_file,
                                                   const vlnTranslatorSearchPath& search_path,
                                                   const vlnSecureTranslatorInfoFactory* factory,
                                                   const apIStringEncoding* encoding, const apIStringCompare* compare,
                                                   const velabsAppInfo* app_info, int& result)
    : inputs_(inputs),
      outputs_(outputs),
      libraries_(std::make_unique<const vlnLibraryIndex>(vlnLibraryIndex::of_entries(search_path))),
      factory_(factory),
      encoding_(encoding ? encoding : apStringEncodingChooser().ut_encoding()),
      compare_(compare),
      file_name_encoding_(app_info ? app_info->ut_encoding() : encoding_),
      library_extension_(vln_shared_library_extension()) {
  const apIStringEncoding* path_encoding = cache_file.encoding();
  if (!path_encoding) path_encoding = apStringEncodingChooser().ut_encoding();
  readable_ = read_lines(path_encoding->to_utString(cache_file.string()));
  result = read_cache_file();
}

vlnTranslatorCacheReader::~vlnTranslatorCacheReader() = default;

int vlnTranslatorCacheReader::read_cache_file() {
  int any = 0;
  std::unique_ptr<vlnSecureTranslatorInfo> info;
  while (read_next_dll(info)) {
    if (!info) continue;
    any = 1;
    vlnTranslatorDlls& set = info->type() == vlnTRANSLATOR_INPUT ? inputs_ : outputs_;
    set.add_translator(std::move(info));
  }
  return any;
}

bool vlnTranslatorCacheReader::intact() const {
  return readable_ && !line_too_long_ && (any_record_ || !any_text_);
}

int vlnTranslatorCacheReader::read_next_dll(std::unique_ptr<vlnSecureTranslatorInfo>& info) {
  info.reset();
  std::string_view record;
  if (!take_record(place_, record)) return 0;
  any_record_ = true;
  make_info(record, info);
  return 1;
}

bool vlnTranslatorCacheReader::take_record(Place& place, std::string_view& record) const {
  std::string_view rest = std::string_view(text_).substr(place.byte);
  if (!vln_take_set(rest, record)) {
    place.byte = text_.size();
    return false;
  }
  // Ignore the rest of the line after a record's closing brace.
  const std::size_t behind = text_.size() - rest.size();
  while (place.line < line_ends_.size() && line_ends_[place.line] < behind) ++place.line;
  place.byte = place.line < line_ends_.size() ? line_ends_[place.line] : text_.size();
  return true;
}

std::vector<std::string_view> vlnTranslatorCacheReader::records() const {
  std::vector<std::string_view> records;
  Place place;
  for (std::string_view record; take_record(place, record);) records.push_back(record);
  return records;
}

bool vlnTranslatorCacheReader::read_to_end() const {
  Place place, behind_last;
  for (std::string_view record; take_record(place, record);) behind_last = place;
  return !any_text_unread_ && text_.find_first_not_of(" \t", behind_last.byte) == text_.npos;
}

bool vlnTranslatorCacheReader::read_lines(const utString& path) {
  constexpr std::size_t block = std::size_t{64} << 10;
  constexpr std::uint64_t largest_file = std::uint64_t{64} << 20;
  apStatus status;
  const apRegularFile file(path, status);
  if (!file.good() || file.size() > largest_file) return false;
  any_text_ = file.size() > 0;
  constexpr std::uint64_t room_at_first = std::uint64_t{8} << 20;
  text_.reserve(static_cast<std::size_t>(std::min(file.size(), room_at_first)));

  // Read in blocks, to stop early in a file that is not a cache.
  std::string unjoined;
  std::uint64_t place = 0;
  while (place < file.size() && status.ok()) {
    const std::size_t kept = unjoined.size();
    const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(block, file.size() - place));
    unjoined.resize(kept + wanted);
    const std::size_t got = file.read_at(place, unjoined.data() + kept, wanted, status);
    unjoined.resize(kept + got);
    place += got;
    const bool is_last = got < wanted || place == file.size();
    if (!join_lines(unjoined, is_last)) {
      any_text_unread_ = any_text_unread_ || place < file.size();
      break;
    }
    if (is_last) break;
  }
  return status.ok();
}

bool vlnTranslatorCacheReader::join_lines(std::string& unjoined, bool is_last) {
  constexpr std::size_t longest_line = 1023;
  std::string_view rest = unjoined;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const bool is_whole = end < rest.size() || is_last;
    if (!is_whole && end <= longest_line) break;
    // The first part of an overlong line may close a record.
    std::string_view line = rest.substr(0, std::min(end, longest_line));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    while (line.ends_with('\r')) line.remove_suffix(1);

    // Measured after the copy: if the compiler knows the copy to be short it uses an instruction that is slow to start.
    const std::size_t joined = text_.size();
    text_ += line;
    line_too_long_ = end > longest_line;
    if (text_.size() > joined) line_ends_.push_back(static_cast<std::uint32_t>(text_.size()));
    if (line_too_long_ || text_.size() == joined) {
      any_text_unread_ = line_too_long_ || rest.find_first_not_of("\r\n") != rest.npos;
      return false;
    }
  }
  unjoined.erase(0, unjoined.size() - rest.size());
  return true;
}

int vlnTranslatorCacheReader::make_info_from_string(const utString& record,
                                                    std::unique_ptr<vlnSecureTranslatorInfo>& info) const {
  return make_info(record.view(), info) ? 1 : 0;
}

bool vlnTranslatorCacheReader::make_info(std::string_view record,
                                         std::unique_ptr<vlnSecureTranslatorInfo>& info) const {
  info.reset();
  if (!factory_) return false;
  std::string_view text;
  if (!vln_take_string(record, text)) return false;
  apPathName library = find_library(text);
  if (library.invalid()) return false;

  vlnTranslatorType type{};
  if (!vln_take_string(record, text) || !direction_from_text(text, type)) return false;

  if (!vln_take_string(record, text)) return false;
  apStatus conversion;
  std::wstring format;
  encoding_->decode(vln_viewer_name(text), format, conversion);
  if (!conversion.ok()) return false;

  auto made = factory_->create_info();
  vlnTranslatorInfo& fields = *made;
  if (!take_file_types(record, fields) || !take_extensions(record, fields)) return false;

  std::string_view filter, category, further_text;
  if (!vln_take_string(record, filter) || !vln_take_string(record, category)) return false;
  int further_number = 0;
  vln_take_string(record, further_text);
  vln_take_int(record, further_number);

  fields.set_type(type);
  fields.set_file(std::move(library));
  fields.set_format_name(vlnFormatName(std::move(format), encoding_, compare_));
  fields.set_filter(utString(filter));
  fields.set_from_cache(1);
  // Neighbouring records usually have the same category.
  if (!category_ || category_->category_name().view() != category) {
    category_ = velabsTranslatorCategory::find(utString(category));
  }
  fields.set_translator_category(category_);
  fields.set_further(utString(further_text), further_number);
  info = std::move(made);
  return true;
}

apPathName vlnTranslatorCacheReader::find_library(std::string_view recorded) const {
  apStatus conversion;
  library_name_.clear();
  file_name_encoding_->decode(recorded, library_name_, conversion);
  if (!conversion.ok()) return {};
  const std::wstring_view name = library_name_;
  const std::size_t dot = name.rfind(L'.');
  if (dot == name.npos || !ap_equal_folded(name.substr(dot + 1), library_extension_.view())) {
    library_name_ += L'.';
    library_name_ += library_extension_.view();
  }
  apPathName found = libraries_->find(library_name_);
  return found.invalid() ? libraries_->find(other_form(library_name_)) : found;
}

bool vlnTranslatorCacheReader::take_file_types(std::string_view& record, vlnTranslatorInfo& info) const {
  bool all_known = true;
  const bool taken = vln_take_list(record, [&](std::string_view name) {
    vluFileType type = vluUNKNOWN;
    all_known = all_known && vluFileTypeInfo::type_by_name(utString(name), type);
    info.add_file_type(type);
  });
  return taken && all_known;
}

bool vlnTranslatorCacheReader::take_extensions(std::string_view& record, vlnTranslatorInfo& info) const {
  apStatus conversion;
  const bool taken = vln_take_list(record, [&](std::string_view extension) {
    std::wstring text;
    encoding_->decode(extension, text, conversion);
    info.add_extension(std::move(text));
  });
  return taken && conversion.ok();
}

utString vlnTranslatorCacheReader::extract_set_string(utString& text) {
  std::string_view rest = text.view();
  std::string_view content;
  if (!vln_take_set(rest, content)) return {};
  const utString set(content);
  text = utString(rest);
  return set;
}

int vlnTranslatorCacheReader::extract_string(utString& text, utString& value) {
  std::string_view rest = text.view();
  std::string_view taken;
  value = utString();
  if (!vln_take_string(rest, taken)) return 0;
  value = utString(taken);
  text = utString(rest);
  return 1;
}

int vlnTranslatorCacheReader::extract_int(utString& text, int& value) {
  std::string_view rest = text.view();
  if (!vln_take_int(rest, value)) return 0;
  text = utString(rest);
  return 1;
}

int vlnTranslatorCacheReader::extract_list(utString& text, utStringcoDList& values) {
  std::string_view rest = text.view();
  utStringcoDList taken;
  if (!vln_take_list(rest, [&](std::string_view value) { taken.append(utString(value)); })) return 0;
  for (const utString& value : taken) values.append(value);
  text = utString(rest);
  return 1;
}
