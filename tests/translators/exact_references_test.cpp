#include <filesystem>

#include "ExactFiles.h"
#include "KeptByKernel.h"

// A STEP file and those that it refers to: a train refers to an engine and, twice, to a waggon, which refers to its
// deck and, twice, to a wheel.

namespace {

namespace fs = std::filesystem;

class ExactReferences : public ExactFiles {
 protected:
  void SetUp() override {
    fs::copy(VEL_TEST_DATA "/step/train", here_);
    main_ = TemporaryDirectory::read((here_ / "train.step").string());
  }

  // A file that refers to another one in place of "waggon.stp".
  std::string file_referring_to(const std::string& name) const {
    return directory_.write("assembly/other.stp", replaced(main_, "'waggon.stp'", "'" + name + "'"));
  }
  Reading referring_to(const std::string& name) const { return reader("step").read(file_referring_to(name)); }

  void expect_refused(const std::string& waggon, const std::string& reason) const {
    const KeptByKernel circle;
    directory_.write("assembly/waggon.stp", waggon);
    reader("step").must_not_read(file_referring_to("waggon.stp"), reason);
  }

  const fs::path here_ = directory_.path() / "assembly";
  std::string main_;
};

}  // namespace

TEST_F(ExactReferences, FilesOfAnAssemblyAreLookedForBelowItAndMissedAloud) {
  EXPECT_EQ(referring_to("waggon.stp").statistics().parts, 7U);
  const fs::path start = fs::current_path();
  fs::current_path(directory_.path());
  EXPECT_EQ(reader("step").read("assembly/other.stp").statistics().parts, 7U);
  fs::current_path(start);

  fs::create_directory(here_ / "below");
  fs::rename(here_ / "waggon.stp", here_ / "below/waggon.stp");
  const Reading missing = referring_to("waggon.stp");
  EXPECT_EQ(missing.statistics().parts, 1U) << missing.messages.errors;
  EXPECT_NE(missing.messages.warnings.find("\"waggon.stp\" that it refers to is missing"), std::string::npos);
  // Its own references are looked for beside it.
  const Reading half = referring_to("below/waggon.stp");
  EXPECT_EQ(half.statistics().parts, 1U);
  EXPECT_NE(half.messages.warnings.find("deck.stp"), std::string::npos) << half.messages.warnings;
  for (const char* name : {"deck.stp", "wheel.stp"}) fs::copy(here_ / name, here_ / "below" / name);
  EXPECT_EQ(referring_to("below/waggon.stp").statistics().parts, 7U);

  directory_.write("assembly/waggon.stp", "no model\n");
  EXPECT_NE(referring_to("waggon.stp").messages.warnings.find("no whole STEP file"), std::string::npos);
}

TEST_F(ExactReferences, FilesThatLeadInCirclesAreRefused) {
  const std::string waggon = TemporaryDirectory::read((here_ / "waggon.stp").string());
  const std::pair<const char*, const char*> circles[] = {
      {"#1=DIRECTION('',(1.,0.,0.));\n", "for the second time"},
      {"#900001=PRODUCT_DEFINITION('','',$,$);\n"
       "#900002=NEXT_ASSEMBLY_USAGE_OCCURRENCE('','','',#900001,#900001,$);\n",
       "stands in itself"},
      {"#900001=OFFSET_SURFACE('',#900001,1.,.F.);\n", "holds #900001, which stands in itself"}};
  for (const auto& [line, fault] : circles) {
    expect_refused(std::string(waggon).insert(waggon.rfind("ENDSEC;"), line), fault);
  }
  expect_refused(main_, "\"waggon.stp\" that it refers to stands in itself");
}

TEST_F(ExactReferences, FilesOutsideOfTheDirectoryAreRefused) {
  fs::create_directory(directory_.path() / "beside");
  fs::rename(here_ / "waggon.stp", directory_.path() / "beside/waggon.stp");
  fs::create_symlink(directory_.path() / "beside/waggon.stp", here_ / "LINK.stp");
  for (const std::string& outside :
       {std::string("../beside/waggon.stp"), directory_ / "beside/waggon.stp", std::string("LINK.stp")}) {
    reader("step").must_not_read(file_referring_to(outside), "lies outside its directory");
  }
}
