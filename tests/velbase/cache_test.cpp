#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "Registry.h"
#include "apStringEncodings.h"
#include "vlnTranslatorCacheReader.h"
#include "vlnTranslatorCacheWriter.h"

namespace {

// A search path with empty library files, and what reading a cache over it gives.
class CacheTest : public testing::Test {
 protected:
  CacheTest() {
    dir.write("lib/step.dll", "");
    dir.write("lib/libiges.dll", "");
    dir.write("lib/UPPER.DLL", "");
  }

  int read(const std::string& cache) { return read_file(dir.write("translators.lst", cache)); }
  int read_file(const std::string& file) {
    inputs = registry.sets.empty_dlls();
    outputs = registry.sets.empty_dlls();
    int result = -1;
    const vlnTranslatorCacheReader reader(*inputs, *outputs, registry.path(file), registry.search_path(directories),
                                          &registry.descriptions, encoding, &registry.compare, app_info, result);
    intact = reader.intact();
    read_to_end = reader.read_to_end();
    records.clear();
    for (const std::string_view record : reader.records()) records.emplace_back(record);
    return result;
  }

  static std::string record(const std::string& file, const std::string& direction, const std::string& format,
                            const std::string& types = "\"STEP\"") {
    return "{\n  \"" + file + "\",\n  \"" + direction + "\",\n  \"" + format + "\",\n  {" + types +
           "},\n  {\"stp\",\"step\"},\n  \"F (*.stp)|*.stp\",\n  \"Exact\",\n  \"\",\n  3\n}\n";
  }

  TemporaryDirectory dir;
  Registry registry;
  std::string directories = dir / "lib";
  const apIStringEncoding* encoding = registry.encoding;
  const velabsAppInfo* app_info = &registry.app_info;
  std::unique_ptr<vlnTranslatorDlls> inputs = registry.sets.empty_dlls(), outputs = registry.sets.empty_dlls();
  vlnTranslatorLoadStatus status{vlnLOAD_OK};
  int written = -1;
  bool intact = false;
  bool read_to_end = false;
  std::vector<std::string> records;  // between their braces
};

}  // namespace

TEST_F(CacheTest, ARecordBecomesADescriptionWithoutOpeningItsLibrary) {
  EXPECT_EQ(read(record("step.dll", "input", "STEP") + record("step", "OUTPUT", "viewer 9")), 1);
  EXPECT_TRUE(intact);
  ASSERT_EQ(registry.formats(*inputs), std::vector<std::string>{"STEP"});
  ASSERT_EQ(registry.formats(*outputs), std::vector<std::string>{"Viewer"});
  const vlnTranslatorInfo& info = *inputs->translator_for_format("step");
  EXPECT_EQ(info.file_ut(), dir / "lib/step.dll");
  EXPECT_EQ(info.filter_string(), "F (*.stp)|*.stp");
  EXPECT_EQ(info.translator_category()->category_name(), "Exact");
  EXPECT_EQ(info.from_cache(), 1);
  EXPECT_EQ(info.further_number(), 3);
  EXPECT_TRUE(info.is_compatible(vluSTEP, ""));
  EXPECT_EQ(registry.libraries.opened, 0);
}

TEST_F(CacheTest, LayoutDoesNotMatter) {
  std::string one_line = record("step.dll", "input", "STEP");
  std::erase(one_line, '\n');
  std::string crlf = record("step.dll", "input", "STEP");
  for (std::size_t at = 0; (at = crlf.find('\n', at)) != crlf.npos; at += 3) crlf.insert(at, "\r\r");
  const struct {
    std::string cache;
    std::size_t records;
    bool to_end = true;
    std::size_t dropped = 0;
  } cases[] = {
      {one_line, 1},
      {one_line + " behind is discarded " + record("step.dll", "input", "B"), 1, false, 2},
      {one_line + "\n" + one_line, 2},
      {crlf + record("step.dll", "input", "B"), 2},
      {record("step.dll", "input", "A") + "\n\r\n", 1},
      // An empty line ends it.
      {record("step.dll", "input", "A") + "\n" + record("step.dll", "input", "B"), 1, false},
      {"{\"step\",\"input\",\"A\",{},{},\"\",\"\"}", 1},  // without the further fields, without a line feed
      {"}\n" + one_line, 0, false},                       // a stray brace loses the rest
      {one_line + "\n{\"step.dll\",", 1, false},
  };
  for (const auto& c : cases) {
    read(c.cache);
    EXPECT_EQ(inputs->count(), c.records) << c.cache;
    EXPECT_EQ(records.size(), c.records + c.dropped) << c.cache;
    EXPECT_EQ(read_to_end, c.to_end) << c.cache;
  }
}

