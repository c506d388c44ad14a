#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "editing/Dialogs.h"

namespace repvolta {

/// Records the requested boxes and dialogs as "kind|title|text" and answers them from a script. A
/// box without an answer in the script fails the test.
class ScriptedDialogs : public Dialogs {
 public:
  void ShowMessage(std::string_view text, std::string_view title) override {
    Record("message", title, text);
  }

  bool Confirm(std::string_view text, std::string_view title) override {
    Record("confirm", title, text);
    return NextAnswer() == "OK";
  }

  std::string AskText(std::string_view prompt, std::string_view title, const AnswerHelp& help,
                      std::string_view initial) override {
    Record("ask", title, prompt);
    nowLines.push_back(help.now);
    if (!answers.empty()) keptLines.push_back(help.kept(answers.front()));
    if (!initial.empty()) asked.back() += "|" + std::string(initial);
    return NextAnswer();
  }

  /// The answer is one of the items, or "".
  std::optional<std::size_t> Choose(std::string_view prompt, std::string_view title,
                                    const std::vector<std::string>& items) override {
    Record("choose", title, prompt);
    const std::string answer = NextAnswer();
    const auto found = std::find(items.begin(), items.end(), answer);
    if (found == items.end()) return std::nullopt;
    return static_cast<std::size_t>(found - items.begin());
  }

  std::string SelectExercise() override {
    asked.emplace_back("exercise");
    return NextAnswer();
  }

  std::string SelectDirectory(const FolderQuestion& question) override {
    asked.emplace_back("directory");
    questions.push_back(question);
    return NextAnswer();
  }

  /// The answer has a line for each file.
  std::vector<std::string> SelectMusicFiles(const std::string& startFolder) override {
    asked.push_back("music|" + startFolder);
    std::vector<std::string> files;
    std::istringstream lines(NextAnswer());
    for (std::string file; std::getline(lines, file);) files.push_back(file);
    return files;
  }

  std::string ChooseFileToSave(const FileQuestion& question) override {
    asked.push_back("save|" + question.title + "|" + question.file);
    return NextAnswer();
  }

  std::string ChooseFileToOpen(const FileQuestion& question) override {
    asked.push_back("open|" + question.title);
    return NextAnswer();
  }

  void ShowLongWork(std::string_view text, const LongWork& work) override {
    asked.push_back("work|" + std::string(text));
    work([this](int percent) {
      shares.push_back(percent);
      if (percent >= stopAt) throw WorkStopped();
    });
    if (whenWorkEnds) whenWorkEnds();
  }

  /// The exchanges are those of `restoreAnswer`, or the proposed ones.
  std::optional<std::vector<PathExchange>> AskRestore(const RestoreQuestion& question) override {
    asked.push_back("restore|" + question.heading);
    proposals = question.exchanges;
    const auto answer = restoreAnswer ? *restoreAnswer : question.exchanges;
    restorePlan = question.plan(answer).lines;
    return NextAnswer() == "OK" ? std::optional(answer) : std::nullopt;
  }

  PreviewOutcome ShowPreview(const std::function<Preview()>& plan,
                             Listening* /*listening*/) override {
    asked.emplace_back("preview");
    previews.push_back(plan());
    return previewOutcome;
  }

  /// The person chooses the version as `chooseVersion` does, or none.
  std::optional<ChosenVersion> ChooseVersion(EarlierVersions& versions) override {
    asked.emplace_back("version");
    return chooseVersion ? chooseVersion(versions) : std::nullopt;
  }

  void ShowAbout() override { asked.emplace_back("about"); }

  void OpenDocument(const std::string& path) override { opened.push_back(path); }

  void OpenGuide(std::string_view page) override { guide.emplace_back(page); }

  std::vector<std::string> asked;
  std::vector<std::string> nowLines;   // below the fields of the input boxes
  std::vector<std::string> keptLines;  // what they say of the answers
  std::vector<FolderQuestion> questions;
  std::vector<std::string> opened;
  std::vector<std::string> guide;  // the pages
  std::deque<std::string> answers;
  std::vector<Preview> previews;
  PreviewOutcome previewOutcome;
  std::function<std::optional<ChosenVersion>(EarlierVersions&)> chooseVersion;
  std::function<void()> whenAsked;
  std::function<void()> whenWorkEnds;
  std::vector<PathExchange> proposals;  // of the last restore
  std::vector<std::string> restorePlan;
  std::optional<std::vector<PathExchange>> restoreAnswer;
  std::vector<int> shares;  // per cent of the long works
  int stopAt = 101;         // per cent

 private:
  void Record(const std::string& kind, std::string_view title, std::string_view text) {
    asked.push_back(kind + "|" + std::string(title) + "|" + std::string(text));
    if (whenAsked) whenAsked();
  }

  std::string NextAnswer() {
    if (answers.empty()) {
      ADD_FAILURE() << "There is no answer to " << asked.back();
      return "";
    }
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

}  // namespace repvolta
