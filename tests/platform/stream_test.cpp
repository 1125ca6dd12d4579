#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>

#include "TemporaryDirectory.h"
#include "velabsAppInfo.h"
#include "velabsOfStream.h"

namespace fs = std::filesystem;

namespace {

std::size_t entries(const TemporaryDirectory& directory) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(directory.path()), {}));
}

mode_t mode_of(const std::string& path) {
  struct stat status {};
  stat(path.c_str(), &status);
  return status.st_mode & 07777;
}

}  // namespace

TEST(OfStream, EveryByteArrivesOnceItIsCommittedWhateverThePieces) {
  TemporaryDirectory directory;
  const std::string target = directory.write("out", "old");
  std::string expected;
  {
    velabsOfStream dropped(target);
    dropped.write(std::string(3 * velabsOfStream::buffer_size, 'x'));
    dropped.companion("mtl").write("never seen");
  }
  velabsOfStream stream(target);
  for (std::size_t size : {std::size_t{1}, velabsOfStream::buffer_size, std::size_t{7}, velabsOfStream::buffer_size - 7,
                           velabsOfStream::buffer_size - 1, std::size_t{0}, 3 * velabsOfStream::buffer_size}) {
    const std::string piece(size, static_cast<char>('a' + expected.size() % 26));
    stream.write(piece);
    std::memcpy(stream.reserve(5), "12345", 5);
    stream.advance(3);
    expected += piece + "123";
  }
  EXPECT_EQ(TemporaryDirectory::read(target), "old");
  EXPECT_TRUE(stream.commit());
  EXPECT_TRUE(stream.commit());
  EXPECT_EQ(TemporaryDirectory::read(target), expected);
  EXPECT_EQ(entries(directory), 1u);
}

TEST(OfStream, ModesFollowTheOldFileElseTheMask) {
  TemporaryDirectory directory;
  const std::string old = directory.write("old", "x");
  chmod(old.c_str(), 0751);
  const mode_t mask = umask(027);
  for (const std::string& target : {old, directory / "new"}) {
    velabsOfStream stream(target);
    EXPECT_TRUE(stream.commit());  // nothing written: an empty file
  }
  umask(mask);
  EXPECT_EQ(mode_of(old), 0751u);
  EXPECT_EQ(mode_of(directory / "new"), 0640u);
  EXPECT_EQ(TemporaryDirectory::read(old), "");
}

TEST(OfStream, LinksStayLinks) {
  TemporaryDirectory directory;
  directory.write("sub/target", "old");
  for (const char* name : {"target", "new"}) {
    const std::string link = directory / (std::string("to_") + name), target = std::string("sub/") + name;
    fs::create_symlink(target, link);
    velabsOfStream stream(link);
    stream.write(name);
    EXPECT_TRUE(stream.commit());
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(TemporaryDirectory::read(directory / target), name);
  }
}

TEST(OfStream, WhatLeadsToADescriptorIsWrittenWhereItStands) {
  TemporaryDirectory directory;
  const int file = open((directory / "log").c_str(), O_WRONLY | O_CREAT, 0600);
  ASSERT_EQ(write(file, "before ", 7), 7);
  velabsOfStream stream("/dev/fd/" + std::to_string(file));
  stream.write("new");
  EXPECT_FALSE(stream.has_room_beside());
  EXPECT_TRUE(stream.commit());
  ASSERT_EQ(write(file, " behind", 7), 7);
  close(file);
  EXPECT_EQ(TemporaryDirectory::read(directory / "log"), "before new behind");
}

TEST(OfStream, FailuresAreToldOnceAndForAll) {
  TemporaryDirectory directory;
  const std::string pipe = directory.make_pipe("pipe");
  fs::create_symlink("circle", directory / "circle");
  const std::pair<std::string, const char*> cases[] = {{"/dev/full", "No space left on device"},
                                                       {directory / "circle", "Too many levels of symbolic links"},
                                                       {directory.path().string(), "Is a directory"},
                                                       {directory / "missing/out", "No such file or directory"},
                                                       {directory / "missing/", "Is a directory"},
                                                       {pipe, "nobody reads from it"},
                                                       {"", "No such file or directory"}};
  for (const auto& [target, failure] : cases) {
    velabsOfStream stream(target);
    for (int i = 0; i < 3; ++i) {
      stream.write(std::string(velabsOfStream::buffer_size, 'x'));
      std::memset(stream.reserve(100), 'y', 100);
      stream.advance(100);
    }
    EXPECT_FALSE(stream.good()) << target;
    EXPECT_FALSE(stream.commit()) << target;
    EXPECT_EQ(stream.failure(), failure) << target;
  }
  EXPECT_TRUE(fs::is_symlink(directory / "circle"));
}

TEST(OfStream, LinksOfOthersWhereEverybodyMayWriteAreNotFollowed) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a link to another user";
  TemporaryDirectory directory;
  const std::string link = directory / "link", target = directory.write("target", "old");
  fs::create_symlink(target, link);
  chmod(directory.path().c_str(), 01777);
  for (const uid_t owner : {uid_t{65534}, uid_t{0}}) {
    ASSERT_EQ(lchown(link.c_str(), owner, owner), 0);
    velabsOfStream stream(link);
    stream.write("new");
    EXPECT_EQ(stream.commit(), owner == 0);
    EXPECT_EQ(TemporaryDirectory::read(target), owner == 0 ? "new" : "old");
  }
}

