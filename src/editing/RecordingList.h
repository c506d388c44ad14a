#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/ProgramState.h"

namespace repvolta {

/// A clip that a person can record: its file below the folder of clips, and what is to be said; ""
/// where a language says nothing.
struct WordToRecord {
  std::string file;  // "300.wav", "exercise/Squat.WAV"
  std::string words;

  bool operator==(const WordToRecord&) const = default;
};

enum class WhatToRecord {
  kAllWords,
  kMissing,       // words, and names of the workout, that have no clip
  kWorkoutNames,  // of the workout in memory
  kChosen,
};

enum class OwnRecordings { kInclude, kLeaveOut };

/// What a person wants to record.
struct RecordingWish {
  WhatToRecord what = WhatToRecord::kAllWords;
  OwnRecordings own = OwnRecordings::kLeaveOut;
  std::string wordList;             // the path of a word list; "" for the program's English words
  std::vector<std::string> chosen;  // files, for kChosen

  bool operator==(const RecordingWish&) const = default;
};

/// True for a clip that the person has recorded.
using IsOwnRecording = std::function<bool(const std::string& file)>;

/// What is to be recorded, in the order in which it is asked for, each clip once. The program
/// directory must be current. Throws FileError, and ClipError for a word list with a fault.
std::vector<WordToRecord> ListToRecord(const RecordingWish& wish, const ProgramState& state,
                                       const IsOwnRecording& isOwn);

/// A language in which the words can be shown.
struct RecordingLanguage {
  std::string name;      // "German"
  std::string wordList;  // as RecordingWish has it

  bool operator==(const RecordingLanguage&) const = default;
};

/// English, then those of the word lists in `folder`, in name order; "" is no folder. Throws
/// FileError when the folder cannot be read.
std::vector<RecordingLanguage> RecordingLanguages(const std::string& folder);

}  // namespace repvolta
