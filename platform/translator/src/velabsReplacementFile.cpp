#include "velabsReplacementFile.h"

#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "vluFileHelpers.h"

namespace {

utString reason_of(int error) {
  return std::generic_category().message(error);
}

// Read and write for all, as limited by the user's mask. The system call would change the mask for other threads for a
// moment, so it is only the fallback.
mode_t mode_of_new_files() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("Umask:", 0) == 0) return 0666 & ~static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
  }
  const mode_t mask = umask(077);
  umask(mask);
  return 0666 & ~mask;
}

std::string directory_of(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  return separator == path.npos ? "." : path.substr(0, separator + 1);
}

std::string name_beside(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1) + "." + vlu_random_text().str();
}

// The target of a link, whether it exists or not.
std::string behind_links(std::string path) {
  for (int links = 0; links < 40; ++links) {
    char to[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), to, sizeof to);
    if (length <= 0 || length == static_cast<ssize_t>(sizeof to)) break;
    const std::string next(to, static_cast<std::size_t>(length));
    if (next.front() == '/') path.clear();
    path.resize(path.rfind('/') + 1);
    path += next;
  }
  return path;
}

// Whether the path is a link of another user in a directory where everybody may create files (the sticky bit is set and
// others may write). The creator of such a link chose the file that is written. Links of the directory's owner are
// trusted, as in the system's own protection (fs.protected_symlinks of proc(5)).
bool is_untrusted_link(const std::string& path) {
  struct stat link, directory;
  if (lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode)) return false;
  if (stat(directory_of(path).c_str(), &directory) != 0) return false;
  const bool is_open_to_all = (directory.st_mode & S_ISVTX) && (directory.st_mode & S_IWOTH);
  return is_open_to_all && link.st_uid != geteuid() && link.st_uid != directory.st_uid;
}

// The descriptor number of a path that leads through a link in /proc/PID/fd, the directory of a process's open
// descriptors; -1 if PID is not this process. None for other paths.
std::optional<int> descriptor_behind(std::string path) {
  for (int links = 0; links < 40; ++links) {
    char directory[PATH_MAX];
    char to[PATH_MAX];
    if (realpath(directory_of(path).c_str(), directory) == nullptr) return std::nullopt;
    const std::string_view place(directory);
    if (place.starts_with("/proc/") && place.ends_with("/fd")) {
      const bool own = place.starts_with("/proc/" + std::to_string(getpid()) + "/");
      return own ? std::atoi(path.c_str() + path.rfind('/') + 1) : -1;
    }
    const ssize_t length = readlink(path.c_str(), to, sizeof to);
    if (length <= 0 || length == static_cast<ssize_t>(sizeof to)) return std::nullopt;
    const std::string next(to, static_cast<std::size_t>(length));
    path = next.front() == '/' ? next : path.substr(0, path.rfind('/') + 1) + next;
  }
  return std::nullopt;
}

std::string descriptor_path(int file) {
  return "/proc/self/fd/" + std::to_string(file);
}

