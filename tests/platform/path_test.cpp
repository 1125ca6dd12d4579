#include <gtest/gtest.h>

#include "apFrustrumChooser.h"
#include "apPathName.h"
#include "apSplitPath.h"

TEST(Paths, ComeApartAtTheLastSeparator) {
  struct Case {
    const wchar_t *path, *directory, *name;
  } cases[] = {{L"/a/b", L"/a", L"b"}, {L"/f", L"/", L"f"},       {L"f", L"", L"f"}, {L"d/", L"d", L""},
               {L"a\\b", L"a", L"b"},  {L"a/b\\c", L"a/b", L"c"}, {L"/", L"/", L""}, {L"", L"", L""}};
  for (const Case& c : cases) {
    const apPathName path(c.path);
    EXPECT_EQ(path.dirname().string().text(), c.directory) << c.path;
    EXPECT_EQ(path.basename().string().text(), c.name) << c.path;
  }
  EXPECT_TRUE(apPathName(L"f").dirname().invalid());
}

TEST(Paths, JoinWithOneSeparator) {
  const wchar_t* const cases[][3] = {{L"a", L"b", L"a/b"}, {L"a/", L"/b", L"a/b"},   {L"a\\", L"b/c", L"a/b/c"},
                                     {L"/", L"b", L"/b"},  {L"a//", L"//b", L"a/b"}, {L"a/", L"", L"a/"},
                                     {L"", L"/b", L"/b"}};
  for (const auto& [left, right, joined] : cases) {
    EXPECT_EQ(apPathName(left).combine(apPathName(right)).string().text(), joined);
  }
  EXPECT_EQ(apPathName::adjoin(apPathName(L"/r"), apFileName(L"sys")).string().text(), L"/r/sys");
}

TEST(FileNames, TheExtensionBeginsAtTheLastDot) {
  struct Case {
    const wchar_t* name;
    bool has;
    const wchar_t *extension, *without;
  } cases[] = {{L"a.stl", true, L"stl", L"a"},
               {L".x", true, L"x", L""},
               {L"x.", true, L"", L"x"},
               {L"a.b.c", true, L"c", L"a.b"},
               {L"a", false, L"", L"a"}};
  for (const Case& c : cases) {
    const apFileName name(c.name);
    EXPECT_EQ(name.has_extension(), c.has) << c.name;
    EXPECT_EQ(name.extension().text(), c.extension) << c.name;
    EXPECT_EQ(name.without_extension().text(), c.without) << c.name;
  }
}

TEST(FileNames, AddAndReplaceExtensions) {
  const wchar_t* const cases[][3] = {{L"a", L"dll", L"a.dll"},
                                     {L"a.DLL", L"dll", L"a.DLL"},
                                     {L"dll", L"dll", L"dll.dll"},
                                     {L"a.tar.gz", L"tar.gz", L"a.tar.gz"}};
  for (const auto& [name, extension, whole] : cases) {
    EXPECT_EQ(apFileName(name).add_extension(extension).string().text(), whole);
  }
  EXPECT_EQ(apFileName(L"a.stl").replace_extension(L"obj").string().text(), L"a.obj");
  EXPECT_TRUE(apFileName(L"A.Stl") == apFileName(L"a.sTL") && !(apFileName(L"a") == apFileName(L"ab")));
}

TEST(SplitPath, ThePartsJoinedAreTheTextAgain) {
  struct Case {
    const wchar_t *path, *drive, *directory, *name, *extension;
  } cases[] = {{L"/opt/sys/exec/vel", L"", L"/opt/sys/exec/", L"vel", L""},
               {L"C:\\a\\b.c", L"C:", L"\\a\\", L"b", L".c"},
               {L"b.tar.gz", L"", L"", L"b.tar", L".gz"},
               {L"d.x/b", L"", L"d.x/", L"b", L""},
               {L"/a/.x", L"", L"/a/", L"", L".x"},
               {L"1:x", L"", L"", L"1:x", L""},
               {L"", L"", L"", L"", L""}};
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
