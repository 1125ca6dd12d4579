#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "vluFileHelpers.h"

namespace {

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return number_; }
  bool close() {
    const int number = number_;
    number_ = -1;
    return ::close(number) == 0;
  }

 private:
  int number_;
};

bool write_all(int file, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t put = ::write(file, bytes, count);
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) return false;
    bytes += put;
    count -= static_cast<std::size_t>(put);
  }
  return true;
}

bool copy_content(int from, int to) {
  std::vector<char> buffer(std::size_t{1} << 18);
  for (;;) {
    const ssize_t got = ::read(from, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got == 0;
    if (!write_all(to, buffer.data(), static_cast<std::size_t>(got))) return false;
  }
}

// The target of a link, so that the link is kept; the path itself if the target does not exist.
std::string behind_links(const utString& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr), &std::free);
  return real ? real.get() : path.str();
}

}  // namespace

vluFileError vlu_copy_file(const utString& from, const utString& to) {
  const Descriptor source(open(from.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat source_status;
  if (source.number() < 0 || fstat(source.number(), &source_status) != 0 || !S_ISREG(source_status.st_mode)) {
    return vluFILE_NOT_COPIED;
  }
  struct stat target_status;
  if (stat(to.c_str(), &target_status) == 0) {
    if (target_status.st_dev == source_status.st_dev && target_status.st_ino == source_status.st_ino) {
      return vluFILE_DONE;
    }
    if (!S_ISREG(target_status.st_mode)) return vluFILE_NOT_COPIED;
  }

  // Written beside the target and renamed when complete.
  const std::string target = behind_links(to);
  const std::string beside = target.substr(0, target.rfind('/') + 1) + "." + vlu_random_text().str();
  Descriptor copy(open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (copy.number() < 0) return vluFILE_NOT_COPIED;
  const bool whole = copy_content(source.number(), copy.number()) &&
                     fchmod(copy.number(), source_status.st_mode & 0777) == 0 && copy.close() &&
                     std::rename(beside.c_str(), target.c_str()) == 0;
  if (whole) return vluFILE_DONE;
  unlink(beside.c_str());
  return vluFILE_NOT_COPIED;
}
