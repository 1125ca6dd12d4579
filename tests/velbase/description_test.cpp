#include <gtest/gtest.h>

#include "CpuTime.h"
#include "Registry.h"
#include "apStringEncodings.h"
#include "vlnExtensionIT.h"
#include "vlnNonVelabsTranslatorInfo.h"

namespace {

std::vector<std::string> extensions_of(const vlnTranslatorInfo& info) {
  std::vector<std::string> result;
  auto extensions = info.get_extensions();
  while (++extensions) result.push_back(Registry().text(extensions()));
  return result;
}

}  // namespace

TEST(Description, NamesComeFromTheLibraryAndTheFormat) {
  const Registry registry;
  const std::pair<const char*, const char*> tags[] = {{"/l/libiges.dll", "iges"},
                                                      {"/l/IgesIn.dll", "IgesIn"},
                                                      {"/l/lib.dll", ""},
                                                      {"/l/Lib3d.dll", "Lib3d"},
                                                      {"/l/libx.tar.dll", "x.tar"}};
  for (const auto& [file, tag] : tags) {
    EXPECT_EQ(registry.text(registry.info("F", vlnTRANSLATOR_INPUT, file)->tag()), tag) << file;
  }
  for (const auto& [name, file] :
       {std::pair("A / B X", "ABX.rsc"), {"A\tB", "A\tB.rsc"}, {"A\\B", "A\\B.rsc"}, {"", ".rsc"}}) {
    EXPECT_EQ(registry.text(registry.info(name, vlnTRANSLATOR_INPUT)->resource_file_name().string()), file);
  }
  EXPECT_EQ(OpenInfo::remove_forward_slashes("/a//b/"), "ab");
  EXPECT_TRUE(registry.info("vIEWER", vlnTRANSLATOR_OUTPUT)->is_viewer());
  EXPECT_FALSE(registry.info("Viewer3", vlnTRANSLATOR_OUTPUT)->is_viewer());
}

TEST(Description, FilterElementCarriesTagAndCategoryOrder) {
  const Registry registry;
  auto info = registry.info("F", vlnTRANSLATOR_OUTPUT, "/l/libf.dll");
  EXPECT_EQ(info->change_extension(apPathName(L"C:/a/b.prt")), apPathName(L"C:/a/b.prt")) << "there is none to take";
  info->set_filter("HPF Files (*.hpf)|*.hpf");
  info->set_translator_category(nullptr);
  EXPECT_EQ(info->filter().tag(), "f");
  EXPECT_EQ(info->filter().filter_string(), "HPF Files (*.hpf)|*.hpf");
  EXPECT_EQ(info->filter().category_order(), velabsTranslatorCategory::find("no such")->group_order());
  info->set_translator_category(velabsTranslatorCategory::find("Mesh"));
  EXPECT_LT(info->filter().category_order(), velabsTranslatorCategory::find("no such")->group_order());
}

TEST(Description, OnlyInputsGoByTheFileType) {
  const Registry registry;
  for (int type = 0; type <= 2; ++type) {
    const auto info = registry.info("F", static_cast<vlnTranslatorType>(type));
    info->add_file_type(vluSTL);
    info->add_extension(L"stp");
    EXPECT_EQ(info->is_compatible(vluSTL, "none"), type == 0 ? 1 : 0) << type;
    EXPECT_EQ(info->is_compatible(vluOBJ, "STP"), type == 0 ? 0 : 1) << type;
  }
}

TEST(Extensions, ManyMarkedOnesTakeLinearTime) {
  const auto seconds = [](int count) {
    utStringcoSet set(4, 50);
    for (int i = 0; i < count; ++i) set.add(utString("*") + std::to_string(i));
    return cpu_seconds([&] { const vlnExtensionIT extensions(&set); });
  };
  EXPECT_LT(seconds(160000), 12 * std::max(seconds(40000), 1e-3)) << "four times as many";
}

