#include <gtest/gtest.h>

#include "apFrustrumChooser.h"
#include "apPathName.h"
#include "apSplitPath.h"

namespace {

std::wstring combined(const wchar_t* left, const wchar_t* right) {
  return apPathName(left).combine(apPathName(right)).string().text();
}

}  // namespace

TEST(Paths, ComeApartAtTheLastSeparator) {
  struct Case {
    const wchar_t *path, *directory, *name;
  } cases[] = {
      {L"/a/b", L"/a", L"b"}, {L"/f", L"/", L"f"},       {L"f", L"", L"f"}, {L"d/", L"d", L""},
      {L"a\\b", L"a", L"b"},  {L"a/b\\c", L"a/b", L"c"}, {L"/", L"/", L""}, {L"", L"", L""},
  };
  for (const Case& c : cases) {
    const apPathName path(c.path);
    EXPECT_EQ(path.dirname().string().text(), c.directory) << c.path;
    EXPECT_EQ(path.basename().string().text(), c.name) << c.path;
  }
  EXPECT_TRUE(apPathName(L"f").dirname().invalid());
}

TEST(Paths, JoinWithOneSeparator) {
  EXPECT_EQ(combined(L"a", L"b"), L"a/b");
  EXPECT_EQ(combined(L"a/", L"/b"), L"a/b");
  EXPECT_EQ(combined(L"a\\", L"b/c"), L"a/b/c");
  EXPECT_EQ(combined(L"/", L"b"), L"/b");
  EXPECT_EQ(combined(L"a//", L"//b"), L"a/b");
  EXPECT_EQ(combined(L"a/", L""), L"a/");
  EXPECT_EQ(combined(L"", L"/b"), L"/b");
  EXPECT_EQ(apPathName::adjoin(apPathName(L"/r"), apFileName(L"sys")).string().text(), L"/r/sys");
}

TEST(FileNames, TheExtensionBeginsAtTheLastDot) {
  struct Case {
    const wchar_t* name;
    bool has;
    const wchar_t *extension, *without;
  } cases[] = {
      {L"a.stl", true, L"stl", L"a"}, {L".x", true, L"x", L""}, {L"x.", true, L"", L"x"},
      {L"a.b.c", true, L"c", L"a.b"}, {L"a", false, L"", L"a"},
  };
  for (const Case& c : cases) {
    const apFileName name(c.name);
    EXPECT_EQ(name.has_extension(), c.has) << c.name;
    EXPECT_EQ(name.extension().text(), c.extension) << c.name;
    EXPECT_EQ(name.without_extension().text(), c.without) << c.name;
  }
}

TEST(FileNames, AddAndReplaceExtensions) {
  EXPECT_EQ(apFileName(L"a").add_extension(L"dll").string().text(), L"a.dll");
  EXPECT_EQ(apFileName(L"a.DLL").add_extension(L"dll").string().text(), L"a.DLL");
  EXPECT_EQ(apFileName(L"dll").add_extension(L"dll").string().text(), L"dll.dll");
  EXPECT_EQ(apFileName(L"a.tar.gz").add_extension(L"tar.gz").string().text(), L"a.tar.gz");
  EXPECT_EQ(apFileName(L"a.stl").replace_extension(L"obj").string().text(), L"a.obj");
  EXPECT_TRUE(apFileName(L"A.Stl") == apFileName(L"a.sTL"));
  EXPECT_FALSE(apFileName(L"a") == apFileName(L"ab"));
}

TEST(SplitPath, ThePartsJoinedAreTheTextAgain) {
  struct Case {
    const wchar_t *path, *drive, *directory, *name, *extension;
  } cases[] = {
      {L"/opt/sys/exec/vel", L"", L"/opt/sys/exec/", L"vel", L""},
      {L"C:\\a\\b.c", L"C:", L"\\a\\", L"b", L".c"},
      {L"b.tar.gz", L"", L"", L"b.tar", L".gz"},
      {L"d.x/b", L"", L"d.x/", L"b", L""},
      {L"/a/.x", L"", L"/a/", L"", L".x"},
      {L"1:x", L"", L"", L"1:x", L""},
      {L"", L"", L"", L"", L""},
  };
  for (const Case& c : cases) {
    const apSplitPath parts{apPathName(c.path)};
    EXPECT_EQ(parts.drive().text(), c.drive) << c.path;
    EXPECT_EQ(parts.directory().text(), c.directory) << c.path;
    EXPECT_EQ(parts.name().text(), c.name) << c.path;
    EXPECT_EQ(parts.extension().text(), c.extension) << c.path;
  }
}

TEST(FileOperations, FullPathsNeedNoFiles) {
  const auto* operations = apFrustrumChooser().file_operations();
  auto full = [&](const wchar_t* path) { return operations->full_path(apPathName(path)).string().text(); };
  EXPECT_EQ(full(L"/no/such/../place/./x/"), L"/no/place/x");
  EXPECT_EQ(full(L"/../../a//b"), L"/a/b");
  EXPECT_EQ(full(L"/"), L"/");
  EXPECT_EQ(full(L"."), full(L"x/.."));
  EXPECT_TRUE(operations->full_path(apPathName()).invalid());
}
