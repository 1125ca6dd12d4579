#pragma once

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "Translator.h"

// Work on damaged files, done in processes beside the test: what breaks down there takes nothing with it.
enum class OtherResult : char {
  DIED,  // or ran out of time
  GOOD,
  BAD,
  GOOD_FOR_THE_LAST_TIME,  // the process is of no use any more
};

// Does `count` pieces of work, as many as possible in one process, each in `seconds` at most. Gives the numbers of
// those that came to a bad end.
inline std::vector<std::size_t> bad_ends(std::size_t count, unsigned seconds,
                                         const std::function<OtherResult(std::size_t)>& work) {
  void* shared = mmap(nullptr, count, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) return {count};
  auto* results = static_cast<OtherResult*>(shared);
  std::vector<std::size_t> bad;
  for (std::size_t next = 0; next < count;) {
    const pid_t child = fork();
    if (child == 0) {
      bool useful = true;
      for (std::size_t i = next; i < count && useful; ++i) {
        alarm(seconds);
        results[i] = work(i);
        useful = results[i] != OtherResult::GOOD_FOR_THE_LAST_TIME;
      }
      _exit(0);
    }
    waitpid(child, nullptr, 0);
    bool useful = true;
    for (; next < count && useful && results[next] != OtherResult::DIED; ++next) {
      if (results[next] == OtherResult::BAD) bad.push_back(next);
      useful = results[next] != OtherResult::GOOD_FOR_THE_LAST_TIME;
    }
    if (next < count && useful) bad.push_back(next++);
  }
  munmap(shared, count);
  return bad;
}

// Of a reading that ended with geometry or a reason. A kernel that broke down is used no more in one process.
inline OtherResult result_of(const Reading& reading) {
  if (reading.fault()) return OtherResult::BAD;
  const bool over = reading.messages.errors.find("broke down") != std::string::npos;
  return over ? OtherResult::GOOD_FOR_THE_LAST_TIME : OtherResult::GOOD;
}
