#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "keeping/VersionList.h"

namespace repvolta {

/// A version that a person wants back, as it was read.
struct ChosenVersion {
  std::string fileName;  // of the workout: "Monday.RPV"
  Bytes bytes;
};

/// The columns of the list of versions: "Sun 22 Nov 2026, 05:32", "before an update", "3 exercises:
/// Bench Press, Plank and Squat".
enum VersionColumn : std::size_t { kVersionTime, kVersionReason, kVersionContent };
using VersionRow = std::array<std::string, kVersionContent + 1>;

/// What there is to know of one version.
struct VersionView {
  std::string heading;  // of the text
  std::string text;
  bool canBeRestored = false;
  bool isGone = false;  // it was there when the list was made
};

/// The workouts and their kept versions, as RestoreVersionForm shows them. Workouts and versions
/// are counted from 0 in the order of the last Refresh. The program directory must be current.
/// Only Refresh and the constructor throw: FileError when the folders cannot be read at all.
class EarlierVersions {
 public:
  /// `present` is the file name of the workout in memory; "" for none.
  explicit EarlierVersions(std::string present);

  /// Lists anew what is there.
  void Refresh();

  bool AreNone() const;

  /// "Monday", "Tuesday (deleted)"; the present workout first.
  std::vector<std::string> Workouts() const;

  /// The versions of a workout, the newest first.
  std::vector<VersionRow> Rows(std::size_t workout) const;

  /// Why the list of a workout is empty or may lack versions; "" when there is nothing to say.
  std::string Remark(std::size_t workout) const;

  /// What would change in a workout, or what a deleted one had.
  VersionView View(std::size_t workout, std::size_t version) const;

  /// Nothing when it cannot be restored: see View.
  std::optional<ChosenVersion> Read(std::size_t workout, std::size_t version) const;

 private:
  std::string present_;
  std::vector<KeptWorkout> workouts_;
};

}  // namespace repvolta
