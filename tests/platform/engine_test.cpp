#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>

#include "RecordingOutput.h"
#include "TemporaryDirectory.h"
#include "v2vVel2vel.h"

namespace {

std::string fixture(const std::string& name) {
  return std::string(VEL_FIXTURES) + "/" + name + ".dll";
}

class Engine : public testing::Test {
 protected:
  // Writes the scripts as files a, b, c... and translates them to `target_`.
  int translate(const std::vector<std::string>& scripts) {
    v2vTranslatorElementscoPageArr inputs;
    for (std::size_t i = 0; i < scripts.size(); ++i) {
      const std::string name = std::string(1, static_cast<char>('a' + i)) + ".script";
      inputs.append({directory_.write(name, scripts[i]), nullptr, reader_, 0, "Script"});
    }
    return run(inputs);
  }
  int run(const v2vTranslatorElementscoPageArr& inputs) {
    const v2vTranslationElements request(inputs, {target_, nullptr, writer_, document_, 0, "Script"});
    comm_.register_translation(request);
    return v2vVel2vel().translate(nullptr, comm_, loader_, request, &output_, second_);
  }
  std::string written() const { return TemporaryDirectory::read(target_); }
  std::string last_message() const { return output_.messages.empty() ? "" : output_.messages.back(); }
  // The inputs that were counted, and how many of them failed.
  std::pair<int, int> counts() const {
    const auto details = comm_.current_translation_details();
    return {details.num_processed(), details.num_failed()};
  }
  // Nothing but the inputs and what stood at the target lies about.
  void expect_untouched(std::size_t inputs) {
    EXPECT_EQ(written(), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory_.path()), {}), static_cast<long>(inputs + 1));
  }

  TemporaryDirectory directory_;
  std::string target_ = directory_.write("out.txt", "old");
  std::string reader_ = fixture("script_reader");
  std::string writer_ = fixture("script_writer");
  annDocument* document_ = nullptr;
  v2vTranslatorLoader loader_;
  v2vThreadComm comm_;
  RecordingOutput output_;
  velabsOutput* second_ = nullptr;
};

}  // namespace

TEST_F(Engine, SeveralInputsStandInTheirOrderInOneUnit) {
  // The first one takes longest.
  EXPECT_EQ(translate({"sleep 50\nnode\nnode named\nnode\n", "inch\nnode\n", "millimetre\nnode in mm\n"}), 1);
  EXPECT_EQ(written(), "inch( 1.000(a 0.039(a_1 1.000)(named 1.000)(a_2 1.000))(b 1.000)(in mm 0.039))end");
  EXPECT_EQ(TemporaryDirectory::read(directory_ / "out.side"), "a");
  EXPECT_EQ(counts(), std::pair(3, 0));
  EXPECT_EQ(last_message(), directory_ / "a.script: it has no length unit: its numbers count as millimetres");
  EXPECT_EQ(output_.messages.size(), 1u);

  // Where no file has a unit, nothing is taken for another. The old output does not name what stands beside it.
  EXPECT_EQ(translate({"node\n", "node\n"}), 1);
  EXPECT_EQ(output_.messages.size(), 2u);
  EXPECT_TRUE(last_message().ends_with("out_1.side is written instead")) << last_message();
  EXPECT_EQ(TemporaryDirectory::read(directory_ / "out.side"), "a");
}

TEST_F(Engine, SeveralInputsStandWithTheirUpInTheSameDirection) {
  annDocument document;
  document_ = &document;
  EXPECT_EQ(translate({"node\n", "z_up\nnode\n", "y_up\nnode\nnode\n", "z_up\nnode\n"}), 1);
  EXPECT_EQ(document.up, annUP_Z);
  const annVector sideways{1, 2, 3}, raised{1, -3, 2};
  const annVector expected[] = {sideways, sideways, raised, sideways};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(document.root.children.at(i)->transform.point({1, 2, 3}), expected[i]) << i;
  }
}

