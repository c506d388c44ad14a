#pragma once

#include <sys/resource.h>

namespace repvolta {

/// While it lives no file can be opened, though each is there: the table of open files is full.
class NoMoreFiles {
 public:
  NoMoreFiles() {
    getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit limit{0, before_.rlim_max};
    setrlimit(RLIMIT_NOFILE, &limit);
  }
  ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }
  NoMoreFiles(const NoMoreFiles&) = delete;
  NoMoreFiles& operator=(const NoMoreFiles&) = delete;

 private:
  rlimit before_{};
};

}  // namespace repvolta
