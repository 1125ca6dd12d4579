#include "vlnTranslatorCacheWriter.h"

#include <string>
#include <string_view>

#include "apStringEncodingChooser.h"
#include "vlnTranslatorDllsIT.h"
#include "vluFileTypeInfo.h"

namespace {

// Builds the text of one record. A value that cannot be written invalidates the record.
class Record {
 public:
  void open() { text_ += "{\n"; }
  void close() { text_ += "}\n"; }

  void add_string(std::string_view value) {
    check(value);
    add_line('"' + std::string(value) + "\",");
  }

  void begin_set() { set_.clear(); }
  void add_element(std::string_view value) {
    check(value);
    if (!set_.empty()) set_ += ',';
    set_ += '"';
    set_ += value;
    set_ += '"';
  }
  void end_set() { add_line('{' + set_ + "},"); }

  void add_last_number(int value) { add_line(std::to_string(value)); }

  void spoil() { spoilt_ = true; }
  bool spoilt() const { return spoilt_; }
  const std::string& text() const { return text_; }

 private:
  // The maximum length that the reader accepts.
  static constexpr std::size_t longest_line = 1023;

  void add_line(std::string_view line) {
    if (line.size() + 2 > longest_line) spoil();
    text_ += "  ";
    text_ += line;
    text_ += '\n';
  }

  void check(std::string_view value) {
    int depth = 0;
    for (char c : value) {
      if (c == '{') ++depth;
      if (c == '}' && --depth < 0) spoil();
      if (c == '"' || c == '\n' || c == '\r' || c == '\0') spoil();
    }
    if (depth != 0) spoil();
  }

  std::string text_;
  std::string set_;
  bool spoilt_ = false;
};

std::string encoded(const apString& text, const apIStringEncoding& encoding, Record& record) {
  std::string bytes;
  apStatus conversion;
  encoding.encode(text.view(), bytes, conversion);
  if (!conversion.ok()) record.spoil();
  return bytes;
}

Record record_of(const vlnTranslatorInfo& info, const apIStringEncoding& encoding) {
  Record record;
  record.open();
  record.add_string(encoded(info.file_name().string(), encoding, record));
  if (info.type() == vlnTRANSLATOR_INPUT) record.add_string("input");
  if (info.type() == vlnTRANSLATOR_OUTPUT) record.add_string("output");
  record.add_string(encoded(info.format_name().string(), encoding, record));

  intcoDList types;
  info.get_file_types(types);
  record.begin_set();
  for (int type : types) {
    const utString name = vluFileTypeInfo::name(static_cast<vluFileType>(type));
    // A number without a name would be read back as the unknown type, which matches any unknown file.
    if (type != vluUNKNOWN && name == vluFileTypeInfo::name(vluUNKNOWN)) record.spoil();
    record.add_element(name.view());
  }
  record.end_set();

  auto extensions = info.get_extensions();
  record.begin_set();
  while (++extensions) record.add_element(encoded(extensions(), encoding, record));
  record.end_set();

  record.add_string(info.filter_string().view());
  const velabsTranslatorCategorycoPrf& category = info.translator_category();
  record.add_string(category ? category->category_name().view() : "");
  record.add_string(info.further_text().view());
  record.add_last_number(info.further_number());
  record.close();
  return record;
}

}  // namespace

vlnTranslatorCacheWriter::vlnTranslatorCacheWriter(const utString& cache_file, const vlnTranslatorDlls& inputs,
                                                   const vlnTranslatorDlls& outputs, const apIStringEncoding* encoding,
                                                   int& records_written, vlnTranslatorLoadStatus& status)
    : inputs_(inputs),
      outputs_(outputs),
      encoding_(encoding ? encoding : apStringEncodingChooser().ut_encoding()),
      file_(cache_file, opening_) {
  records_written = make_cache_file(status);
}

vlnTranslatorCacheWriter::~vlnTranslatorCacheWriter() = default;

int vlnTranslatorCacheWriter::make_cache_file(vlnTranslatorLoadStatus& status) {
  return write_set(inputs_, status) + write_set(outputs_, status);
}

int vlnTranslatorCacheWriter::write_set(const vlnTranslatorDlls& set, vlnTranslatorLoadStatus& status) {
  int written = 0;
  vlnTranslatorDllsIT translators(set);
  while (++translators) {
    const vlnTranslatorLoadStatus result = write_next_dll(translators());
    if (result.ok()) ++written;
    status.merge_status(result);
  }
  return written;
}

std::string vlnTranslatorCacheWriter::record_text(const vlnTranslatorInfo& info, const apIStringEncoding& encoding) {
  const Record record = record_of(info, encoding);
  return record.spoilt() ? "" : record.text();
}

vlnTranslatorLoadStatus vlnTranslatorCacheWriter::write_next_dll(const vlnTranslatorInfo* info) {
  if (!info) return {};
  if (!file_.good()) return vlnTranslatorLoadStatus(vlnLOAD_CACHE_UNWRITABLE);
  vlnTranslatorLoadStatus loaded(vlnLOAD_OK);
  info->load_now(loaded);
  if (!loaded.ok()) return loaded;

  const std::string record = record_text(*info, *encoding_);
  if (record.empty()) return vlnTranslatorLoadStatus(vlnLOAD_ENCODING_FAILED);
  file_.write(record);
  return vlnTranslatorLoadStatus(file_.good() ? vlnLOAD_OK : vlnLOAD_CACHE_UNWRITABLE);
}
