#include "Program.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

namespace fs = std::filesystem;

const char* const tetrahedron_stl =
    "solid tetrahedron\n"
    "facet normal 0 0 -1\nouter loop\nvertex 0 0 0\nvertex 0 1 0\nvertex 1 0 0\nendloop\nendfacet\n"
    "facet normal 0 -1 0\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 0 2\nendloop\nendfacet\n"
    "facet normal -1 0 0\nouter loop\nvertex 0 0 0\nvertex 0 0 2\nvertex 0 1 0\nendloop\nendfacet\n"
    "facet normal 1 1 1\nouter loop\nvertex 1 0 0\nvertex 0 1 0\nvertex 0 0 2\nendloop\nendfacet\n"
    "endsolid tetrahedron\n";

const char* const tetrahedron_obj =
    "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 2\n"
    "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n";

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
    if (fs::exists(file) && TemporaryDirectory::read(file).find(text) != std::string::npos) return true;
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

Installation::Installation(bool with_translators) {
  const fs::path built = VEL_BUILT_ROOT;
  fs::create_directories(root_ / "sys/exec/lib");
  fs::copy_file(built / "sys/exec/vel", program());
  fs::create_directory_symlink(built / VEL_LIBRARY_DIR, root_ / VEL_LIBRARY_DIR);
  fs::copy(built / "sys/schemas", root_ / "sys/schemas", fs::copy_options::recursive);
  if (!with_translators) return;
  for (const char* name : {"stlreader", "stlwriter", "objreader", "objwriter"}) {
    add_library((built / "sys/exec/lib" / name).string() + ".dll");
  }
}

void Installation::add_library(const std::string& file) const {
  fs::copy_file(file, library(fs::path(file).filename()));
}

void Installation::add_units() const {
  fs::create_directories(fs::path(units_library()).parent_path());
  fs::copy_file(fs::path(VEL_BUILT_ROOT) / "sys/exec/services/unitssvc.dll", units_library(),
                fs::copy_options::overwrite_existing);
}

void Installation::add_fixture(const std::string& name) const {
  for (const std::string& file : {std::string(VEL_FIXTURES "/") + name, std::string(VEL_OWN_FIXTURES "/") + name}) {
    if (fs::exists(file)) return add_library(file);
  }
  throw std::runtime_error("no fixture " + name);
}

std::vector<std::string> Installation::variables() const {
  return {"QRM_HOME=" + home_.path().string(), "HOME=" + home_.path().string(), "PATH=/usr/bin:/bin", "TERM=xterm"};
}

Running Installation::start(std::vector<std::string> words, const std::string& out_file, bool terminal) const {
  words.insert(words.begin(), program());
  return Running(words, variables(), work_.path(), out_file, terminal);
}

Outcome Installation::run(std::vector<std::string> words, const std::string& out_file) const {
  return start(std::move(words), out_file).finish();
}

std::vector<std::string> Installation::files() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(work_.path())) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}