TEST(LibraryDescription, IsTakenFromTheLibraryAndReplacesThatOfACache) {
  const Registry registry;
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  auto cached = registry.unloaded(VEL_FIXTURES "/good_input.dll");
  cached->set_format_name(registry.format("old"));
  cached->set_type(vlnTRANSLATOR_OUTPUT);
  cached->add_extension(L"old");
  cached->add_file_type(vluOBJ);
  EXPECT_EQ(cached->load_now(status), cached.get());
  const auto fresh = registry.descriptions.make_info_from_dll(registry.path(VEL_FIXTURES "/good_input.dll"), status);
  ASSERT_TRUE(fresh);
  EXPECT_TRUE(status.ok());
  for (const vlnSecureTranslatorInfo* info : {static_cast<vlnSecureTranslatorInfo*>(cached.get()), fresh.get()}) {
    EXPECT_EQ(info->type(), vlnTRANSLATOR_INPUT);
    EXPECT_EQ(info->format_name().ut_string(), "A / B X");
    EXPECT_EQ(info->file_name_ut(), "good_input.dll");
    EXPECT_EQ(info->filter_string(), "Fixture Files (*.fix)|*.fix");
    EXPECT_EQ(extensions_of(*info), (std::vector<std::string>{"fix", "stl"})) << "the marked one first";
    EXPECT_EQ(info->change_extension(apPathName(L"C:/a/b.prt")), apPathName(L"C:/a/b.fix"));
    EXPECT_EQ(info->further_text(), "kept");
    EXPECT_EQ(info->further_number(), 7);
    EXPECT_EQ(info->from_cache(), 0);
    EXPECT_EQ(info->invalid(), 0);
    intcoDList types;
    info->get_file_types(types);
    EXPECT_EQ(types.count(), 1U);

    const int opened = registry.libraries.opened;
    vlnTranslatorLoadStatus untouched;
    EXPECT_EQ(info->load_now(untouched), info) << "complete already";
    EXPECT_EQ(untouched.types().size(), 1U);
    EXPECT_EQ(registry.libraries.opened, opened);
  }
  const auto output = registry.unloaded(VEL_FIXTURES "/good_output.dll");
  output->set_type(vlnTRANSLATOR_INPUT);
  output->load_now(status);
  EXPECT_EQ(output->type(), vlnTRANSLATOR_OUTPUT);
}

TEST(LibraryDescription, SpecialCases) {
  const Registry registry;
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  const auto describe = [&](const char* fixture) {
    return registry.descriptions.make_info_from_dll(registry.path(std::string(VEL_FIXTURES "/") + fixture), status);
  };
  EXPECT_EQ(describe("both_directions.dll")->type(), vlnTRANSLATOR_OUTPUT);
  EXPECT_EQ(describe("viewer.dll")->format_name().ut_string(), "Viewer");
  const auto no_filter = registry.unloaded(VEL_FIXTURES "/no_filter.dll");
  no_filter->add_extension(L"old");
  no_filter->add_file_type(vluOBJ);
  no_filter->load_now(status);
  EXPECT_TRUE(extensions_of(*no_filter).empty() && !no_filter->is_compatible(vluOBJ, ""));
  EXPECT_EQ(no_filter->filter_string(), "");
  EXPECT_EQ(no_filter->translator_category()->category_name(), "");
  EXPECT_TRUE(status.ok());
}

TEST(LibraryDescription, EveryFailureHasItsStatusAndCostsOnlyItself) {
  const struct {
    const char* fixture;
    vlnTranslatorLoadStatusType type = vlnLOAD_FILE_FAILED;
  } cases[] = {{"no_object.dll", vlnLOAD_NO_LIBRARY_OBJECT},
               {"throws.dll"},
               {"no_entry.dll"},
               {"wrong_interface.dll"},
               {"not_a_library.dll"},
               {"missing.dll"}};
  const TemporaryDirectory temporary;
  setenv("TMPDIR", temporary.path().c_str(), 1);
  for (const auto& c : cases) {
    const Registry registry;
    vlnTranslatorLoadStatus status(vlnLOAD_OK);
    const apPathName path = registry.path(std::string(VEL_FIXTURES "/") + c.fixture);
    EXPECT_EQ(registry.descriptions.make_info_from_dll(path, status), nullptr) << c.fixture;
    EXPECT_TRUE(status.types().contains(c.type)) << c.fixture;
    EXPECT_EQ(status.files_failed_to_load(), c.type == vlnLOAD_FILE_FAILED) << c.fixture;
  }
  EXPECT_TRUE(std::filesystem::is_empty(temporary.path())) << "a library that wrote left nothing behind";
  unsetenv("TMPDIR");
}

