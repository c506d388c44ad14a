#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While it lives the superuser, too, gives up the right to pass over the modes of files.
class ObeysModes {
 public:
  ObeysModes() {
    syscall(SYS_capget, &header_, before_);
    __user_cap_data_struct fewer[2] = {before_[0], before_[1]};
    fewer[0].effective &= ~((1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH));
    syscall(SYS_capset, &header_, fewer);
  }
  ~ObeysModes() { syscall(SYS_capset, &header_, before_); }
  ObeysModes(const ObeysModes&) = delete;
  ObeysModes& operator=(const ObeysModes&) = delete;

 private:
  __user_cap_header_struct header_{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
  __user_cap_data_struct before_[2]{};
};

}  // namespace repvolta
