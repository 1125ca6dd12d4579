#include "vlnTranslatorCacheReader.h"

#include <array>
#include <filesystem>
#include <utility>

#include "apStringEncodingChooser.h"
#include "vlnLibraryIndex.h"
#include "vlnRecordText.h"
#include "vlnViewerName.h"
#include "vln_shared_library_extension.h"
#include "vluFileTypeInfo.h"

namespace {

bool is_regular_file(const utString& path) {
  std::error_code unreadable;
  return std::filesystem::is_regular_file(path.str(), unreadable);
}

// The same library may have gained or lost the prefix "lib" since the record was written.
apFileName other_form(const apFileName& name) {
  const apString& text = name.string();
  return apFileName(text.begins_with(L"lib") ? text.substr(3) : apString(L"lib") + text);
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
    : vlnTranslatorCacheReader(inputs, outputs, cache_file,
                               std::make_shared<const vlnLibraryIndex>(vlnLibraryIndex::of_entries(search_path)),
                               factory, encoding, compare, app_info, result) {}

vlnTranslatorCacheReader::vlnTranslatorCacheReader(vlnTranslatorDlls& inputs, vlnTranslatorDlls& outputs,
                                                   const apPathName& cache_file,
                                                   std::shared_ptr<const vlnLibraryIndex> libraries,
                                                   const vlnSecureTranslatorInfoFactory* factory,
                                                   const apIStringEncoding* encoding, const apIStringCompare* compare,
                                                   const velabsAppInfo* app_info, int& result)
    : inputs_(inputs),
      outputs_(outputs),
      libraries_(std::move(libraries)),
      factory_(factory),
      encoding_(encoding),
      compare_(compare),
      file_name_encoding_(app_info ? app_info->ut_encoding() : encoding) {
  const utString path = apStringEncodingChooser().ut_encoding()->to_utString(cache_file.string());
  // Opening a pipe would block.
  if (is_regular_file(path)) stream_.open(path.str(), std::ios::binary);
  if (!stream_.is_open()) stream_.setstate(std::ios::failbit);
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
  if (!stream_.is_open() || line_too_long_ || stream_.bad()) return false;
  return any_record_ || !any_text_;
}

int vlnTranslatorCacheReader::read_next_dll(std::unique_ptr<vlnSecureTranslatorInfo>& info) {
  info.reset();
  pending_.clear();
  vlnBraceScanner braces;
  while (append_line()) {
    if (!braces.scan(pending_)) continue;
    any_record_ = true;
    make_info(braces.content(pending_), info);
    return 1;
  }
  return 0;
}

bool vlnTranslatorCacheReader::append_line() {
  constexpr std::streamsize longest_line = 1023;
  std::array<char, longest_line + 1> line;
  if (!stream_.good()) return false;
  stream_.getline(line.data(), line.size());
  // The count holds the line feed, which only the last line of a file may lack.
  const std::streamsize taken = stream_.gcount();
  if (stream_.fail() && !stream_.eof()) line_too_long_ = true;
  if (taken > 0) any_text_ = true;
  if (stream_.fail()) return false;
  std::string_view text(line.data(), static_cast<std::size_t>(stream_.eof() ? taken : taken - 1));
  while (text.ends_with('\r')) text.remove_suffix(1);
  pending_ += text;
  return !text.empty();
}

int vlnTranslatorCacheReader::make_info_from_string(const utString& record,
                                                    std::unique_ptr<vlnSecureTranslatorInfo>& info) const {
  return make_info(record.view(), info) ? 1 : 0;
}

bool vlnTranslatorCacheReader::make_info(std::string_view record,
                                         std::unique_ptr<vlnSecureTranslatorInfo>& info) const {
  info.reset();
  std::string_view text;
  if (!vln_take_string(record, text)) return false;
  const apPathName library = find_library(text);
  if (library.invalid()) return false;

  vlnTranslatorType type{};
  if (!vln_take_string(record, text) || !direction_from_text(text, type)) return false;

  if (!vln_take_string(record, text)) return false;
  apStatus conversion;
  const apString format = encoding_->to_apString(vln_viewer_name(utString(text)), conversion);
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
  fields.set_file(library);
  fields.set_format_name(vlnFormatName(format, encoding_, compare_));
  fields.set_filter(utString(filter));
  fields.set_from_cache(1);
  fields.set_translator_category(velabsTranslatorCategory::find(utString(category)));
  fields.set_further(utString(further_text), further_number);
  info = std::move(made);
  return true;
}

apPathName vlnTranslatorCacheReader::find_library(std::string_view recorded) const {
  apStatus conversion;
  const apString text = file_name_encoding_->to_apString(utString(recorded), conversion);
  if (!conversion.ok()) return {};
  const apFileName name = apFileName(text).add_extension(vln_shared_library_extension());
  const apPathName found = libraries_->find(name);
  return found.invalid() ? libraries_->find(other_form(name)) : found;
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
    info.add_extension(encoding_->to_apString(utString(extension), conversion));
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
  if (!vln_take_list(rest, [&](std::string_view value) { values.append(utString(value)); })) return 0;
  text = utString(rest);
  return 1;
}