TEST_F(Engine, ASingleInputKeepsItsTop) {
  annDocument document;
  document.root.add_child("of an earlier request");
  document_ = &document;
  EXPECT_EQ(translate({"millimetre\nnode\nnode x\n"}), 1);
  EXPECT_EQ(written(), "millimetre( 1.000(a 1.000)(x 1.000))end");
  EXPECT_EQ(document.root.children.size(), 2u);
}

TEST_F(Engine, AnInputThatFailsLeavesTheOldOutput) {
  const std::string file = directory_ / "b.script: ";
  const std::pair<const char*, const char*> cases[] = {
      {"fail line 3: no", "line 3: no"},
      {"fail_silently", "it could not be read"},
      {"throw over the wall", "it stopped on an error of its own: over the wall"},
      {"throw_number", "it stopped on an error of its own"},
      {"no_memory", "there is not enough memory"},
      {"note nothing here", "the model is empty: it has no vertices, faces or shapes"},
      {"bare nothing here", "the model is empty: it has no vertices, faces or shapes"},
      {"bad_corner", "the reader gave an invalid mesh: a face names a vertex that is not there"},
      {"bad_point", "the reader gave an invalid mesh: a coordinate is not a finite number"}};
  for (const auto& [script, message] : cases) {
    EXPECT_EQ(translate({"node", script, "node"}), 0) << script;
    EXPECT_EQ(last_message(), file + message);
    EXPECT_EQ(counts(), std::pair(3, 1));
    expect_untouched(3);
  }
}

TEST_F(Engine, ReadsAnEmptyModelWithAWarning) {
  annDocument document;
  v2vTranslatorElementscoPageArr inputs;
  inputs.append({directory_.write("a.script", "inch\nbare x"), nullptr, reader_, 0, "Script"});
  EXPECT_EQ(v2vVel2vel().read(nullptr, comm_, loader_, inputs, document, &output_, nullptr), 1);
  EXPECT_TRUE(last_message().ends_with("it has no vertices, faces or shapes")) << last_message();
  EXPECT_EQ(ann_statistics(document).parts, 0u);
  EXPECT_EQ(document.unit, velLENGTH_INCH);
}

TEST_F(Engine, MessagesComeInTheOrderOfTheInputs) {
  std::vector<std::string> scripts(12, "note one\nnode\nnote two\n");
  scripts[0] = "sleep 30\n" + scripts[0];
  EXPECT_EQ(translate(scripts), 1);
  ASSERT_EQ(output_.messages.size(), 24u);
  EXPECT_TRUE(std::is_sorted(output_.messages.begin(), output_.messages.end()));
}

TEST_F(Engine, ProgressOnlyRisesAndEndsWithTheFile) {
  EXPECT_EQ(translate({"progress 50\nprogress 20\nprogress 1000\nnode\n", "node\nprogress -4\nprogress 50"}), 1);
  EXPECT_TRUE(std::is_sorted(output_.steps.begin(), output_.steps.end()));
  for (const int step : {50, 70, 100}) {
    EXPECT_EQ(std::count(output_.steps.begin(), output_.steps.end(), step), 1) << step;
  }
}

TEST_F(Engine, CancellingLeavesNothingAndCountsAll) {
  output_.cancel_at = 10;
  const std::vector<std::string> scripts(9, "progress 95\nuntil_cancelled\n");
  EXPECT_EQ(translate(scripts), 0);
  EXPECT_EQ(output_.messages, std::vector{target_ + ": the translation was cancelled; nothing was written"});
  EXPECT_EQ(counts(), std::pair(9, 9));
  expect_untouched(9);

  // While writing.
  output_.cancel = false;
  output_.cancel_at = 70;
  EXPECT_EQ(translate({"node"}), 0);
  EXPECT_EQ(counts(), std::pair(1, 0));
  expect_untouched(9);
}

