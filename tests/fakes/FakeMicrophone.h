#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/Microphone.h"

namespace repvolta {

/// Hears what a test says.
class FakeMicrophone : public Microphone {
 public:
  std::vector<std::string> Inputs() override { return inputs; }

  void Open(const ChosenInput& input, Heard heard, Lost lost) override {
    Close();
    if (!refusal.empty()) throw SoundError(refusal);
    opened.push_back(input.name);
    heard_ = std::move(heard);
    lost_ = std::move(lost);
  }

  void Close() override {
    heard_ = {};
    lost_ = {};
  }

  bool IsOpen() const { return static_cast<bool>(heard_); }

  /// The sound at Microphone::kRate, in blocks as an input gives them, until it is closed.
  void Hear(std::span<const float> samples) {
    for (; !samples.empty() && heard_;
         samples = samples.subspan(std::min(kBlock, samples.size()))) {
      const Heard heard = heard_;
      heard(samples.first(std::min(kBlock, samples.size())));
    }
  }

  /// The input is gone.
  void Lose(const std::string& reason) {
    const Lost lost = std::exchange(lost_, {});
    Close();
    lost(reason);
  }

  std::vector<std::string> inputs = {"Microphone"};
  std::string refusal;              // why nothing can be opened
  std::vector<std::string> opened;  // the names that were asked for

 private:
  static constexpr std::size_t kBlock = 960;  // 20 milliseconds

  Heard heard_;
  Lost lost_;
};

}  // namespace repvolta
