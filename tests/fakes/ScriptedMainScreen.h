#pragma once

#include <deque>
#include <string>
#include <vector>

#include "editing/MainScreen.h"

namespace repvolta {

/// Records in `calls`, in their order, what the start-up asks of the main window, and answers the
/// folder picker from a script.
class ScriptedMainScreen : public MainScreen {
 public:
  void ShowMessage(std::string_view text, std::string_view title) override {
    calls.push_back("message: " + std::string(title));
    messages.emplace_back(text);
  }
  void ShowWorkoutNames() override { calls.emplace_back("workout names"); }
  void UpdateWorkoutScreen() override { calls.emplace_back("workout screen"); }
  void UpdateExerciseScreen() override { calls.emplace_back("exercise screen"); }
  void UpdateSettingsScreen() override { calls.emplace_back("settings screen"); }
  std::string SelectDirectory() override {
    calls.emplace_back("select directory");
    std::string folder = folders.at(0);
    folders.pop_front();
    return folder;
  }
  void ShowPaths() override { calls.emplace_back("paths"); }
  void ShowDefaultExerciseTime() override { calls.emplace_back("default time"); }
  void SelectWorkout(int index) override { calls.push_back("workout " + std::to_string(index)); }
  int SelectedWorkout() const override { return selectedWorkout; }
  void EnableWorkoutControls() override { calls.emplace_back("enable"); }
  void ShowTab(WindowTab tab) override {
    calls.push_back("tab " + std::to_string(static_cast<int>(tab)));
  }
  void SelectSet(int /*row*/) override {}
  void SelectMusic(int /*row*/) override {}
  void ShowVoices(const std::vector<std::string>& names) override {
    calls.emplace_back("voices");
    voices = names;
  }
  void ShowAudioOutputs(const std::vector<std::string>& names) override {
    calls.emplace_back("audio outputs");
    outputs = names;
  }
  void ShowFormats() override { calls.emplace_back("formats"); }

  void AddLineToUpdateList(std::string_view /*line*/) override {}
  void ShowUpdateForm() override {}
  void HideUpdateForm() override {}
  void OpenPlayList(const std::string& /*path*/) override {}
  bool KeepWaiting() override { return false; }
  bool StopRequested() override { return false; }

  std::vector<std::string> calls;
  std::vector<std::string> messages;
  std::vector<std::string> voices;
  std::vector<std::string> outputs;
  std::deque<std::string> folders;
  int selectedWorkout = -1;
};

}  // namespace repvolta
