#include "Running.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include "TemporaryDirectory.h"

Running::Running(const std::vector<std::string>& words, const std::vector<std::string>& variables,
                 const std::string& directory, const std::string& out_file, bool terminal) {
  std::vector<char*> word_list, variable_list;
  for (const auto& word : words) word_list.push_back(const_cast<char*>(word.c_str()));
  for (const auto& variable : variables) variable_list.push_back(const_cast<char*>(variable.c_str()));
  word_list.push_back(nullptr);
  variable_list.push_back(nullptr);

  int out[2], err[2];
  if (pipe(out) != 0) throw std::runtime_error("no pipe");
  if ((terminal ? openpty(&err[0], &err[1], nullptr, nullptr, nullptr) : pipe(err)) != 0) {
    throw std::runtime_error("no pipe");
  }
  for (const int end : {out[0], err[0]}) fcntl(end, F_SETFD, FD_CLOEXEC);
  process_ = fork();
  if (process_ == 0) {
    const int results = out_file.empty() ? out[1] : open(out_file.c_str(), O_WRONLY);
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(results, STDOUT_FILENO);
    dup2(err[1], STDERR_FILENO);
    close(out[1]);
    close(err[1]);
    if (chdir(directory.c_str()) == 0) execve(words.front().c_str(), word_list.data(), variable_list.data());
    _exit(127);
  }
  close(out[1]);
  close(err[1]);
  out_ = out[0];
  err_ = err[0];
}

bool Running::read_some() {
  pollfd ends[] = {{out_, POLLIN, 0}, {err_, POLLIN, 0}};
  if (poll(ends, 2, 60000) <= 0) return false;
  for (auto [end, text] : {std::pair{&out_, &outcome_.out}, std::pair{&err_, &outcome_.err}}) {
    const pollfd& state = end == &out_ ? ends[0] : ends[1];
    if (*end < 0 || state.revents == 0) continue;
    char buffer[4096];
    const ssize_t count = read(*end, buffer, sizeof buffer);
    if (count > 0) {
      text->append(buffer, static_cast<std::size_t>(count));
    } else {
      close(*end);
      *end = -1;
    }
  }
  return out_ >= 0 || err_ >= 0;
}

bool Running::wait_for_error(const std::string& text) {
  const auto limit = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (outcome_.err.find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > limit || !read_some()) return false;
  }
  return true;
}

bool Running::wait_for_file(const std::string& file, const std::string& text) {
  for (int attempt = 0; attempt < 6000; ++attempt) {
    if (std::filesystem::exists(file) && TemporaryDirectory::read(file).find(text) != std::string::npos) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

void Running::signal(int number) const {
  kill(process_, number);
}

Outcome Running::finish() {
  while (read_some()) {
  }
  int state = 0;
  waitpid(process_, &state, 0);
  outcome_.code = WIFEXITED(state) ? WEXITSTATUS(state) : -1;
  return outcome_;
}
