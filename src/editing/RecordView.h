#pragma once

#include <cstddef>
#include <string>

namespace repvolta {

enum class RecordPhase {
  kReady,      // for a start
  kRoom,       // hears how quiet the room is
  kWaiting,    // for the word
  kRecording,  // it
  kPlaying,    // what was recorded, or the clip that is there
  kAsking,     // whether it shall be kept
  kDone,       // with the list
};

/// How a take went.
enum class TakeQuality { kNone, kGood, kFaulty, kNothingHeard };

/// Where a recording session stands.
struct RecordPlace {
  RecordPhase phase = RecordPhase::kDone;
  std::string words;   // "" where a language says nothing
  std::size_t at = 0;  // of the list
  std::size_t count = 0;
  std::size_t kept = 0;
  TakeQuality take = TakeQuality::kNone;
  std::string verdict;       // on the take, or what went wrong
  std::string noMicrophone;  // why nothing can be recorded now; "" while it can
};

/// What "Record Words" shows of it.
struct RecordView {
  enum class Enter { kNothing, kRecord, kKeep };

  std::string word;
  std::string progress;     // "12 of 60"
  std::string instruction;  // "Say it now."
  std::string verdict;
  std::string recordCaption;  // with its mnemonic
  std::string spoken;         // what a screen reader says
  Enter enter = Enter::kNothing;
  bool isListening = false;
  bool canRecord = false;
  bool canKeep = false;
  bool canListen = false;
  bool canGoOn = false;
  bool canGoBack = false;
};

RecordView ViewOf(const RecordPlace& place);

}  // namespace repvolta
