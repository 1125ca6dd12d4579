#include "exaSession.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <Standard_ErrorHandler.hxx>
#include <Standard_Failure.hxx>
#include <exception>

#include "exaFence.h"
#include "vltNames.h"

namespace {

constexpr std::size_t most_complaints = 4;

thread_local exaSession* current_session = nullptr;

std::mutex& kernel_lock() {
  static std::mutex lock;
  return lock;
}

}  // namespace

// Replaces the kernel's printer to the terminal.
class exaPrinter : public Message_Printer {
 protected:
  void send(const TCollection_AsciiString& text, const Message_Gravity gravity) const override {
    if (gravity < Message_Warning || !current_session) return;
    current_session->take_down(text.ToCString(), gravity >= Message_Alarm);
  }
};

namespace {

void be_quiet() {
  static const bool done = [] {
    const Handle(Message_Messenger) messenger = Message::DefaultMessenger();
    messenger->ChangePrinters().Clear();
    messenger->AddPrinter(new exaPrinter);
    return true;
  }();
  static_cast<void>(done);
}

}  // namespace

std::string exa_failure_of(const std::function<void()>& work) {
  be_quiet();
  try {
    switch (exa_fenced(work)) {
      case exaOutcome::DONE:
        break;
      case exaOutcome::BROKE_DOWN:
        return "the kernel broke down on it; its shapes are damaged, or of a kind that the kernel cannot handle";
      case exaOutcome::REFUSED:
        return "the kernel broke down on another file or shape before and is used no more; translate this one by "
               "itself";
    }
    return "";
  } catch (const Standard_Failure& failure) {
    const std::string text = failure.GetMessageString() ? failure.GetMessageString() : "";
    return text.empty() ? failure.DynamicType()->Name() : vlt_one_line(utString(text));
  } catch (const std::bad_alloc&) {
    return "it needs more memory than there is";
  } catch (const std::exception& exception) {
    return exception.what();
  }
}

exaSession::exaSession(velabsOutput& output) : output_(output), lock_(kernel_lock()) {
  be_quiet();
  current_session = this;
}

exaSession::~exaSession() {
  current_session = nullptr;
}

bool exaSession::guarded(const char* what, const std::function<bool()>& work) {
  bool done = false;
  const std::string failure = exa_failure_of([&] { done = work(); });
  if (failure.empty()) return done;
  output_.message(velabsERROR, utString(std::string(what) + ": " + failure));
  return false;
}

void exaSession::take_down(std::string text, bool grave) {
  text = vlt_one_line(utString(text));
  while (!text.empty() && (text.front() == '*' || text.front() == ' ')) text.erase(0, 1);
  // The name of the kernel's parser does not help a user.
  for (const std::string_view parser : {"ERR StepFile : ", "Undefined Parsing: "}) {
    if (text.starts_with(parser)) text.erase(0, parser.size());
  }
  while (!text.empty() && (text.back() == '*' || text.back() == ' ')) text.pop_back();
  if (text.empty()) return;
  for (Complaint& known : complaints_) {
    if (known.text != text) continue;
    ++known.count;
    return;
  }
  if (complaints_.size() < most_complaints) {
    complaints_.push_back({std::move(text), grave, 1});
  } else {
    ++more_;
  }
}

void exaSession::tell_complaints() {
  for (const Complaint& complaint : complaints_) {
    std::string text = complaint.text;
    if (complaint.count > 1) text += " (" + std::to_string(complaint.count) + " times)";
    output_.message(velabsWARNING, utString(text));
  }
  if (more_ > 0) output_.message(velabsWARNING, utString(std::to_string(more_) + " further complaints of this kind"));
  complaints_.clear();
  more_ = 0;
}

std::string exaSession::reason() const {
  for (const Complaint& complaint : complaints_) {
    if (complaint.grave) return ": " + complaint.text;
  }
  return complaints_.empty() ? "" : ": " + complaints_.front().text;
}
