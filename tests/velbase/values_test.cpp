#include <gtest/gtest.h>

#include "vlnTranslationData.h"
#include "vlnTranslatorLoadStatus.h"

using Types = std::set<vlnTranslatorLoadStatusType>;

TEST(LoadStatus, OnlyTypeOneIsOkAndOnlyTypeZeroInvalid) {
  EXPECT_EQ(vlnTranslatorLoadStatus().types(), Types{vlnLOAD_NOT_SET});
  for (int type = 0; type <= 9; ++type) {
    const vlnTranslatorLoadStatus status(static_cast<vlnTranslatorLoadStatusType>(type));
    EXPECT_EQ(status.ok(), type == 1) << type;
    EXPECT_EQ(status.invalid(), type == 0) << type;
    EXPECT_FALSE(status.files_failed_to_load());
  }
}

TEST(LoadStatus, MergingCollectsFailuresAndNeverChangesInvalid) {
  vlnTranslatorLoadStatus good(vlnLOAD_OK);
  good.merge_status(vlnTranslatorLoadStatus(vlnLOAD_DIRECTORY_MISSING));
  good.merge_status(vlnTranslatorLoadStatus());
  EXPECT_FALSE(good.ok());
  EXPECT_FALSE(good.invalid());
  EXPECT_EQ(good.types(), (Types{vlnLOAD_NOT_SET, vlnLOAD_OK, vlnLOAD_DIRECTORY_MISSING}));

  vlnTranslatorLoadStatus unset;
  unset.merge_status(vlnTranslatorLoadStatus(vlnLOAD_OK));
  EXPECT_FALSE(unset.ok());
  EXPECT_TRUE(unset.invalid());
}

TEST(LoadStatus, FailedFilesKeepOrderAndDuplicates) {
  const apPathName a(L"/a.dll"), b(L"/b.dll");
  vlnTranslatorLoadStatus status(b);
  status.merge_status(vlnTranslatorLoadStatus(a));
  status.merge_status(vlnTranslatorLoadStatus(b));
  EXPECT_EQ(status.types(), Types{vlnLOAD_FILE_FAILED});
  std::vector<apPathName> files;
  auto failed = status.translator_files_failed_to_load();
  while (++failed) files.push_back(failed());
  EXPECT_EQ(files, (std::vector{b, a, b}));
}

TEST(TranslationData, UnsetUntilEveryListAndTheTypeAreSet) {
  vlnTranslationData data;
  data.set_input_file("a");
  data.set_input_format("STL");
  data.set_input_resource_table(velTableInstance());
  data.set_output_file("c");
  data.set_output_format("OBJ");
  data.set_output_resource_table(velTableInstance());
  data.set_output_messages("fine");
  data.set_error_messages("");
  data.set_translation_status(vlnFINISH_DONE);
  EXPECT_TRUE(data.is_unset());
  data.set_type(vlnTRANSLATION_SINGLE);
  EXPECT_FALSE(data.is_unset());
  data.clear();
  EXPECT_TRUE(data.is_unset() && data.num_input_files() == 0 && data.type() == vlnTRANSLATION_UNSET);
}
