#include "update/StopTexts.h"

namespace repvolta {
namespace {

constexpr const char* kStopped = "STOPPED: ";

const char* IsOrAre(std::size_t count) { return count == 1 ? " is " : " are "; }

/// "A", "A and B", "A, B and C".
std::string Enumerated(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
    text += names[i];
  }
  return text;
}

}  // namespace

std::string StoppedText(std::size_t there, std::size_t planned,
                        const std::vector<std::string>& exercises) {
  std::string text = kStopped + std::to_string(there) + " of " + std::to_string(planned) +
                     (planned == 1 ? " file" : " files") + IsOrAre(planned == 1 ? planned : there) +
                     "on the player";
  if (!exercises.empty()) text += "; files of " + Enumerated(exercises) + " are missing";
  return text + ".";
}

std::string StoppedUnchangedText(const std::string& workout) {
  return kStopped + std::string("No new file is on the player, and ") + workout +
         " is as it was before.";
}

std::string NotUpdatedText(const std::vector<std::string>& workouts) {
  return kStopped + Enumerated(workouts) + IsOrAre(workouts.size()) + "not updated.";
}

}  // namespace repvolta
