#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "annDocument.h"
#include "apDynamicLibraryLoader.h"
#include "velTableInstance.h"
#include "velabsLibInput.h"
#include "velabsLibOutput.h"

// Takes down what a translator says; can be told to cancel.
class Messages : public velabsOutput {
 public:
  void message(velabsSeverity severity, const utString& text) override {
    (severity == velabsERROR ? errors : severity == velabsWARNING ? warnings : notes) += text.str() + "\n";
  }
  void progress(int) override {}
  bool cancelled() const override { return cancel; }

  std::string notes_and_warnings() const { return notes + warnings; }

  std::string notes, warnings, errors;
  bool cancel = false;
};

using Options = std::initializer_list<std::pair<const char*, const char*>>;

// What came of reading a file. A failure without an error message and a success with one are both faults; `fault` says
// so.
struct Reading {
  velabsResult result = velabsFAILED;
  annDocument document;
  Messages messages;

  annStatistics statistics() const { return ann_statistics(document); }
  const annNode& node(std::size_t index) const { return *document.root.children.at(index); }
  const annMesh& mesh(std::size_t index = 0) const { return *node(index).body.mesh; }
  bool fault() const { return (result == velabsDONE) != messages.errors.empty(); }
};

// The translator libraries of the build, opened as an application opens them.
class Translator {
 public:
  explicit Translator(const std::string& name) {
    apStatus status;
    const std::string path = std::string(VEL_TRANSLATORS) + "/" + name + ".dll";
    library_ = apDynamicLibraryLoader().load(apPathName(apString(path.c_str())), status);
    if (!library_) throw std::runtime_error(status.failure().str());
  }

  Reading read(const std::string& file, Options options = {}, bool cancel = false) const {
    Reading reading;
    reading.messages.cancel = cancel;
    const std::unique_ptr<velabsLibInput> input(wrapper<velabsReadWrapper>("velabs_read_wrapper")(nullptr));
    reading.result = input->read(utString(file), table(options), reading.document, reading.messages);
    return reading;
  }

  velabsResult write(const annDocument& document, const std::string& file, Messages& messages,
                     Options options = {}) const {
    velabsOfStream stream{utString(file)};
    const std::unique_ptr<velabsLibOutput> output(
        wrapper<velabsWriteWrapper>("velabs_write_wrapper")(&stream, nullptr));
    const velabsResult result = output->write(document, table(options), messages);
    if (result == velabsDONE && !stream.commit()) return velabsFAILED;
    return result;
  }

  // For files and documents in which nothing is wrong: the test fails when they cannot be read or written.
  Reading must_read(const std::string& file, Options options = {}) const {
    Reading reading = read(file, options);
    EXPECT_EQ(reading.result, velabsDONE) << file << ": " << reading.messages.errors;
    return reading;
  }
  Messages must_write(const annDocument& document, const std::string& file, Options options = {}) const {
    Messages messages;
    EXPECT_EQ(write(document, file, messages, options), velabsDONE) << file << ": " << messages.errors;
    return messages;
  }

  // For files and documents that must be refused, which leaves no file; `reason` is a part of the error.
  void must_not_read(const std::string& file, const std::string& reason, Options options = {}) const {
    const Reading reading = read(file, options);
    EXPECT_EQ(reading.result, velabsFAILED) << file << ": no \"" << reason << '"';
    EXPECT_NE(reading.messages.errors.find(reason), std::string::npos) << reason << ": " << reading.messages.errors;
    EXPECT_EQ(std::count(reading.messages.errors.begin(), reading.messages.errors.end(), '\n'), 1) << reason;
  }
  void must_not_write(const annDocument& document, const std::string& file, const std::string& reason,
                      Options options = {}) const {
    Messages messages;
    EXPECT_EQ(write(document, file, messages, options), velabsFAILED) << file << ": no \"" << reason << '"';
    EXPECT_NE(messages.errors.find(reason), std::string::npos) << reason << ": " << messages.errors;
    EXPECT_FALSE(std::filesystem::exists(file)) << file;
  }

 private:
  static velTableInstance table(Options options) {
    velTableInstance result;
    for (const auto& [key, value] : options) {
      if (!result.add_resource(key, value)) throw std::runtime_error(key);
    }
    return result;
  }

  template <typename Wrapper>
  Wrapper wrapper(const char* name) const {
    apStatus status;
    return reinterpret_cast<Wrapper>(library_->proc_address(name, status));
  }

  std::unique_ptr<apDynamicLibrary> library_;
};

inline bool is_installed(const std::string& library) {
  return std::filesystem::exists(std::string(VEL_TRANSLATORS) + "/" + library + ".dll");
}

// Each library is opened once, and stays open, as what it reads needs it.
inline const Translator& translator(const std::string& library) {
  static std::map<std::string, Translator> opened;
  return opened.try_emplace(library, library).first->second;
}
