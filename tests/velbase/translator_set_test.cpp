#include <gtest/gtest.h>

#include "Registry.h"

namespace {

std::unique_ptr<OpenInfo> reader(const Registry& registry, const std::string& format, vluFileType type) {
  auto info = registry.info(format, vlnTRANSLATOR_INPUT);
  info->add_file_type(type);
  return info;
}

std::unique_ptr<OpenInfo> writer(const Registry& registry, const std::string& format, const wchar_t* extension) {
  auto info = registry.info(format, vlnTRANSLATOR_OUTPUT);
  info->add_extension(extension);
  return info;
}

std::string format_of(const vlnTranslatorInfo* info) {
  return info ? info->format_name().ut_string().str() : "none";
}

}  // namespace

TEST(TranslatorSet, ContentChoosesTheReaderAndTheFirstAddedWins) {
  const TemporaryDirectory dir;
  const Registry registry;
  auto set = registry.sets.empty_dlls();
  set->add_translator(reader(registry, "first", vluSTL));
  set->add_translator(reader(registry, "second", vluSTL));
  set->add_translator(reader(registry, "obj", vluOBJ));
  EXPECT_EQ(format_of(set->translator_for_file(dir.write("a.obj", "solid s\nendsolid s\n"))), "first");
  EXPECT_EQ(format_of(set->translator_for_file(dir / "missing.stl")), "none");
  set->add_translator(reader(registry, "anything", vluUNKNOWN));
  EXPECT_EQ(format_of(set->translator_for_file(dir / "missing.stl")), "anything");
  EXPECT_EQ(format_of(set->translator_for_file(dir.make_pipe("pipe.stl"))), "anything") << "and did not block";
  EXPECT_EQ(format_of(set->translator_for_file(dir.path().string())), "anything");
}

TEST(TranslatorSet, TheExtensionOrTheFormatChoosesTheWriter) {
  const Registry registry;
  auto set = registry.sets.empty_dlls();
  set->add_translator(writer(registry, "Iges", L"igs"));
  set->add_translator(writer(registry, "IGES", L"IGS"));
  EXPECT_EQ(format_of(set->translator_for_file("/no/such/x.Igs")), "Iges");
  EXPECT_EQ(format_of(set->translator_for_format("iGES")), "Iges");
  EXPECT_EQ(set->translator_for_format("ig"), nullptr);
  EXPECT_EQ(format_of(set->translator_for_file("plain")), "none");
  set->add_translator(writer(registry, "bare", L""));
  EXPECT_EQ(format_of(set->translator_for_file("plain")), "bare");
  EXPECT_EQ(format_of(set->translator_for_file("a.b/plain")), "bare");
  EXPECT_FALSE(registry.format("Step") == registry.format("STEP"));
  EXPECT_FALSE(vlnFormatName().case_compare(L"")) << "a placeholder equals nothing";
}

TEST(TranslatorSet, DefaultOutputFormat) {
  const Registry registry;
  const auto iges_input = registry.info("IGES", vlnTRANSLATOR_INPUT);
  const auto other_input = registry.info("STL", vlnTRANSLATOR_INPUT);
  auto set = registry.sets.empty_dlls();
  EXPECT_EQ(set->default_output_format(iges_input.get()), nullptr);
  set->add_translator(writer(registry, "Viewer", L"v"));
  EXPECT_EQ(format_of(set->default_output_format(iges_input.get())), "Viewer") << "all are viewers";
  set->add_translator(writer(registry, "STL", L"stl"));
  EXPECT_EQ(format_of(set->default_output_format(other_input.get())), "STL");
  set->add_translator(writer(registry, "HPF", L"hpf"));
  set->add_translator(writer(registry, "Iges", L"igs"));
  EXPECT_EQ(format_of(set->default_output_format(iges_input.get())), "HPF");
  EXPECT_EQ(format_of(set->default_output_format(other_input.get())), "Iges");
  set->set_preferred_output_format("stl");
  EXPECT_EQ(format_of(set->default_output_format(iges_input.get())), "STL");
  set->set_preferred_output_format("none such");
  EXPECT_EQ(format_of(set->default_output_format(other_input.get())), "STL") << "the first non-viewer, not iges";
  set->set_preferred_output_format("");
  EXPECT_EQ(format_of(set->default_output_format(other_input.get())), "STL") << "an empty name is a preference too";
}

TEST(TranslatorSet, ViewersAreListedButNeverOfferedAsAFormat) {
  const Registry registry;
  auto set = registry.sets.empty_dlls();
  set->add_translator(writer(registry, "Viewer", L"v"));
  set->add_translator(writer(registry, "A", L"a"));
  auto count = [](auto walk) {
    int result = 0;
    while (++walk) ++result;
    return result;
  };
  EXPECT_EQ(count(set->formats()), 1);
  EXPECT_EQ(count(set->filter_elements()), 2);
  EXPECT_EQ(count(set->resource_file_names()), 2);
  EXPECT_EQ(registry.formats(*set), (std::vector<std::string>{"Viewer", "A"}));
}