TEST_F(CacheTest, BrokenAndStaleRecordsAreDroppedAlone) {
  const std::string good = record("step.dll", "input", "STEP");
  for (const std::string& bad :
       {record("gone.dll", "input", "X"), record("../lib/step.dll", "input", "X"), record("LIBstep.dll", "input", "X"),
        record("step.dll", "sideways", "X"), record("step.dll", "input", "X", "\"STEP\",\"No such type\""),
        record("step.dll", "input", "X", "STEP"), std::string("{}\n"), std::string("{ \"step.dll\", \"input\" }\n"),
        std::string("{\"step.dll\n")}) {
    read(good + bad);
    EXPECT_EQ(registry.formats(*inputs), std::vector<std::string>{"STEP"}) << bad;
    read(bad);
    EXPECT_EQ(inputs->count(), 0U) << bad;
  }
}

TEST_F(CacheTest, LibrariesAreFoundInEitherFormAndAnyCaseButBestAsSpelled) {
  for (const char* name : {"lib/STEP.DLL", "lib/EXACT.DLL", "other/exact.dll"}) dir.write(name, "");
  directories = (dir / "lib") + ";" + (dir / "other");
  const std::pair<const char*, const char*> cases[] = {
      {"iges", "lib/libiges.dll"},   {"libiges.dll", "lib/libiges.dll"}, {"libstep", "lib/step.dll"},
      {"step.dll", "lib/step.dll"},  {"STEP.DLL", "lib/STEP.DLL"},       {"upper.dll", "lib/UPPER.DLL"},
      {"exact.dll", "lib/EXACT.DLL"}};  // the first directory decides
  for (const auto& [recorded, found] : cases) {
    read(record(recorded, "input", "F"));
    ASSERT_EQ(inputs->count(), 1U) << recorded;
    EXPECT_EQ(inputs->translator_for_format("F")->file_ut(), dir / found);
  }
}

TEST_F(CacheTest, NamesAreDecodedByTheApplicationAndTheRestByTheReader) {
  const apAsciiEncoding ascii;
  dir.write("lib/\xC3\xB6.dll", "");
  const velabsAppInfo latin("test", "1", "test", "nobody", "ISO-8859-1");
  app_info = &latin;
  EXPECT_EQ(read(record("\xF6", "input", "X")), 1);
  EXPECT_EQ(read(record("\xC3\xB6", "input", "X")), 0);
  encoding = &ascii;
  EXPECT_EQ(read(record("\xF6", "input", "X")), 1);
  EXPECT_EQ(read(record("step", "input", "\xF6")), 0) << "the format name";
  std::string other_extension = record("step", "input", "X");
  other_extension.replace(other_extension.find("stp"), 3, "st\xF6");
  EXPECT_EQ(read(other_extension), 0);
}

TEST_F(CacheTest, OfALineNoMoreThan1023CharactersCount) {
  const std::string after = record("step.dll", "input", "after");
  const std::string start = "{\"step\",\"input\",\"A\",{},{},\"\",\"";
  const struct {
    std::size_t closing_brace, length;  // of the long line
    std::size_t records;
    bool intact;
  } cases[] = {{1023, 1023, 2, true},   // whole
               {1023, 1024, 1, false},  // closed within the limit; then reading ends
               {1023, 5000, 1, false},
               {1024, 1024, 0, false}};
  for (const auto& c : cases) {
    std::string line = start + std::string(c.closing_brace - start.size() - 2, 'x') + "\"}";
    line.resize(c.length, ' ');
    EXPECT_EQ(read(line + "\n" + after), c.records > 0 ? 1 : 0) << c.closing_brace << ' ' << c.length;
    EXPECT_EQ(inputs->count(), c.records);
    EXPECT_EQ(intact, c.intact);
    EXPECT_EQ(read_to_end, c.intact);
  }
}

