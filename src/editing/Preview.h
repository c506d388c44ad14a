#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "app/ProblemCount.h"

namespace repvolta {

/// A place of the main window, or of the guide, where something of the plan can be changed.
struct PreviewPlace {
  enum class Kind {
    kWorkout,
    kExercise,
    kSet,
    kSong,
    kTargetTime,
    kRandomMusicList,
    kOutputPath,
    kGuide  // it is mended outside the program; the guide says how
  };

  Kind kind;
  int exercise = -1;  // -1: of no exercise
  int row = -1;       // of the set or the song; -1 selects none

  bool operator==(const PreviewPlace&) const = default;
};

/// What will go wrong, and where it is mended.
struct PreviewProblem {
  LineKind kind;
  std::string text;
  PreviewPlace place;
};

/// The columns of the table of files.
enum PreviewColumn : std::size_t {
  kPreviewName,
  kPreviewWhat,
  kPreviewTime,
  kPreviewSize,
  kPreviewColumns
};

/// A file that will be on the player.
struct PreviewFile {
  enum class Kind { kInstruction, kSong };

  Kind kind;
  int exercise;
  std::array<std::string, kPreviewColumns> cells;
  std::string details;  // what is spoken, or where the song comes from; lines
  PreviewPlace place;
};

/// The columns of the table of what grows.
enum GrowthColumn : std::size_t {
  kGrowthExercise,
  kGrowthSet,
  kGrowthValue,
  kGrowthNow,
  kGrowthAfter,
  kGrowthColumns
};
using PreviewGrowth = std::array<std::string, kGrowthColumns>;

/// What an update would do, as the preview shows it.
struct Preview {
  std::string headline;
  std::string outlook;  // how much will go wrong
  std::vector<PreviewProblem> problems;
  std::vector<PreviewFile> files;
  std::vector<PreviewGrowth> growth;
  std::string totals;
};

/// What the person wants when the preview is closed.
enum class AfterPreview { kNothing, kUpdate, kShowPlace };

struct PreviewOutcome {
  AfterPreview after = AfterPreview::kNothing;
  std::optional<PreviewPlace> place;  // to be shown
};

}  // namespace repvolta
