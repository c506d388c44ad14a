#pragma once

#include <sys/resource.h>

namespace repvolta {

/// While it lives this process may use no more than `limit` of a resource (RLIMIT_...).
class ResourceLimit {
 public:
  ResourceLimit(__rlimit_resource resource, rlim_t limit) : resource_(resource) {
    getrlimit(resource_, &before_);
    const rlimit lower{limit, before_.rlim_max};
    setrlimit(resource_, &lower);
  }
  ~ResourceLimit() { setrlimit(resource_, &before_); }
  ResourceLimit(const ResourceLimit&) = delete;
  ResourceLimit& operator=(const ResourceLimit&) = delete;

 private:
  __rlimit_resource resource_;
  rlimit before_{};
};

}  // namespace repvolta
