#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "editing/Editor.h"

#include "fakes/RecordingRun.h"

namespace repvolta {

/// Records in `calls`, in order, what the commands and the start ask of the windows and the person;
/// answers the folder picker from a script.
class RecordingWindow : public RecordingRun,
                        public MainScreen,
                        public Dialogs,
                        public ProgressWindow {
 public:
  /// An editor that works with this window only.
  Editor EditorOf(Program& program) {
    return {.program = program,
            .log = *this,
            .host = *this,
            .screen = *this,
            .dialogs = *this,
            .progress = *this,
            .pleaseWait = pleaseWait,
            .runEvents = [] {}};
  }

  // Dialogs
  void ShowMessage(std::string_view text, std::string_view title) override {
    calls.push_back("message: " + std::string(title));
    messages.emplace_back(text);
  }
  bool Confirm(std::string_view /*text*/, std::string_view /*title*/) override { return true; }
  std::string AskText(std::string_view /*prompt*/, std::string_view /*title*/,
                      const AnswerHelp& /*help*/, std::string_view /*initial*/) override {
    return {};
  }
  std::optional<std::size_t> Choose(std::string_view /*prompt*/, std::string_view /*title*/,
                                    const std::vector<std::string>& /*items*/) override {
    return std::nullopt;
  }
  std::string SelectExercise() override { return {}; }
  std::string SelectDirectory(const FolderQuestion& /*question*/) override {
    calls.emplace_back("select directory");
    std::string folder = folders.at(0);
    folders.pop_front();
    return folder;
  }
  std::vector<std::string> SelectMusicFiles(const std::string& /*startFolder*/) override {
    return {};
  }
  std::string ChooseFileToSave(const FileQuestion& /*question*/) override { return {}; }
  std::string ChooseFileToOpen(const FileQuestion& /*question*/) override { return {}; }
  void ShowLongWork(std::string_view /*text*/, const LongWork& work) override {
    work([](int /*percent*/) {});
  }
  std::optional<std::vector<PathExchange>> AskRestore(const RestoreQuestion& question) override {
    static_cast<void>(question.plan(question.exchanges));
    return question.exchanges;
  }
  PreviewOutcome ShowPreview(const std::function<Preview()>& /*plan*/,
                             Listening* /*listening*/) override {
    return {};
  }
  std::optional<ChosenVersion> ChooseVersion(EarlierVersions& /*versions*/) override {
    return std::nullopt;
  }
  void ShowAbout() override {}
  void OpenDocument(const std::string& path) override { opened.push_back(path); }
  void OpenGuide(std::string_view /*page*/) override {}

  // ProgressWindow
  void Show() override {}
  void Hide() override { calls.emplace_back("hide"); }
  void UpdateEnds() override {}
  void ShowOutcome(const OutcomeTexts& outcome) override {
    calls.push_back("outcome: " + outcome.text);
  }
  void ShowAgain() override {}
  void OnOpenFolder(std::function<void(const std::string&)> /*open*/) override {}
  void OnStop(std::function<void()> /*stop*/) override {}
  void ShowProgress(const Progress& /*progress*/) override {}
  void AddLine(std::string_view line) override { AddLineToUpdateList(line); }

  // MainScreen
  void ShowWorkoutNames() override { calls.emplace_back("workout names"); }
  void UpdateWorkoutScreen() override { calls.emplace_back("workout screen"); }
  void UpdateExerciseScreen() override { calls.emplace_back("exercise screen"); }
  void UpdateSettingsScreen() override { calls.emplace_back("settings screen"); }
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

  std::vector<std::string> messages;
  std::vector<std::string> opened;
  std::vector<std::string> voices;
  std::vector<std::string> outputs;
  std::deque<std::string> folders;
  int selectedWorkout = -1;

 private:
  /// Records the please-wait window.
  class Patience : public PleaseWait {
   public:
    explicit Patience(std::vector<std::string>& calls) : calls_(calls) {}
    void Show() override { calls_.emplace_back("please wait"); }
    void Hide() override {}

   private:
    std::vector<std::string>& calls_;
  };

  Patience pleaseWait{calls};
};

}  // namespace repvolta
