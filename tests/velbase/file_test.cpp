#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "TemporaryDirectory.h"
#include "apFrustrumChooser.h"
#include "apStringEncodingChooser.h"
#include "vlnFileFactory.h"

namespace fs = std::filesystem;

namespace {

// File operations that take every relative path from one directory.
class Rooted : public apIFileOperations {
 public:
  bool file_exists(const apPathName&) const override { return false; }
  bool directory_exists(const apPathName&) const override { return false; }
  bool delete_file(const apPathName&) const override { return false; }
  bool create_directory(const apPathName&) const override { return false; }
  apPathName full_path(const apPathName& path) const override { return apPathName(L"/root").combine(path); }
};

const vlnFileFactory factory(nullptr, nullptr);

}  // namespace

TEST(File, APathIsTakenApart) {
  struct Case {
    const char *path, *directory, *name, *extension;
  } cases[] = {
      {"/d/part.stl", "/d", "part", "stl"}, {"/d/part", "/d", "part", ""}, {"/d/a.tar.gz", "/d", "a.tar", "gz"},
      {"/d/.hidden", "/d", "", "hidden"},   {"/d/dot.", "/d", "dot", ""},  {"/x", "/", "x", ""},
      {"/d.e/x", "/d.e", "x", ""},          {"/a/../b.c", "/", "b", "c"},  {"/d/b\xff.stl", "/d", "b\xff", "stl"}};
  for (const auto& c : cases) {
    const vlnFile file = factory.file(c.path);
    EXPECT_EQ(file.get_path_element(vlnFileDirectory), c.directory) << c.path;
    EXPECT_EQ(file.get_path_element(vlnFileName), c.name) << c.path;
    EXPECT_EQ(file.get_path_element(vlnFileExtension), c.extension) << c.path;
  }
  const vlnFile file = factory.file("x");
  EXPECT_EQ(file.full_path(), utString((fs::current_path() / "x").string()));
  const utString& none = file.get_path_element(static_cast<vlnFilePathElement>(0));
  EXPECT_EQ(none, "");
  EXPECT_EQ(&none, &factory.file("/y").get_path_element(static_cast<vlnFilePathElement>(7)));
}

TEST(File, EqualityIgnoresCaseAndWhatIsThere) {
  const vlnFile file = factory.file("/D/Part.STL");
  EXPECT_TRUE(file == factory.file("/d/part.stl"));
  EXPECT_TRUE(file == factory.file("/d/x/../part.stl"));
  for (const char* other : {"/e/part.stl", "/d/parts.stl", "/d/part.obj", "/d/part"}) {
    EXPECT_TRUE(file != factory.file(other)) << other;
  }
}

TEST(File, CreatingAppendsOrTruncatesAndSaysWhatIsThere) {
  const TemporaryDirectory directory;
  const std::string path = directory / "new.txt";
  const vlnFile file = factory.file(path);
  EXPECT_EQ(file.file_type(), vlnFileTypeNone);
  EXPECT_EQ(file.create_file(vlnFileCreateAppend), 1);
  EXPECT_EQ(file.file_type(), vlnFileTypeFile);

  directory.write("new.txt", "content");
  EXPECT_EQ(file.create_file(static_cast<vlnFileCreateMode>(9)), 1);
  EXPECT_EQ(directory.read(path), "content");
  EXPECT_EQ(file.create_file(vlnFileCreateTruncate), 1);
  EXPECT_EQ(directory.read(path), "");

  fs::create_directory(directory / "d");
  directory.make_pipe("pipe");
  for (const char* name : {"d", "pipe"}) {
    const vlnFile other = factory.file(directory / name);
    EXPECT_EQ(other.file_type(), vlnFileTypeOther);
    EXPECT_EQ(other.create_file(vlnFileCreateAppend), 0);
  }
  EXPECT_EQ(factory.file(directory / "no/such").create_file(vlnFileCreateTruncate), 0);
  EXPECT_EQ(factory.file("").create_file(vlnFileCreateTruncate), 0);
  EXPECT_EQ(vlnFile::file_type("/dev/null"), vlnFileTypeFile);
}

TEST(File, AFactoryUsesWhatItWasGiven) {
  const Rooted operations;
  const vlnVlnFileFactory base(apStringEncodingChooser().named("ISO-8859-1"), &operations);
  const vlnFile file = base.create("d/\xe9.x");
  EXPECT_EQ(file.full_path(), "/root/d/\xe9.x");
  EXPECT_EQ(file.get_path_element(vlnFileName), "\xe9");
  utString directory, name, extension("old");
  file.get_path_elements("/d/bare", directory, name, extension);
  EXPECT_EQ(directory.str() + " " + name.str() + " " + extension.str(), "/d bare ");
  EXPECT_EQ(vlnFile::backslashify("a/b\\c//"), "a\\b\\c\\\\");
}

TEST(File, BothStringTypesNameOneFileInEveryEncoding) {
  const TemporaryDirectory directory;
  const apIFileOperations* operations = apFrustrumChooser().file_operations();
  const fs::path here = fs::current_path();
  for (const char* name : {"UTF-8", "ISO-8859-1", "ASCII"}) {
    const apIStringEncoding* encoding = apStringEncodingChooser().named(name);
    // Directories of either encoding are bytes for both.
    for (const char* letter : {"\xc3\xa9", "\xe9", "e"}) {
      fs::create_directories(directory.path() / letter);
      fs::current_path(directory.path() / letter);
      const vlnFile file(name, encoding, operations);
      if (std::string_view(name) == "ASCII" && *letter != 'e') {
        EXPECT_EQ(file.full_path(), "") << "it has no text in ASCII";
        continue;
      }
      const std::string path = directory / (std::string(letter) + "/" + name);
      EXPECT_EQ(file.full_path(), path);
      EXPECT_EQ(file.create_file(vlnFileCreateAppend), 1);
      EXPECT_TRUE(fs::is_regular_file(path));
      EXPECT_TRUE(operations->file_exists(apPathName(encoding->to_apString(path), encoding)));
    }
  }
  fs::current_path(here);
}

TEST(File, WithoutPoliciesThePathIsEmpty) {
  const vlnFile file = vlnVlnFileFactory(nullptr, nullptr).create("/x.y");
  EXPECT_EQ(file.full_path(), "");
  EXPECT_EQ(file.get_path_element(vlnFileExtension), "");
  EXPECT_EQ(file.create_file(vlnFileCreateAppend), 0);
}
