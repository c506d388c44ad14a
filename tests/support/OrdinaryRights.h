#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace repvolta {

/// While this object exists, the superuser has no more rights to files than other users.
class OrdinaryRights {
 public:
  OrdinaryRights() {
    syscall(SYS_capget, &header_, before_);
    __user_cap_data_struct fewer[2] = {before_[0], before_[1]};
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH, CAP_FOWNER, CAP_CHOWN}) {
      fewer[0].effective &= ~(1U << right);
    }
    syscall(SYS_capset, &header_, fewer);
  }
  ~OrdinaryRights() { syscall(SYS_capset, &header_, before_); }
  OrdinaryRights(const OrdinaryRights&) = delete;
  OrdinaryRights& operator=(const OrdinaryRights&) = delete;

 private:
  __user_cap_header_struct header_{.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
  __user_cap_data_struct before_[2]{};
};

}  // namespace repvolta
