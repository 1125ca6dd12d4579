#include "apCriticalSection.h"

#include <mutex>

apICriticalSection::~apICriticalSection() = default;
apISynchOperations::~apISynchOperations() = default;

namespace {

class StandardSection : public apICriticalSection {
 public:
  void enter() override { mutex_.lock(); }
  void leave() override { mutex_.unlock(); }

 private:
  std::mutex mutex_;
};

class StandardOperations : public apISynchOperations {
 public:
  std::unique_ptr<apICriticalSection> make_critical_section() const override {
    return std::make_unique<StandardSection>();
  }
};

}  // namespace

const apISynchOperations* apISynchOperations::system() {
  static const auto* operations = new StandardOperations;
  return operations;
}

apCriticalSection::apCriticalSection(const apISynchOperations* operations) {
  if (operations) section_ = operations->make_critical_section();
  if (!section_) section_ = apISynchOperations::system()->make_critical_section();
}
