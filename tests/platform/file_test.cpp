#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TemporaryDirectory.h"
#include "apAssertionReporter.h"
#include "apEnvironmentVariables.h"
#include "apFileFinderEx.h"
#include "apFrustrumChooser.h"
#include "apMappedFile.h"
#include "apStringEncodingChooser.h"
#include "vluFileHelpers.h"

static apPathName path_of(const std::string& name) {
  return apPathName(apString(name.c_str()));
}

TEST(FileFinder, ListsSortedByBytesWithDirectoriesToldThroughLinks) {
  TemporaryDirectory directory;
  for (const char* name : {"b.stl", "B.stl", "a", "\xFF.bad", ".hidden"}) directory.write(name, "");
  std::filesystem::create_directory(directory / "sub");
  std::filesystem::create_directory_symlink("sub", directory / "to_sub");
  std::filesystem::create_symlink("nowhere", directory / "to_nothing");

  std::vector<std::string> found;
  apFileFinderEx finder{apPath(path_of(directory.path()))};
  EXPECT_FALSE(finder.invalid());
  while (++finder) {
    found.push_back(apStringEncodingChooser().ut_encoding()->to_utString(finder.file_name().string()).str());
    if (finder.is_directory()) found.back() += "/";
  }
  EXPECT_EQ(found,
            (std::vector<std::string>{".hidden", "B.stl", "a", "b.stl", "sub/", "to_nothing", "to_sub/", "\xFF.bad"}));
  EXPECT_EQ(++finder, 0);
  EXPECT_TRUE(apFileFinderEx(apPath(path_of(directory / "a"))).invalid());
  EXPECT_TRUE(apFileFinderEx(apPath(apPathName())).invalid());
}

TEST(FileOperations, TellFilesFromDirectories) {
  TemporaryDirectory directory;
  const auto* operations = apFrustrumChooser().file_operations();
  const apPathName file = path_of(directory.write("f", "x")), made = path_of(directory.path());
  EXPECT_FALSE(operations->create_directory(made) || operations->create_directory(path_of(directory / "no/d")));
  EXPECT_TRUE(operations->directory_exists(made) && !operations->file_exists(made));
  EXPECT_TRUE(operations->file_exists(file) && !operations->directory_exists(file));
  EXPECT_FALSE(operations->file_exists(apPathName(std::wstring(L"/dev/null\0x", 11))));
}

TEST(FileHelpers, CopiesAreWholeAndKeepLinksAndModes) {
  TemporaryDirectory directory;
  const std::string from = directory.write("from", "content");
  const std::string to = directory.write("to", "old and longer content");
  chmod(from.c_str(), 0640);
  std::filesystem::create_symlink("to", directory / "link");
  EXPECT_EQ(vlu_copy_file(from, directory / "link"), vluFILE_DONE);
  EXPECT_TRUE(std::filesystem::is_symlink(directory / "link"));
  EXPECT_EQ(TemporaryDirectory::read(to), "content");
  struct stat status;
  stat(to.c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0640u);

  std::filesystem::create_hard_link(from, directory / "same");
  EXPECT_EQ(vlu_copy_file(from, directory / "same"), vluFILE_DONE);
  EXPECT_EQ(TemporaryDirectory::read(from), "content");
  EXPECT_EQ(vlu_copy_file(directory / "missing", to), vluFILE_NOT_COPIED);
  EXPECT_EQ(vlu_copy_file(from, directory.path().string()), vluFILE_NOT_COPIED);
  EXPECT_EQ(vlu_copy_file(from, "/dev/null"), vluFILE_NOT_COPIED);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.path()), {}), 4);
}

TEST(FileHelpers, ResultsTellWhatIsThere) {
  TemporaryDirectory directory;
  const std::string made = directory / "d";
  EXPECT_EQ(vlu_make_directory(made), vluFILE_MADE);
  EXPECT_EQ(vlu_make_directory(made), vluFILE_IS_DIRECTORY);
  const std::string file = directory.write("f", "");
  EXPECT_EQ(vlu_make_directory(file), vluFILE_NOT_MADE);
  EXPECT_EQ(vlu_check_directory_exists(file), vluFILE_IS_NO_FILE);
  EXPECT_EQ(vlu_check_file_exists(file), vluFILE_IS_FILE);
  EXPECT_EQ(vlu_check_file_exists(made), vluFILE_IS_NO_FILE);
  EXPECT_EQ(vlu_remove_file(made), vluFILE_NOT_REMOVED);
  EXPECT_EQ(vlu_remove_file(file), vluFILE_DONE);
  EXPECT_EQ(vlu_remove_file(file), vluFILE_NOT_FOUND);
}

TEST(FileHelpers, TemporaryNamesAreAbsoluteAndNeverTheSame) {
  const utString name = vlu_make_temp_file_name("x/y");
  EXPECT_TRUE(name[0] == '/' && name.find("/y") != utString::npos && !(name == vlu_make_temp_file_name("x/y")));
  EXPECT_EQ(vlu_check_file_exists(name), vluFILE_NOT_FOUND);
}

TEST(MappedFile, OnlyRegularFilesAndNeverBlocking) {
  TemporaryDirectory directory;
  const std::string pipe = directory.make_pipe("pipe");
  for (const std::string& bad : {pipe, directory.path().string(), directory / "missing", std::string("/dev/zero")}) {
    apStatus status;
    EXPECT_EQ(apMappedFile::open(bad, status), nullptr) << bad;
    EXPECT_FALSE(status.failure().empty());
  }
  apStatus status;
  EXPECT_EQ(apMappedFile::open(directory.write("empty", ""), status)->bytes(), "");
  const std::string big(std::size_t{20} << 20, 'x');
  const auto file = apMappedFile::open(directory.write("big", big), status);
  file->release_front(std::size_t{17} << 20);
  file->release_front(std::size_t{1} << 40);
  EXPECT_TRUE(status.ok());
  EXPECT_EQ(file->bytes(), big);
}

TEST(Environment, RefusesNamesThatAreNone) {
  apEnvironmentVariables variables;
  for (const wchar_t* bad : {L"", L"A=B"}) EXPECT_EQ(variables.put(bad, L"x"), 0);
  EXPECT_EQ(variables.put(L"VEL_TEST_VARIABLE", L"\u00E9"), 1);
  EXPECT_EQ(variables.get(L"VEL_TEST_VARIABLE").text(), L"\u00E9");
  for (const wchar_t* none : {L"VEL_TEST_NO_SUCH_VARIABLE", L""}) EXPECT_TRUE(variables.get(none).invalid());
}

TEST(AssertionReporter, ASinkMayThrowOrReportItself) {
  int reports = 0;
  apAssertionReporter::set_sink([&](const apAssertion& assertion) {
    if (++reports == 1) apAssertionReporter::report("inner", 2, "m", "f", nullptr);
    if (assertion.line == 3) throw 1;
  });
  apAssertionReporter::report("outer", 1, "m", "f", "c");
  apAssertionReporter::report(nullptr, 3, nullptr, nullptr, nullptr);
  EXPECT_EQ(reports, 3);
  EXPECT_TRUE(apAssertionReporter::set_sink({}));
}
