#include <dlfcn.h>
#include <gtest/gtest.h>

#include <mutex>

#include "TemporaryDirectory.h"
#include "apCriticalSection.h"
#include "apDynamicLibraryLoader.h"
#include "v2vTranslatorLoader.h"

using Lifetime = apILibraryLoaderOperations::Lifetime;

static apPathName fixture(const std::string& name) {
  return apPathName(apString((std::string(VEL_FIXTURES) + "/" + name + ".dll").c_str()));
}

TEST(DynamicLibrary, IsUnloadedWithItsObjectUnlessKept) {
  const TemporaryDirectory directory;
  const std::string content = TemporaryDirectory::read(VEL_FIXTURES "/watched.dll");
  const struct {
    const char* name;
    Lifetime at_opening, later;
    int unloaded;
  } cases[] = {{"a.dll", Lifetime::unload, Lifetime::unload, 1},
               {"b.dll", Lifetime::unload, Lifetime::keep_mapped, 0},
               {"c.dll", Lifetime::keep_mapped, Lifetime::unload, 0}};
  for (const auto& c : cases) {
    int counter = 1;
    apStatus status;
    const apPathName path(apString(directory.write(c.name, content).c_str()));
    auto library = apDynamicLibraryLoader().load(path, status, c.at_opening);
    ASSERT_TRUE(library) << status.failure().str();
    auto* watch = reinterpret_cast<void (*)(int*)>(library->proc_address("watch", status));
    ASSERT_NE(watch, nullptr);
    watch(&counter);
    EXPECT_EQ(library->proc_address("no_such_name", status), nullptr);
    EXPECT_FALSE(status.ok());
    library->set_lifetime(c.later);
    library.reset();
    EXPECT_EQ(counter, 1 - c.unloaded) << c.name;
    if (!c.unloaded) watch(nullptr);  // still there
  }
}

TEST(DynamicLibrary, OnlyAbsolutePathsAreOpened) {
  // The system would find this one by itself.
  for (const wchar_t* path : {L"libc.so.6", L"./libc.so.6", L"", L"/no/such/library.dll"}) {
    apStatus status;
    EXPECT_EQ(apDynamicLibraryLoader().load(apPathName(path), status), nullptr);
    EXPECT_FALSE(status.failure().empty());
  }
}

TEST(DynamicLibrary, OperationsThatGiveAHandleAndAFailureAreClosed) {
  struct Contradictory : apILibraryLoaderOperations {
    mutable int open_handles = 0;
    Handle open(const apPathName&, Lifetime, apStatus& status) const override {
      ++open_handles;
      status.set_failure("bad");
      return {&open_handles, [](void* handles) { --*static_cast<int*>(handles); }};
    }
    void* symbol(void*, const char*, apStatus&) const override { return nullptr; }
  } operations;
  apStatus status;
  EXPECT_EQ(apDynamicLibraryLoader(&operations).load(apPathName(L"/x"), status), nullptr);
  EXPECT_EQ(operations.open_handles, 0);
  EXPECT_EQ(status.failure(), "bad");
}

TEST(DynamicLibrary, OneThatWasCutShortIsRefusedBeforeTheSystemMapsIt) {
  TemporaryDirectory directory;
  const std::string file = directory / "cut.dll";
  const std::string whole = TemporaryDirectory::read(VEL_FIXTURES "/watched.dll");
  const apPathName path(apString(file.c_str()));
  bool any_refused = false;
  for (std::size_t size = whole.size(); size > 0; size = size > 512 ? size - 512 : size / 2) {
    directory.write("cut.dll", whole.substr(0, size));
    apStatus status;
    // The tables at the end of the file are not mapped, so it opens without them.
    if (apDynamicLibraryLoader().load(path, status)) {
      EXPECT_FALSE(any_refused) << size;
      continue;
    }
    any_refused = true;
    EXPECT_FALSE(status.failure().empty()) << size;
  }
  EXPECT_TRUE(any_refused);
}

TEST(TranslatorLoader, RefusesWhatIsNoTranslatorAndSaysWhy) {
  TemporaryDirectory directory;
  const apPathName text(apString(directory.write("text.dll", "this is no library").c_str()));
  const std::pair<apPathName, const char*> cases[] = {
      {fixture("wrong_interface"), "built for interface 3, this program speaks 1"},
      {fixture("no_number"), "velabs_interface_number"},
      {fixture("no_entry"), "neither reads nor writes"},
      {fixture("throwing_number"), "no number today"},
      {text, "text.dll"},
      {apPathName(apString(directory.path().c_str())), ""},
      {apPathName(L"script_reader.dll"), "absolute"},
      {apPathName(), "absolute"}};
  const v2vTranslatorLoader loader;
  for (const auto& [path, part] : cases) {
    EXPECT_TRUE(loader.failure(path).is_null());
    EXPECT_EQ(loader.load_library_path(path), nullptr);
    EXPECT_FALSE(loader.failure(path).empty());
    EXPECT_NE(loader.failure(path).find(part), utString::npos) << loader.failure(path).str();
  }
}

TEST(TranslatorLoader, TellsTheDirectionsOfALibrary) {
  const v2vTranslatorLoader loader;
  const auto reader = loader.load_library_path(fixture("script_reader"));
  ASSERT_TRUE(reader);
  EXPECT_TRUE(reader->is_input() && !reader->is_output() && !reader->write_wrapper());
  const auto both = loader.load_library_path(fixture("no_object"));
  EXPECT_TRUE(both->is_input() && both->is_output());
  EXPECT_TRUE(loader.failure(fixture("no_object")).is_null());
}

TEST(TranslatorLoader, CodeStaysMappedUnlessTheLibraryIsRefused) {
  const TemporaryDirectory directory;
  for (const bool refused : {false, true}) {
    const std::string file = directory / (refused ? "refused.dll" : "kept.dll");
    std::filesystem::copy_file(VEL_FIXTURES "/no_object.dll", file);
    {
      const auto library = v2vTranslatorLoader().load_library_path(apPathName(apString(file.c_str())));
      ASSERT_TRUE(library);
      if (refused) library->refuse();
    }
    EXPECT_EQ(dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD) == nullptr, refused);
  }
}

TEST(CriticalSection, IsARealLockWhateverItIsMadeFrom) {
  struct Nothing : apISynchOperations {
    std::unique_ptr<apICriticalSection> make_critical_section() const override { return nullptr; }
  } nothing;
  apCriticalSection section(&nothing);
  std::lock_guard guard(section);
}
