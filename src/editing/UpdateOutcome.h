#pragma once

#include <string>
#include <vector>

#include "app/ProblemCount.h"
#include "editing/Editor.h"
#include "update/UpdateResult.h"

namespace repvolta {

/// What came out of an update, of one workout or of several.
class UpdateOutcome {
 public:
  void Add(const UpdateResult& result) { results_.push_back(result); }
  void AddLine(LineKind kind) { problems_.Add(kind); }

  /// True when no workout was updated.
  bool IsEmpty() const { return results_.empty(); }

  /// "Monday: 23 files, 41 min, no errors"; of several workouts the sum: "3 workouts: ...".
  std::string Text() const;

  /// The folder with the files: the workout's own, or that of all; "" when it is empty.
  std::string Folder() const;

  /// True when all files of a workout are there.
  bool HasCompleteWorkout() const;

 private:
  std::string Subject() const;

  std::vector<UpdateResult> results_;
  ProblemCount problems_;
};

/// After the first complete update of all: how its files get into the player. Notes in the options
/// that it was told, and returns "" from then on.
std::string TakePlayerHint(const Editor& editor);

}  // namespace repvolta
