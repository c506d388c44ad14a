#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/ProgramState.h"
#include "instruction/SpokenWords.h"
#include "platform/RandomNumbers.h"
#include "update/Growth.h"
#include "update/Room.h"

namespace repvolta {

/// A file that an update would write to the player.
struct PlannedFile {
  enum class Kind { kInstruction, kSong };

  /// Whether its time and size are known or, as before encoding, estimated.
  enum class Figures { kExact, kEstimated };

  /// An example is a song that was drawn at random: the update draws anew.
  enum class Choice { kSet, kExample };

  Kind kind;
  std::string name;     // "RV001-Instructions.mp3"; the player may not take every name
  std::string title;    // in its new tag; "" when it gets none, like a WAV file
  std::string source;   // the path of a song; "" for an instruction
  int seconds;          // kUnknownSeconds when it has no play time
  std::uint64_t bytes;  // with its tag
  Figures figures;
  Choice choice;

  bool operator==(const PlannedFile&) const = default;
};

/// One exercise of the workout, as it will be after it has grown.
struct PlannedExercise {
  std::string name;
  std::vector<SetGrowth> growth;
  std::string sentence;            // "Squat - 1 set, 135lb for 1rep"; "" when it cannot be said
  std::vector<Clip> clips;         // as they are heard
  std::vector<PlannedFile> files;  // in play order, the instruction first

  bool operator==(const PlannedExercise&) const = default;
};

inline constexpr int kNoExercise = -1;

/// Something that will go wrong, as far as it can be known before.
struct PlannedProblem {
  /// What is to be mended, and thereby where.
  enum class Kind {
    kSongGone,        // or cannot be read; row: the song
    kOddSong,         // its copy is not in the play list, or keeps an old tag; row: the song
    kNoRecording,     // of a name or a word
    kUnspeakable,     // a set cannot be said
    kGrowth,          // a value cannot grow; row: the set
    kDateAhead,       // a date of growth lies in the future; row: the set
    kNoSongFits,      // a target time that no listed song fits
    kMusicListEmpty,  // random music is wanted from an empty list
    kMusicListOld,    // the list is older than the music; a listed song is gone
    kNoOutputPath,    // not set, not there, or the old folder there must not be deleted
    kLackOfRoom,
    kNoEncoder,
    kDamagedWorkout,
    kNotSaved,  // the workout's file cannot be written
  };

  /// An error is one that the update would log as such, too.
  enum class Severity { kError, kWarning };

  Kind kind;
  Severity severity;
  int exercise;      // index; kNoExercise when it concerns all
  int row;           // see Kind; -1 where there is none
  std::string text;  // a sentence, and what to do

  /// Of an error: the line that the update would log. "" where that depends on what happens then.
  std::string line = {};

  bool operator==(const PlannedProblem&) const = default;
};

/// What an update of a workout would do on a day.
struct UpdatePlan {
  std::string workout;  // the name of its file
  double day;
  std::string folder;    // on the player, its full path
  std::string playList;  // its name; "" without files
  std::vector<PlannedExercise> exercises;
  std::vector<PlannedProblem> problems;  // those of all first, then exercise by exercise
  std::int64_t seconds;                  // of all files whose play time is known
  std::uint64_t bytes;                   // of all files and play lists
  std::optional<DiskRoom> room;          // on the player, with that of the old files, which are
                                         // deleted first; nothing when it cannot be known

  bool operator==(const UpdatePlan&) const = default;
};

}  // namespace repvolta
