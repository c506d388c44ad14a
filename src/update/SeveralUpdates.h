#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "update/UpdateHost.h"

namespace repvolta {

/// The host of updates that follow each other: makes one progress of all of them.
class SeveralUpdates : public UpdateHost {
 public:
  /// `workouts` are names of files in the workout folder. The program directory must be current: if
  /// the host is watched, the files are read for the songs that they list, of which some may be
  /// drawn anew.
  SeveralUpdates(UpdateHost& host, std::vector<std::string> workouts);

  /// The next workout's turn. Throws UpdateStopped when the person has stopped the update.
  void BeginNext();

  /// The workouts whose turn has not come.
  std::vector<std::string> NotBegun() const;

  void UpdateBegins() override { host_.UpdateBegins(); }
  void UpdateEnded(const UpdateResult& result) override { host_.UpdateEnded(result); }
  bool IsWatched() const override { return host_.IsWatched(); }
  void ShowWork(const WorkDone& work) override;
  bool KeepWaiting() override { return host_.KeepWaiting(); }
  bool StopRequested() override { return host_.StopRequested(); }

 private:
  UpdateHost& host_;
  std::vector<std::string> workouts_;
  std::vector<std::uint64_t> ahead_;  // work, as estimated, of each workout
  std::size_t begun_ = 0;
  std::uint64_t before_ = 0;  // the work of the workouts that are done
  std::uint64_t after_ = 0;   // of those that are not begun
  std::uint64_t current_ = 0;
};

}  // namespace repvolta