TEST_F(CacheTest, AFileOfMoreThan64MebibytesIsNotRead) {
  const std::string file = dir.write("large.lst", record("step.dll", "input", "A"));
  const std::uintmax_t limit = std::uintmax_t{64} << 20;
  for (const std::uintmax_t size : {limit, limit + 1}) {
    std::filesystem::resize_file(file, size);
    EXPECT_EQ(read_file(file), size == limit ? 1 : 0);
    EXPECT_FALSE(intact);
  }
}

TEST_F(CacheTest, DamageIsToldFromEmptyAndStale) {
  const std::pair<std::string, bool> cases[] = {
      {"", true}, {record("gone.dll", "input", "X"), true}, {"rubbish\n", false}};
  for (const auto& [content, is_intact] : cases) {
    EXPECT_EQ(read(content), 0);
    EXPECT_EQ(intact, is_intact) << content;
  }
  EXPECT_EQ(read_file(dir / "lib"), 0);
  EXPECT_FALSE(intact);
}

TEST(CacheFields, AreTakenFromTheFront) {
  using Reader = vlnTranslatorCacheReader;
  utString text = "a{b{c}} , \"v\",\"\" , -12,{} {\"a\", \"b\"}5", value;
  utStringcoDList list;
  int number = 0;
  EXPECT_EQ(Reader::extract_set_string(text), "b{c}");
  EXPECT_TRUE(Reader::extract_string(text, value) && value == "v");
  EXPECT_TRUE(Reader::extract_string(text, value) && value == "" && !value.is_null());
  EXPECT_TRUE(Reader::extract_int(text, number) && number == -12 && text == ",{} {\"a\", \"b\"}5");
  EXPECT_TRUE(Reader::extract_list(text, list) && list.count() == 0);
  EXPECT_TRUE(Reader::extract_list(text, list) && list.count() == 2);
  EXPECT_TRUE(Reader::extract_int(text, number) && number == 5 && text == "");

  text = "{\"a\" b}";
  EXPECT_FALSE(Reader::extract_list(text, list));
  for (const char* none : {"", "{", "{a", "}{a}", "\"", "\"open", "bare", "x}", ",", "99999999999", "12x", "1 2"}) {
    text = none;
    EXPECT_TRUE(Reader::extract_set_string(text).is_null()) << none;
    EXPECT_FALSE(Reader::extract_string(text, value)) << none;
    EXPECT_TRUE(value.is_null());
    EXPECT_EQ(text, none);
    EXPECT_FALSE(Reader::extract_int(text, number)) << none;
  }
}

TEST_F(CacheTest, WritesEachRecordWholeOrNotAtAll) {
  auto plain = registry.info("STEP", vlnTRANSLATOR_INPUT, "/l/stepreader.dll");
  plain->add_file_type(vluSTEP);
  plain->add_extension(L"stp");
  plain->add_extension(L"step");
  plain->set_filter("STEP files (*.stp;*.step)|*.stp;*.step");
  plain->set_translator_category(velabsTranslatorCategory::find("Exchange"));
  plain->set_further("more", -1);
  inputs->add_translator(std::move(plain));
  for (const std::string& unwritable :
       {std::string("quote\""), std::string("brace}"), std::string("brace{"), std::string("braces}{"),
        std::string("line\nfeed"), std::string("carriage\rreturn"), std::string("null\0", 5), std::string(1019, 'x'),
        std::string("not ASCII: \xC3\xB6")}) {
    inputs->add_translator(registry.info(unwritable, vlnTRANSLATOR_INPUT));
  }
  auto unnamed_type = registry.info("F", vlnTRANSLATOR_INPUT);
  unnamed_type->add_file_type(static_cast<vluFileType>(9999));
  inputs->add_translator(std::move(unnamed_type));
  const std::string long_name(1018, 'x');
  for (const std::string& name : {long_name, std::string("odd")}) {
    outputs->add_translator(registry.info(name, static_cast<vlnTranslatorType>(2), "/l/odd.dll"));
  }

  const apAsciiEncoding ascii;
  const std::string file = dir / "translators.lst";
  { const vlnTranslatorCacheWriter writer(file, *inputs, *outputs, &ascii, written, status); }
  EXPECT_EQ(written, 3);
  EXPECT_TRUE(status.types().contains(vlnLOAD_ENCODING_FAILED));
  std::string expected =
      "{\n  \"stepreader.dll\",\n  \"input\",\n  \"STEP\",\n  {\"STEP\"},\n  {\"stp\",\"step\"},\n"
      "  \"STEP files (*.stp;*.step)|*.stp;*.step\",\n  \"Exchange\",\n  \"more\",\n  -1\n}\n";
  // Without a direction, a file type and an extension.
  for (const std::string& name : {long_name, std::string("odd")}) {
    expected += "{\n  \"odd.dll\",\n  \"" + name + "\",\n  {},\n  {},\n  \"\",\n  \"\",\n  \"\",\n  0\n}\n";
  }
  EXPECT_EQ(TemporaryDirectory::read(file), expected);
}

