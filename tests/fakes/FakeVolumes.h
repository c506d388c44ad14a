#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Volumes.h"

namespace repvolta {

/// Volumes that a test plugs in and pulls out.
class FakeVolumes : public Volumes {
 public:
  explicit FakeVolumes(std::vector<Volume> volumes) : volumes_(std::move(volumes)) {}

  /// Fixed volumes with these roots.
  explicit FakeVolumes(const std::vector<std::string>& roots) {
    for (const std::string& root : roots) volumes_.push_back({.root = root});
  }

  std::vector<Volume> Now() override { return volumes_; }
  void OnChange(std::function<void()> tell) override { tell_ = std::move(tell); }

  /// Calls who asked to be told.
  void ChangeTo(std::vector<Volume> volumes) {
    volumes_ = std::move(volumes);
    if (tell_) tell_();
  }

 private:
  std::vector<Volume> volumes_;
  std::function<void()> tell_;
};

}  // namespace repvolta