// Opens an unnamed file in a directory. Negative if the file system does not support it or could not name the file
// later.
int open_nameless(const std::string& directory) {
  const int file = ::open(directory.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
  if (file < 0 || access(descriptor_path(file).c_str(), F_OK) == 0) return file;
  close(file);
  return -1;
}

// Blocks two signals in this thread so that a write fails instead: those for a pipe without a reader and for exceeding
// the limit of file sizes.
class WriteSignalsBlocked {
 public:
  WriteSignalsBlocked() {
    sigemptyset(&signals_);
    sigset_t pending;
    sigpending(&pending);
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
      if (sigismember(&pending, signal) != 1) sigaddset(&signals_, signal);
    }
    pthread_sigmask(SIG_BLOCK, &signals_, &before_);
  }
  ~WriteSignalsBlocked() {
    const timespec at_once{};
    while (sigtimedwait(&signals_, nullptr, &at_once) > 0 || errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  WriteSignalsBlocked(const WriteSignalsBlocked&) = delete;
  WriteSignalsBlocked& operator=(const WriteSignalsBlocked&) = delete;

 private:
  sigset_t signals_;  // those that were not pending before
  sigset_t before_;
};

// 0, or the error that ended the writing.
int write_all(int file, std::string_view bytes) {
  const WriteSignalsBlocked blocked;
  while (!bytes.empty()) {
    const ssize_t put = ::write(file, bytes.data(), bytes.size());
    if (put < 0 && errno == EINTR) continue;
    if (put < 0) return errno;
    if (put == 0) return EIO;
    bytes.remove_prefix(static_cast<std::size_t>(put));
  }
  return 0;
}

}  // namespace

velabsReplacementFile::velabsReplacementFile(int file, std::string target, std::string name, mode_t mode, bool has_old)
    : file_(file), target_(std::move(target)), name_(std::move(name)), mode_(mode), has_old_(has_old) {}

bool velabsReplacementFile::is_written_directly(const utString& target) {
  struct stat status;
  if (stat(target.c_str(), &status) != 0 || S_ISDIR(status.st_mode)) return false;
  return !S_ISREG(status.st_mode) || descriptor_behind(target.str());
}

std::unique_ptr<velabsReplacementFile> velabsReplacementFile::open_directly(const std::string& target,
                                                                            utString& failure) {
  // For a regular file duplicate the descriptor itself, so that the output is in order with that of other writers.
  struct stat status;
  const bool is_common = stat(target.c_str(), &status) == 0 && S_ISREG(status.st_mode);
  const int own = is_common ? descriptor_behind(target).value_or(-1) : -1;
  const int file = own >= 0 ? fcntl(own, F_DUPFD_CLOEXEC, 0)
                            : ::open(target.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (file < 0) {
    failure = errno == ENXIO ? utString("nobody reads from it") : reason_of(errno);
    return nullptr;
  }
  // Only opening must not block.
  if (own < 0) fcntl(file, F_SETFL, fcntl(file, F_GETFL) & ~O_NONBLOCK);
  return std::unique_ptr<velabsReplacementFile>(new velabsReplacementFile(file, "", "", 0, false));
}

std::unique_ptr<velabsReplacementFile> velabsReplacementFile::open(const utString& target, utString& failure) {
  if (target.empty() || target.view().find('\0') != std::string_view::npos) {
    failure = reason_of(ENOENT);
    return nullptr;
  }
  if (is_untrusted_link(target.str())) {
    failure = "it is a link of another user in a directory that everybody may write to; name the file itself";
    return nullptr;
  }
  if (is_written_directly(target)) return open_directly(target.str(), failure);

  const std::string place = behind_links(target.str());
  struct stat status;
  const bool exists = stat(place.c_str(), &status) == 0;
  // A circular link exists but has no target, so a file cannot be put there.
  if (!exists && errno == ELOOP) {
    failure = reason_of(ELOOP);
    return nullptr;
  }
  if (place.back() == '/' || (exists && S_ISDIR(status.st_mode))) {
    failure = reason_of(EISDIR);
    return nullptr;
  }
  // Replacing a file does not need the right to write to it, but its owner set the permissions for a reason.
  if (exists && faccessat(AT_FDCWD, place.c_str(), W_OK, AT_EACCESS) != 0) {
    failure = reason_of(errno);
    return nullptr;
  }

  std::string name;
  int file = open_nameless(directory_of(place));
  if (file < 0) {
    name = name_beside(place);
    file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
  }
  if (file < 0) {
    failure = reason_of(errno);
    return nullptr;
  }
  const mode_t mode = exists ? status.st_mode & 0777 : mode_of_new_files();
  return std::unique_ptr<velabsReplacementFile>(new velabsReplacementFile(file, place, name, mode, exists));
}

velabsReplacementFile::~velabsReplacementFile() {
  undo();
  if (!name_.empty()) unlink(name_.c_str());
  close_file();
}

// A close that was interrupted has also closed the file.
bool velabsReplacementFile::close_file() {
  const int file = std::exchange(file_, -1);
  return file < 0 || close(file) == 0 || errno == EINTR;
}

bool velabsReplacementFile::write(std::string_view bytes, utString& failure) {
  const int error = write_all(file_, bytes);
  if (error != 0) failure = reason_of(error);
  return error == 0;
}

bool velabsReplacementFile::settle(bool on_disk, utString& failure) {
  if (target_.empty()) {
    const bool closed = close_file();
    if (!closed) failure = reason_of(errno);
    return closed;
  }
  struct stat old;
  if (stat(target_.c_str(), &old) == 0 && fchown(file_, old.st_uid, old.st_gid) != 0) {
    [[maybe_unused]] const int group_at_least = fchown(file_, static_cast<uid_t>(-1), old.st_gid);
  }
  bool done = fchmod(file_, mode_) == 0 && (!on_disk || fdatasync(file_) == 0);
  for (int attempt = 0; done && name_.empty() && attempt < 8; ++attempt) {
    const std::string name = name_beside(target_);
    if (linkat(AT_FDCWD, descriptor_path(file_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
      name_ = name;
    } else {
      done = errno == EEXIST;
    }
  }
  done = done && !name_.empty() && close_file();
  if (!done) failure = reason_of(errno);
  return done;
}

bool velabsReplacementFile::take(utString& failure) {
  if (target_.empty()) return true;
  if (rename(name_.c_str(), target_.c_str()) != 0) {
    failure = reason_of(errno);
    return false;
  }
  name_.clear();
  return true;
}

bool velabsReplacementFile::replace(utString& failure) {
  if (target_.empty()) return true;
  // An exchange keeps the old file until all is done, if there is one and the file system supports it. It is not used
  // on a directory, because it would exchange that too.
  auto move = [&](unsigned flags) { return renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target_.c_str(), flags) == 0; };
  struct stat status;
  const bool over_file = stat(target_.c_str(), &status) == 0 && S_ISREG(status.st_mode);
  if (over_file && move(RENAME_EXCHANGE)) {
    place_ = Place::exchanged;
    return true;
  }
  if (move(RENAME_NOREPLACE)) {
    place_ = Place::added;
  } else if (rename(name_.c_str(), target_.c_str()) == 0) {
    place_ = Place::replaced;
  } else {
    failure = reason_of(errno);
    return false;
  }
  name_.clear();
  return true;
}

void velabsReplacementFile::undo() {
  const Place place = std::exchange(place_, Place::none);
  if (place == Place::added) unlink(target_.c_str());
  if (place == Place::exchanged) renameat2(AT_FDCWD, name_.c_str(), AT_FDCWD, target_.c_str(), RENAME_EXCHANGE);
}

void velabsReplacementFile::keep() {
  place_ = Place::none;
  if (!name_.empty()) unlink(name_.c_str());
  name_.clear();
}
