#include "Running.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>

static std::vector<char*> pointers_to(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (const auto& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

Running::Running(const std::vector<std::string>& words, const std::vector<std::string>& variables,
                 const std::string& directory, const std::string& out_file, bool terminal) {
  const std::vector<char*> arguments = pointers_to(words), environment = pointers_to(variables);
  const std::string out = out_file.empty() ? *outputs_ / "out" : out_file, err = outputs_->write("err", "");
  int reading = -1, writing = terminal ? -1 : open(err.c_str(), O_WRONLY | O_CLOEXEC);
  if (terminal && openpty(&reading, &writing, nullptr, nullptr, nullptr) != 0) throw std::runtime_error("no terminal");
  process_ = fork();
  if (process_ == 0) {
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(open(out.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    dup2(writing, STDERR_FILENO);
    if (chdir(directory.c_str()) == 0) execve(words.front().c_str(), arguments.data(), environment.data());
    _exit(127);
  }
  close(writing);
  if (!terminal) return;
  terminal_ = std::jthread([reading, err] {
    std::ofstream file(err);
    char buffer[4096];
    for (ssize_t count; (count = read(reading, buffer, sizeof buffer)) > 0;) file.write(buffer, count).flush();
    close(reading);
  });
}

bool Running::wait_for_file(const std::string& file, const std::string& text) {
  for (int attempt = 0; attempt < 6000; ++attempt) {
    if (TemporaryDirectory::read(file).find(text) != std::string::npos) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

void Running::signal(int number) const {
  kill(process_, number);
}

Outcome Running::finish() {
  int state = 0;
  waitpid(process_, &state, 0);
  if (terminal_.joinable()) terminal_.join();
  return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, TemporaryDirectory::read(*outputs_ / "out"),
          TemporaryDirectory::read(*outputs_ / "err")};
}
