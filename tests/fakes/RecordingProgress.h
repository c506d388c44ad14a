#pragma once

#include <functional>
#include <string>
#include <vector>

#include "editing/ProgressWindows.h"

namespace repvolta {

/// Records what the progress window shows.
class RecordingProgress : public ProgressWindow {
 public:
  void Show() override {
    lines.clear();
    visible = true;
    ++shown;
  }
  void Hide() override { visible = false; }
  void UpdateEnds() override { ++ended; }
  void ShowOutcome(const OutcomeTexts& outcome) override { outcomes.push_back(outcome); }
  void ShowAgain() override { visible = true; }
  void OnOpenFolder(std::function<void(const std::string&)> onOpen) override {
    openFolder = std::move(onOpen);
  }
  void OnStop(std::function<void()> onStop) override { stop = std::move(onStop); }
  void ShowProgress(const Progress& progress) override { shares.push_back(progress.percent); }
  void AddLine(std::string_view line) override {
    lines.emplace_back(line);
    if (whenLine) whenLine();
  }

  std::vector<std::string> lines;
  std::vector<OutcomeTexts> outcomes;
  std::function<void(const std::string&)> openFolder;  // as the person would
  std::vector<int> shares;                             // per cent
  bool visible = false;
  int shown = 0;
  int ended = 0;
  std::function<void()> whenLine;
  std::function<void()> stop;  // as the person would
};

class RecordingPleaseWait : public PleaseWait {
 public:
  void Show() override {
    visible = true;
    ++shown;
  }
  void Hide() override { visible = false; }

  bool visible = false;
  int shown = 0;
};

}  // namespace repvolta