TEST_F(CacheTest, AnEmptyRegistryMakesAnEmptyFileAndAFullDiskIsTold) {
  const std::string file = dir.write("translators.lst", "old");
  { const vlnTranslatorCacheWriter writer(file, *inputs, *outputs, registry.encoding, written, status); }
  EXPECT_EQ(TemporaryDirectory::read(file), "");
  EXPECT_TRUE(status.ok());

  inputs->add_translator(registry.info("A", vlnTRANSLATOR_INPUT));
  for (const std::string& unwritable :
       {std::string("/dev/full"), std::string("/dev/null"), dir.make_pipe("pipe"), dir / "lib", dir / "missing/file"}) {
    vlnTranslatorLoadStatus failed(vlnLOAD_OK);
    const vlnTranslatorCacheWriter writer(unwritable, *inputs, *outputs, registry.encoding, written, failed);
    EXPECT_EQ(written, 0);
    EXPECT_TRUE(failed.types().contains(vlnLOAD_CACHE_UNWRITABLE)) << unwritable;
  }

  // A file that may not grow fails as a full disk does.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit full{10, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &full);
  { const vlnTranslatorCacheWriter writer(file, *inputs, *outputs, registry.encoding, written, status); }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(written, 0);
  EXPECT_TRUE(status.types().contains(vlnLOAD_CACHE_UNWRITABLE));
}

TEST_F(CacheTest, RecordsAreWrittenFromTheLibrariesAndReadBackTheSame) {
  auto cached = registry.unloaded(copy_fixture("good_input", dir.path() / "lib"));
  cached->set_format_name(registry.format("old"));
  inputs->add_translator(std::move(cached));
  inputs->add_translator(registry.unloaded(dir / "gone.dll"));
  const std::string file = dir / "translators.lst";
  vlnTranslatorCacheWriter writer(file, *inputs, *outputs, nullptr, written, status);
  EXPECT_EQ(written, 1) << "a library that cannot be opened has no record";
  EXPECT_EQ(status.types(), (std::set{vlnLOAD_OK, vlnLOAD_FILE_FAILED}));
  EXPECT_TRUE(writer.write_next_dll(nullptr).invalid());
  const std::string once = TemporaryDirectory::read(file);
  EXPECT_EQ(writer.make_cache_file(status), 1);
  EXPECT_EQ(TemporaryDirectory::read(file), once + once) << "a further pass doubles the records";

  read(once);
  ASSERT_EQ(registry.formats(*inputs), std::vector<std::string>{"A / B X"});
  const vlnTranslatorInfo* info = inputs->translator_for_format("a / b x");
  EXPECT_EQ(info->further_text(), "kept");
  EXPECT_EQ(info->filter_string(), "Fixture Files (*.fix)|*.fix");
  EXPECT_EQ(info->change_extension(apPathName(L"x")), apPathName(L"x.fix")) << "the default extension stays first";
}
