#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/ProgressLog.h"
#include "update/UpdateHost.h"

namespace repvolta {

/// Records an update's log lines and its requests to the host.
class RecordingRun : public ProgressLog, public UpdateHost {
 public:
  void AddLineToUpdateList(std::string_view line) override {
    log.emplace_back(line);
    calls.emplace_back("line");
  }
  void UpdateBegins() override {
    calls.emplace_back("show");
    log.clear();
  }
  void UpdateEnded(const UpdateResult& result) override {
    results.push_back(result);
    logAtEnd = log;
  }
  bool IsWatched() const override { return isWatched; }
  void ShowWork(const WorkDone& work) override {
    progress.push_back(work);
    if (whenProgress) whenProgress(work);
  }
  bool KeepWaiting() override { return keepWaiting && keepWaiting(); }
  bool StopRequested() override { return stopRequested && stopRequested(); }

  std::vector<std::string> log;
  std::vector<std::string> calls;
  std::vector<WorkDone> progress;
  std::vector<UpdateResult> results;
  std::vector<std::string> logAtEnd;
  bool isWatched = false;
  std::function<void(const WorkDone&)> whenProgress;
  std::function<bool()> keepWaiting;
  std::function<bool()> stopRequested;
};

}  // namespace repvolta
