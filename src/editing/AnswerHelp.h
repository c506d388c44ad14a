#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace repvolta {

/// What stands below the field of an input box.
struct AnswerHelp {
  /// What is asked for and its value now: "Squat, set 2, Weight: 50 kilograms now."
  std::string now;

  /// What the command would keep of an answer: "Will be kept: 57 kilograms."
  std::function<std::string(std::string_view answer)> kept = [](std::string_view /*answer*/) {
    return std::string();
  };
};

}  // namespace repvolta
