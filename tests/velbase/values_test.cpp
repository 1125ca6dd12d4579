#include <gtest/gtest.h>

#include <functional>

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

TEST(LoadStatus, MergingCollectsTypesAndFilesAndNeverChangesInvalid) {
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

  const apPathName a(L"/a.dll"), b(L"/b.dll");
  vlnTranslatorLoadStatus status(b);
  status.merge_status(vlnTranslatorLoadStatus(a));
  status.merge_status(vlnTranslatorLoadStatus(a));
  EXPECT_EQ(status.types(), Types{vlnLOAD_FILE_FAILED});
  std::vector<apPathName> files;
  auto failed = status.translator_files_failed_to_load();
  while (++failed) files.push_back(failed());
  EXPECT_EQ(files, (std::vector{b, a, a}));
}

TEST(TranslationData, UnsetUntilEveryListAndTheTypeAreSet) {
  using Data = vlnTranslationData;
  const std::vector<std::function<void(Data&)>> steps{
      [](Data& data) { data.set_input_file("a"); },
      [](Data& data) { data.set_input_format("STL"); },
      [](Data& data) { data.set_input_resource_table(velTableInstance()); },
      [](Data& data) { data.set_output_file("c"); },
      [](Data& data) { data.set_output_format("OBJ"); },
      [](Data& data) { data.set_output_resource_table(velTableInstance()); },
      [](Data& data) { data.set_output_messages("fine"); },
      [](Data& data) { data.set_error_messages(""); },
      [](Data& data) { data.set_translation_status(vlnFINISH_DONE); },
      [](Data& data) { data.set_type(vlnTRANSLATION_SINGLE); },
  };
  Data data;
  for (std::size_t missing = 0; missing <= steps.size(); ++missing) {
    data.clear();
    for (std::size_t i = 0; i < steps.size(); ++i) {
      if (i != missing) steps[i](data);
    }
    EXPECT_EQ(data.is_unset() != 0, missing < steps.size()) << missing;
  }
  data.clear();
  EXPECT_TRUE(data.is_unset() && data.num_input_files() == 0 && data.type() == vlnTRANSLATION_UNSET);
}