TEST(OfStream, AFileBeyondTheLimitOfSizesIsAFailureAndNoSignal) {
  TemporaryDirectory directory;
  const std::string target = directory.write("target", "old");
  rlimit before;
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{velabsOfStream::buffer_size, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  velabsOfStream stream(target);
  for (int i = 0; i < 3; ++i) stream.write(std::string(velabsOfStream::buffer_size, 'x'));
  EXPECT_FALSE(stream.commit());
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(stream.failure(), "File too large");
  EXPECT_EQ(TemporaryDirectory::read(target), "old");
}

TEST(OfStream, APipeWhoseReaderGoesIsAFailureAndNoSignal) {
  TemporaryDirectory directory;
  const std::string pipe = directory.make_pipe("pipe");
  const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
  velabsOfStream stream(pipe);
  stream.companion("mtl").write("lost");
  stream.write("begun");
  close(reader);
  EXPECT_FALSE(stream.commit());
  EXPECT_EQ(stream.failure(), "Broken pipe");
  EXPECT_EQ(entries(directory), 1u);
}

TEST(OfStream, CompanionsComeWithTheFileOrNotAtAll) {
  TemporaryDirectory directory;
  const std::string target = directory.write("a.b/out.obj", "old");
  {
    velabsOfStream stream(target);
    stream.companion("mtl").write("half ");
    stream.companion("mtl").write("whole");
    stream.write("new");
    EXPECT_TRUE(stream.commit());
  }
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.b/out.mtl"), "half whole");
  EXPECT_EQ(TemporaryDirectory::read(target), "new");

  // The file itself cannot be put in place: the companions, old and new, are as they were.
  velabsOfStream stream(directory / "a.b/other.obj");
  directory.write("a.b/other.mtl", "old companion");
  stream.companion("mtl").write("lost");
  stream.companion("bin").write("lost");
  stream.write("lost");
  fs::create_directory(directory / "a.b/other.obj");
  EXPECT_FALSE(stream.commit());
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.b/other.mtl"), "old companion");
  EXPECT_EQ(std::distance(fs::directory_iterator(directory / "a.b"), {}), 4);

  // The companion of a file that is not there is somebody else's.
  velabsOfStream fresh(directory / "a.b/fresh.obj");
  directory.write("a.b/fresh.mtl", "of another");
  fresh.companion("mtl").write("own");
  EXPECT_TRUE(fresh.commit());
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.b/fresh.mtl"), "of another");
  EXPECT_EQ(TemporaryDirectory::read(directory / "a.b/fresh_1.mtl"), "own");

  velabsOfStream clash(target);
  clash.companion("obj").write("lost");
  clash.write("lost");
  EXPECT_FALSE(clash.commit());
  EXPECT_EQ(TemporaryDirectory::read(target), "new");
}

TEST(OfStream, CompanionsTakeThePlaceOfTheirTargetsOwnOnly) {
  struct Case {
    const char* what;
    std::string target, old, input, name;
  };
  const std::string far(velabsOfStream::buffer_size - 20, 'x');
  const Case cases[] = {{"named by the old target", "out.obj", "mtllib out.mtl", "o about\n", "out.mtl"},
                        {"across the pieces of a file", "out.obj", far + " mtllib out.mtl\n" + far, "", "out.mtl"},
                        {"not named", "out.obj", "v 0 0 0\n", "", "out_5.mtl"},
                        {"only the end of a name", "out.obj", "mtllib about.mtl a.out.mtl a_out.mtl", "", "out_5.mtl"},
                        {"more than the name", "out.obj", "mtllib out.mtlx", "", "out_5.mtl"},
                        {"named by an input too", "out.obj", "mtllib out.mtl", "mtllib .\\sub\\out.mtl", "out_5.mtl"},
                        {"the second choice of an earlier time", "out.obj", "mtllib out_4.mtl", "", "out_4.mtl"},
                        {"blanks as codes", "an out.gltf", R"({"uri":"an%20out.mtl"})", "", "an out.mtl"},
                        {"codes in an input", "an out.gltf", R"({"uri":"an%20out.mtl"})",
                         R"({"uri":"an\u0020out\u002emtl"})", "an out_5.mtl"},
                        {"an input itself", "out.obj", "mtllib out_2.mtl", "", "out_5.mtl"},
                        {"a link", "out.obj", "mtllib out_3.mtl", "", "out_5.mtl"}};
  for (const Case& c : cases) {
    TemporaryDirectory directory;
    const std::string target = directory.write(c.target, c.old), input = directory.write("input", c.input);
    const std::string stem = c.target.substr(0, c.target.find('.'));
    for (const char* end : {".mtl", "_1.mtl", "_2.mtl", "_4.mtl"}) directory.write(stem + end, "of others");
    fs::create_symlink("elsewhere", directory / (stem + "_3.mtl"));
    velabsOfStream stream(target, {input, directory / (stem + "_2.mtl")});
    stream.companion("mtl").write("new");
    EXPECT_TRUE(stream.commit()) << c.what;
    EXPECT_EQ(stream.told_of_companions().is_null(), c.name == stem + ".mtl") << c.what;
    for (const auto& entry : fs::directory_iterator(directory.path())) {
      const bool is_new = fs::exists(entry) && TemporaryDirectory::read(entry.path()) == "new";
      EXPECT_EQ(is_new, entry.path().filename() == c.name) << c.what << ": " << entry.path();
    }
  }
}

TEST(AppInfo, SchemaPathCoversEveryInstallation) {
  velabsAppInfo info("p", "1", "a", "u", "ISO-8859-1");
  EXPECT_EQ(info.schema_path("resources"), "");
  info.installation_dir("/a;;/b c;");
  EXPECT_EQ(info.schema_path("resources"), "/a/resources;/b c/resources");
  EXPECT_EQ(info.ut_encoding()->to_utString(apString(L"\u00E9")), "\xE9");
}
