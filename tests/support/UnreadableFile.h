#pragma once

#include <filesystem>
#include <linux/capability.h>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While it lives the file cannot be read, though it is there. The superuser gives up the right to
/// pass over the mode.
class UnreadableFile {
 public:
  explicit UnreadableFile(std::string path)
      : path_(std::move(path)), mode_(std::filesystem::status(path_).permissions()) {
    std::filesystem::permissions(path_, std::filesystem::perms::none);
    syscall(SYS_capget, &header_, before_);
    __user_cap_data_struct fewer[2] = {before_[0], before_[1]};
    fewer[0].effective &= ~((1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH));
    syscall(SYS_capset, &header_, fewer);
  }
  ~UnreadableFile() {
    syscall(SYS_capset, &header_, before_);
    std::filesystem::permissions(path_, mode_);
  }
  UnreadableFile(const UnreadableFile&) = delete;
  UnreadableFile& operator=(const UnreadableFile&) = delete;

 private:
  std::string path_;
  std::filesystem::perms mode_;
  __user_cap_header_struct header_{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
  __user_cap_data_struct before_[2]{};
};

}  // namespace repvolta
