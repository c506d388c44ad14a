#include "editing/RecordView.h"

namespace repvolta {
namespace {

constexpr const char* kStart = "&Start";
constexpr const char* kStop = "&Stop";
constexpr const char* kAgain = "&Again";
constexpr const char* kNothingIsSaid = "(nothing)";
constexpr const char* kPlugIn = "Plug in a microphone, or press Space to try again.";

bool IsListening(RecordPhase phase) {
  return phase == RecordPhase::kRoom || phase == RecordPhase::kWaiting ||
         phase == RecordPhase::kRecording;
}

bool CanKeep(const RecordPlace& place) {
  const bool isAsked = place.phase == RecordPhase::kPlaying || place.phase == RecordPhase::kAsking;
  return isAsked && (place.take == TakeQuality::kGood || place.take == TakeQuality::kFaulty);
}

std::string WordOf(const RecordPlace& place) {
  if (place.phase == RecordPhase::kDone) return place.count == 0 ? "Nothing to record" : "Done";
  return place.words.empty() ? kNothingIsSaid : place.words;
}

std::string ProgressOf(const RecordPlace& place) {
  if (place.count == 0) return "";
  const std::string count = std::to_string(place.count);
  if (place.phase != RecordPhase::kDone) return std::to_string(place.at + 1) + " of " + count;
  return std::to_string(place.kept) + " of " + count + " recorded";
}

std::string Question(const RecordPlace& place) {
  if (place.words.empty()) {
    return "In this language nothing is said here. Enter puts a silent clip in its place.";
  }
  const bool isGood = place.take == TakeQuality::kGood;
  if (!place.noMicrophone.empty()) return isGood ? "Enter keeps it." : kPlugIn;
  return isGood ? "Enter keeps it, Space records it again." : "Space records it again.";
}

std::string InstructionOf(const RecordPlace& place) {
  switch (place.phase) {
    case RecordPhase::kReady:
      return place.noMicrophone.empty() ? "Press Space, and then say it." : kPlugIn;
    case RecordPhase::kRoom:
      return "Listening to the room ...";
    case RecordPhase::kWaiting:
      return "Say it now.";
    case RecordPhase::kRecording:
      return "Recording ...";
    case RecordPhase::kPlaying:
      return "This is how it sounds.";
    case RecordPhase::kAsking:
      return Question(place);
    case RecordPhase::kDone:
      break;
  }
  return place.count == 0 ? "There is nothing left here to record." : "That was the last one.";
}

/// Where nothing is to be said, and while something is heard, a microphone is not missed.
std::string VerdictOf(const RecordPlace& place) {
  const bool isMissed = place.phase != RecordPhase::kDone && !IsListening(place.phase) &&
                        !place.words.empty() && !place.noMicrophone.empty();
  if (!isMissed) return place.verdict;
  return place.verdict.empty() ? place.noMicrophone : place.verdict + " " + place.noMicrophone;
}

const char* CaptionOf(const RecordPlace& place) {
  if (IsListening(place.phase)) return kStop;
  return place.take == TakeQuality::kNone || place.words.empty() ? kStart : kAgain;
}

RecordView::Enter EnterOf(const RecordPlace& place) {
  if (place.phase == RecordPhase::kDone || IsListening(place.phase)) {
    return RecordView::Enter::kNothing;
  }
  const bool isGood = CanKeep(place) && place.take == TakeQuality::kGood;
  return isGood ? RecordView::Enter::kKeep : RecordView::Enter::kRecord;
}

std::string Sentence(const std::string& words) { return words + ". "; }

}  // namespace

RecordView ViewOf(const RecordPlace& place) {
  const bool isDone = place.phase == RecordPhase::kDone;
  RecordView view;
  view.word = WordOf(place);
  view.progress = ProgressOf(place);
  view.instruction = InstructionOf(place);
  view.verdict = VerdictOf(place);
  view.recordCaption = CaptionOf(place);
  view.spoken = Sentence(view.word);
  if (!view.verdict.empty()) view.spoken += view.verdict + " ";
  if (place.count > 0 && (place.phase == RecordPhase::kReady || isDone))
    view.spoken += Sentence(view.progress);
  view.spoken += view.instruction;
  view.enter = EnterOf(place);
  view.isListening = IsListening(place.phase);
  view.canRecord = !isDone;
  view.canKeep = CanKeep(place);
  view.canListen = !isDone && !view.isListening && place.take != TakeQuality::kNothingHeard;
  view.canGoOn = !isDone;
  view.canGoBack = place.count > 0 && (isDone || place.at > 0);
  return view;
}

}  // namespace repvolta
