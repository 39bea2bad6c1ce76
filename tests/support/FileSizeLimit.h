// No file of this process may grow beyond a length until the end of the scope: writing further fails as on a
// full disk.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tembrel::test {

class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : handlerBefore(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limitBefore);
    const rlimit limit{bytes, limitBefore.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &limitBefore);
    std::signal(SIGXFSZ, handlerBefore);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit limitBefore{};
  void (*handlerBefore)(int);
};

}  // namespace tembrel::test
