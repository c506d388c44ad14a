#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Disks.h"

namespace repvolta {

/// Disks whose answers a test gives when it likes.
class FakeDisks : public Disks {
 public:
  void Ask(const std::string& folder, std::function<void(const Ejection&)> tell) override {
    asked.push_back(folder);
    answer = std::move(tell);
  }
  void Eject(const std::string& folder,
             std::function<void(const std::string& failure)> tell) override {
    ejected.push_back(folder);
    end = std::move(tell);
  }

  std::vector<std::string> asked;
  std::vector<std::string> ejected;
  std::function<void(const Ejection&)> answer;
  std::function<void(const std::string& failure)> end;
};

}  // namespace repvolta
