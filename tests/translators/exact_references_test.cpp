#include <cstdlib>
#include <filesystem>

#include "ExactFiles.h"
#include "KeptByKernel.h"

// A STEP file and those that it refers to: real ones, below the directory that VEL_CORPUS names; without it there is
// nothing to do.

namespace {

namespace fs = std::filesystem;

class ExactReferences : public ExactFiles {
 protected:
  void SetUp() override {
    const char* const corpus = std::getenv("VEL_CORPUS");
    if (!corpus) GTEST_SKIP() << "VEL_CORPUS names no directory";
    fs::copy(fs::path(corpus) / "step/s1-c5-214", here_);
    main_ = TemporaryDirectory::read((here_ / "s1-c5-214.stp").string());
  }

  // A file that refers to another one in place of "HEAD.stp".
  Reading referring_to(const std::string& name) const {
    return reader("step").read(directory_.write("assembly/other.stp", replaced(main_, "'HEAD.stp'", "'" + name + "'")));
  }

  std::string error_about_head(const std::string& content) const {
    const KeptByKernel circle;
    directory_.write("assembly/HEAD.stp", content);
    return referring_to("HEAD.stp").messages.errors;
  }

  const fs::path here_ = directory_.path() / "assembly";
  std::string main_;
};

}  // namespace

TEST_F(ExactReferences, FilesOfAnAssemblyAreLookedForBelowItAndMissedAloud) {
  EXPECT_EQ(referring_to("HEAD.stp").statistics().parts, 11U);
  const fs::path start = fs::current_path();
  fs::current_path(directory_.path());
  EXPECT_EQ(reader("step").read("assembly/other.stp").statistics().parts, 11U);
  fs::current_path(start);

  fs::create_directory(here_ / "below");
  fs::rename(here_ / "HEAD.stp", here_ / "below/HEAD.stp");
  const Reading missing = referring_to("HEAD.stp");
  EXPECT_EQ(missing.statistics().parts, 9U) << missing.messages.errors;
  EXPECT_NE(missing.messages.warnings.find("\"HEAD.stp\" that it refers to is missing"), std::string::npos);
  // Its own references are looked for beside it.
  const Reading half = referring_to("below/HEAD.stp");
  EXPECT_EQ(half.statistics().parts, 9U);
  EXPECT_NE(half.messages.warnings.find("HEAD_BACK.stp"), std::string::npos) << half.messages.warnings;
  for (const char* name : {"HEAD_BACK.stp", "HEAD_FRONT.stp"}) fs::copy(here_ / name, here_ / "below" / name);
  EXPECT_EQ(referring_to("below/HEAD.stp").statistics().parts, 11U);

  directory_.write("assembly/HEAD.stp", "no model\n");
  EXPECT_NE(referring_to("HEAD.stp").messages.warnings.find("no whole STEP file"), std::string::npos);
}

TEST_F(ExactReferences, FilesThatLeadInCirclesAreRefused) {
  const std::string head = TemporaryDirectory::read((here_ / "HEAD.stp").string());
  const std::pair<const char*, const char*> circles[] = {
      {"#1=DIRECTION('',(1.,0.,0.));\n", "for the second time"},
      {"#900001=PRODUCT_DEFINITION('','',$,$);\n"
       "#900002=NEXT_ASSEMBLY_USAGE_OCCURRENCE('','','',#900001,#900001,$);\n",
       "stands in itself"},
      {"#900001=OFFSET_SURFACE('',#900001,1.,.F.);\n", "holds #900001, which stands in itself"}};
  for (const auto& [line, fault] : circles) {
    const std::string error = error_about_head(std::string(head).insert(head.rfind("ENDSEC;"), line));
    EXPECT_NE(error.find(fault), std::string::npos) << error;
  }
  const std::string error = error_about_head(main_);
  EXPECT_NE(error.find("\"HEAD.stp\" that it refers to stands in itself"), std::string::npos) << error;
}

TEST_F(ExactReferences, FilesOutsideOfTheDirectoryAreRefused) {
  fs::create_directory(directory_.path() / "beside");
  fs::rename(here_ / "HEAD.stp", directory_.path() / "beside/HEAD.stp");
  fs::create_symlink(directory_.path() / "beside/HEAD.stp", here_ / "LINK.stp");
  for (const std::string& outside :
       {std::string("../beside/HEAD.stp"), directory_ / "beside/HEAD.stp", std::string("LINK.stp")}) {
    const Reading reading = referring_to(outside);
    EXPECT_EQ(reading.result, velabsFAILED) << outside;
    EXPECT_NE(reading.messages.errors.find("lies outside its directory"), std::string::npos) << outside;
  }
}
