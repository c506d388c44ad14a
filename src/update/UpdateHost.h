#pragma once

#include "update/Progress.h"
#include "update/UpdateResult.h"

namespace repvolta {

/// The services that an update needs from the program that runs it.
class UpdateHost {
 public:
  virtual ~UpdateHost() = default;

  /// A new update begins: a window shows itself and clears the lines of the previous update.
  virtual void UpdateBegins() {}

  /// The update of a workout is over, completely or by a stop; all its lines have been logged.
  virtual void UpdateEnded(const UpdateResult& /*result*/) {}

  /// True when somebody sees ShowWork. Then the size and play time of each song are looked up, and
  /// long copies go in small pieces, at the pace of the player.
  virtual bool IsWatched() const { return false; }

  /// Called whenever some work has been done or begun, if the update is watched.
  virtual void ShowWork(const WorkDone& /*work*/) {}

  /// Called repeatedly while a copied file is not there yet; a window handles its events meanwhile.
  /// False: stop waiting for the file.
  virtual bool KeepWaiting() = 0;

  /// True when the person has stopped the update or ended the program: the update stops before its
  /// next step.
  virtual bool StopRequested() = 0;
};

}  // namespace repvolta