TEST(LibraryDescription, AFailedLoadTriesAgain) {
  const TemporaryDirectory dir;
  const Registry registry;
  const auto info = registry.unloaded(dir / "late.dll");
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  EXPECT_EQ(info->load_now(status), nullptr);
  EXPECT_EQ(info->invalid(), 1);
  copy_fixture("good_output", dir.path(), "late.dll");
  EXPECT_EQ(info->load_now(status), info.get());
  EXPECT_EQ(info->invalid(), 0);
  EXPECT_FALSE(status.ok()) << "the first failure stays in the status";
}

TEST(LibraryDescription, TextThatTheEncodingCannotHoldIsAFailure) {
  const apAsciiEncoding ascii;
  const Registry registry;
  const vlnSecureTranslatorInfoFactory descriptions(&registry.loader, &ascii, &registry.compare);
  const apPathName library = registry.path(VEL_FIXTURES "/reflecting.dll");
  for (const char* variable : {"FIXTURE_FORMAT", "FIXTURE_EXTENSION"}) {
    setenv(variable, "\xC3\xB6", 1);
    vlnTranslatorLoadStatus status(vlnLOAD_OK);
    EXPECT_EQ(descriptions.make_info_from_dll(library, status), nullptr) << variable;
    EXPECT_TRUE(status.types().contains(vlnLOAD_ENCODING_FAILED)) << variable;
    unsetenv(variable);
  }
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  EXPECT_EQ(descriptions.make_info_from_dll(library, status)->further_text(), "xxxx")
      << "a library is not given the application's information before it is used";
}

TEST(LibraryDescription, ARefusedLibraryIsLookedAtAgainWhenItsFileHasChanged) {
  const TemporaryDirectory dir;
  const Registry registry;
  for (const char* broken : {"no_entry", "no_object", "throws", "wrong_interface", "not_a_library"}) {
    const std::string file = copy_fixture(broken, dir.path());
    const auto describe_twice = [&] {
      vlnTranslatorLoadStatus status(vlnLOAD_OK);
      registry.descriptions.make_info_from_dll(registry.path(file), status);
      const auto info = registry.descriptions.make_info_from_dll(registry.path(file), status);
      return info ? info->format_name().ut_string().str() : registry.loader.failure(registry.path(file)).str();
    };
    EXPECT_NE(describe_twice(), "Good") << broken;
    std::filesystem::rename(copy_fixture("good_output", dir.path(), "new"), file);
    EXPECT_EQ(describe_twice(), "Good") << broken;
  }
}

TEST(LibraryDescription, NullPointersAreNoCrash) {
  const Registry registry;
  vlnTranslatorLoadStatus status(vlnLOAD_OK);
  const vlnSecureTranslatorInfoFactory nothing(nullptr, nullptr, nullptr);
  EXPECT_EQ(nothing.make_info_from_dll(registry.path(VEL_FIXTURES "/good_input.dll"), status), nullptr);
  EXPECT_EQ(nothing.create_info()->file_ut(), "");
  const vlnTranslatorDllsFactory sets(nullptr, nullptr, &nothing);
  const auto set = sets.empty_dlls();
  set->add_translator(nullptr);
  EXPECT_EQ(set->count(), 0U);
  EXPECT_EQ(set->translator_for_format("x"), nullptr);
  std::unique_ptr<vlnTranslatorDlls> inputs, outputs;
  const vlnTranslatorDllsFactory no_descriptions(nullptr, nullptr, nullptr);
  no_descriptions.create_translator_dlls(registry.path("/no/cache"), registry.search_path(VEL_FIXTURES), "", nullptr,
                                         inputs, outputs);
  EXPECT_EQ(inputs->count() + outputs->count(), 0U);
  std::vector<apPathName> files;
  bool missing = true;
  vlnFindFileByExtension(nullptr, nullptr).find_by_extension(registry.path(VEL_FIXTURES), L"dll", files, missing);
  EXPECT_TRUE(files.empty() && !missing);
  EXPECT_EQ(++vlnExtensionIT(nullptr), 0);
}

TEST(NonVelabsDescription, NeverOpensAnything) {
  const Registry registry;
  const vlnNonVelabsTranslatorInfo info(registry.format("Printer"), "text", 3, &registry.loader, registry.encoding,
                                        &registry.compare);
  int status = 5;
  vlnTranslatorLoadStatus load_status;
  EXPECT_TRUE(info.load_now(status) == &info && status == 0 && info.load_now(load_status) == &info);
  EXPECT_EQ(registry.libraries.opened, 0);
}