TEST_F(Engine, AWriterThatFailsLeavesTheOldOutput) {
  const std::pair<const char*, const char*> cases[] = {{"write_throw", "it stopped on an error of its own: thrown"},
                                                       {"write_fail", "its translator gave up"}};
  for (const auto& [node, reason] : cases) {
    EXPECT_EQ(translate({std::string("node ") + node}), 0);
    EXPECT_EQ(last_message(), "cannot write " + target_ + ": " + reason);
    EXPECT_EQ(counts(), std::pair(1, 0));
    expect_untouched(1);
  }
  target_ = "/dev/full";
  EXPECT_EQ(translate({"node x"}), 0);
  EXPECT_EQ(last_message(), "cannot write /dev/full: No space left on device");
}

TEST_F(Engine, RequestsThatCannotWorkAreRefusedBeforeAnythingIsRead) {
  std::filesystem::create_directory(directory_ / "d");
  std::filesystem::create_hard_link(target_, directory_ / "other_name");
  std::filesystem::create_symlink("circle", directory_ / "circle");
  const std::string input = directory_.write("a.script", "throw was read");
  v2vTranslatorElementscoPageArr inputs;
  inputs.append({input, nullptr, reader_, 0, "Script"});
  inputs.append({directory_ / "other_name", nullptr, reader_, 0, "Script"});
  const std::pair<std::string, std::string> cases[] = {{target_, "it is an input too"},
                                                       {directory_ / "d/../a.script", "it is an input too"},
                                                       {directory_ / "d", "it is a directory"},
                                                       {directory_ / "circle", "leads back to itself"},
                                                       {directory_ / "new/", "it is a directory"},
                                                       {directory_ / "no/out", "its directory does not exist"},
                                                       {directory_ / "a.script/out", "does not exist"},
                                                       {"", "has no name"}};
  for (const auto& [target, part] : cases) {
    target_ = target;
    EXPECT_EQ(run(inputs), 0);
    EXPECT_NE(last_message().find(part), std::string::npos) << last_message();
    EXPECT_EQ(last_message().find("was read"), std::string::npos);
    EXPECT_EQ(counts(), std::pair(2, 2));
  }
  target_ = directory_ / "fresh";
  EXPECT_EQ(run({}), 0);
  EXPECT_EQ(last_message(), "there is no input; name a file to translate");
  EXPECT_FALSE(std::filesystem::exists(target_));
}

TEST_F(Engine, LibrariesThatDoNotServeAreNamed) {
  struct Case {
    std::string reader, writer, part;
  } cases[] = {{fixture("no_object"), writer_, "a.script: its translator gave no reader"},
               {writer_, writer_, "reads nothing"},
               {fixture("wrong_interface"), writer_, "cannot be used: built for interface 3, this program speaks 1"},
               {"", writer_, "a.script: no translator reads it"},
               {reader_, fixture("no_object"), "its translator gave no writer"},
               {reader_, reader_, "writes nothing"},
               {reader_, "", "no translator writes this format"},
               {reader_, "/no/such.dll", "/no/such.dll"}};
  for (const Case& c : cases) {
    reader_ = c.reader;
    writer_ = c.writer;
    EXPECT_EQ(translate({"node x"}), 0);
    EXPECT_NE(last_message().find(c.part), std::string::npos) << last_message();
    EXPECT_EQ(counts().first, 1);
    expect_untouched(1);
  }
}

TEST_F(Engine, OutputsOfTheHostMayFailOrBeTheSame) {
  output_.throws = true;
  second_ = &output_;
  EXPECT_EQ(translate({"note once\nnode\n"}), 1);
  EXPECT_EQ(output_.messages.size(), 1u);
}

TEST_F(Engine, APipeIsWrittenDirectly) {
  target_ = directory_.make_pipe("pipe");
  const int reader = open(target_.c_str(), O_RDONLY | O_NONBLOCK);
  EXPECT_EQ(translate({"node"}), 1);
  char text[64];
  const ssize_t count = read(reader, text, sizeof text);
  EXPECT_EQ(std::string(text, static_cast<std::size_t>(count)), "unspecified( 1.000(a 1.000))end");
  close(reader);
}
