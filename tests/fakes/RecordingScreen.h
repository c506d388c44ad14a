#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/UserInterface.h"

namespace repvolta {

/// Records what it is asked to show.
class RecordingScreen : public UserInterface {
 public:
  void AddLineToUpdateList(std::string_view line) override {
    log.emplace_back(line);
    calls.push_back("line");
  }
  void ShowMessage(std::string_view text, std::string_view title) override {
    messages.emplace_back(text);
    titles.emplace_back(title);
    calls.emplace_back("message");
  }
  void ShowWorkoutNames() override { calls.emplace_back("names"); }
  void UpdateWorkoutScreen() override { calls.emplace_back("workout screen"); }
  void UpdateExerciseScreen() override { calls.emplace_back("exercise screen"); }
  void ShowUpdateForm() override {
    calls.emplace_back("show");
    log.clear();
  }
  void HideUpdateForm() override { calls.emplace_back("hide"); }
  void OpenPlayList(const std::string& path) override { opened.push_back(path); }
  bool KeepWaiting() override { return keepWaiting && keepWaiting(); }
  bool StopRequested() override { return stopRequested && stopRequested(); }

  std::vector<std::string> log;
  std::vector<std::string> messages;
  std::vector<std::string> titles;
  std::vector<std::string> opened;
  std::vector<std::string> calls;
  std::function<bool()> keepWaiting;
  std::function<bool()> stopRequested;
};

}  // namespace repvolta
