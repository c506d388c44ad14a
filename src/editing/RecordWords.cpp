#include "editing/RecordWords.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/ClipOrigins.h"
#include "app/Options.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"
#include "editing/VoiceTexts.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestClip = std::size_t{16} * 1024 * 1024;
constexpr const char* kAnotherList = "Another list ...";

struct WhatEntry {
  WhatToRecord what;
  const char* text;
};

constexpr std::array kWhat = {WhatEntry{WhatToRecord::kAllWords, "All words"},
                              WhatEntry{WhatToRecord::kMissing, "What is missing"},
                              WhatEntry{WhatToRecord::kWorkoutNames, "Names of this workout"}};

RecordingWish WishFor(const std::string& clip) {
  if (clip.empty()) return {.wordList = {}, .chosen = {}};
  return {.what = WhatToRecord::kChosen,
          .own = OwnRecordings::kInclude,
          .wordList = {},
          .chosen = {clip}};
}

ChosenInput InputOf(const std::vector<std::string>& microphones, int entry) {
  const auto index = static_cast<std::size_t>(entry);
  return {.entry = entry, .name = index < microphones.size() ? microphones[index] : ""};
}

/// What cannot be read is worth recording again.
IsOwnRecording OwnRecordingsOf(const ClipOrigins& origins) {
  return [&origins](const std::string& file) {
    const auto path = FindFile(kClipFolder + file);
    if (!path) return false;
    try {
      return origins.Of(file, ReadWholeFile(*path, kLongestClip)).owner == ClipOwner::kOwn;
    } catch (const FileError&) {
      return false;
    }
  };
}

}  // namespace

RecordWords::RecordWords(VoiceServices& services, const std::string& clip)
    : services_(services),
      wish_(WishFor(clip)),
      languages_(RecordingLanguages(services.wordLists)),
      session_(services) {
  session_.SetNextWord(StartsByItself() ? NextWord::kStartsByItself : NextWord::kWaitsForKey);
  const std::vector<std::string> inputs = Microphones();
  input_ = InputOf(inputs, ChosenMicrophone(inputs));
  session_.Use(input_);
  BeginList();
}

void RecordWords::BeginList() {
  MakeProgramDirectoryCurrent(services_.editor.State());
  const ClipOrigins origins("", UnreadNotes::kAreMissed);
  notice_ = NoticeOfNotes(origins.Fault());
  session_.Open(ListToRecord(wish_, services_.editor.State(), OwnRecordingsOf(origins)));
}

/// When there is no such list, everything stays as it was.
bool RecordWords::Change(const RecordingWish& wish) {
  const RecordingWish before = std::exchange(wish_, wish);
  const bool isDone = Attempt(services_, "The words could not be listed.", [this] { BeginList(); });
  if (!isDone) wish_ = before;
  return isDone;
}

std::vector<std::string> RecordWords::WhatTexts() const {
  std::vector<std::string> texts;
  texts.reserve(kWhat.size() + 1);
  for (const WhatEntry& entry : kWhat) texts.emplace_back(entry.text);
  for (const std::string& clip : wish_.chosen) texts.push_back("Only " + BaseName(clip));
  return texts;
}

int RecordWords::What() const {
  const auto* entry = std::ranges::find(kWhat, wish_.what, &WhatEntry::what);
  return static_cast<int>(entry - kWhat.begin());
}

/// Somebody who asks for a single clip wants to record it, whoever has recorded it before.
void RecordWords::ChooseWhat(int entry) {
  const auto index = static_cast<std::size_t>(entry);
  RecordingWish wish = wish_;
  wish.what = index < kWhat.size() ? kWhat[index].what : WhatToRecord::kChosen;
  if (wish.what == WhatToRecord::kChosen) wish.own = OwnRecordings::kInclude;
  Change(wish);
}

void RecordWords::LeaveOutOwn(bool leaveOut) {
  RecordingWish wish = wish_;
  wish.own = leaveOut ? OwnRecordings::kLeaveOut : OwnRecordings::kInclude;
  Change(wish);
}

std::vector<std::string> RecordWords::LanguageNames() const {
  std::vector<std::string> names;
  names.reserve(languages_.size() + 1);
  for (const RecordingLanguage& language : languages_) names.push_back(language.name);
  names.emplace_back(kAnotherList);
  return names;
}

void RecordWords::ChooseLanguage(int entry) {
  const auto index = static_cast<std::size_t>(entry);
  if (index >= languages_.size()) return ChooseWordList();
  RecordingWish wish = wish_;
  wish.wordList = languages_[index].wordList;
  if (Change(wish)) language_ = entry;
}

void RecordWords::ChooseWordList() {
  RecordingWish wish = wish_;
  wish.wordList = services_.editor.dialogs.ChooseFileToOpen({.name = "WordListDialog",
                                                             .title = "Words to Record",
                                                             .file = "",
                                                             .filter = "Word lists (*.txt)",
                                                             .suffix = ".txt"});
  if (wish.wordList.empty() || !Change(wish)) return;
  language_ = static_cast<int>(languages_.size());
  languages_.push_back({.name = BaseName(wish.wordList), .wordList = wish.wordList});
}

bool RecordWords::StartsByItself() const {
  return Get(services_.editor.State().Options, kRecordNextByItself);
}

void RecordWords::StartByItself(bool byItself) {
  session_.SetNextWord(byItself ? NextWord::kStartsByItself : NextWord::kWaitsForKey);
  Put(services_.editor.program.Options(), kRecordNextByItself, byItself);
  KeepOptions();
}

std::vector<std::string> RecordWords::Microphones() const {
  return services_.microphone == nullptr ? std::vector<std::string>()
                                         : services_.microphone->Inputs();
}

int RecordWords::ChosenMicrophone(const std::vector<std::string>& microphones) const {
  const std::string wanted = Get(services_.editor.State().Options, kMicrophone);
  const auto found = std::ranges::find(microphones, wanted);
  return found == microphones.end() ? 0 : static_cast<int>(found - microphones.begin());
}

void RecordWords::ChooseMicrophone(const std::vector<std::string>& microphones, int entry) {
  input_ = InputOf(microphones, entry);
  session_.Use(input_);
  Put(services_.editor.program.Options(), kMicrophone, input_.name);
  KeepOptions();
}

/// Another one takes its place when it is unplugged, until it is there again.
void RecordWords::Follow(const std::vector<std::string>& microphones) {
  const ChosenInput input = InputOf(microphones, ChosenMicrophone(microphones));
  if (input.name == input_.name && session_.IsListening()) return;
  input_ = input;
  if (!input.name.empty()) session_.Use(input);
}

void RecordWords::KeepOptions() {
  Attempt(services_, "The choice could not be kept.",
          [this] { services_.editor.program.WriteOptions(); });
}

}  // namespace repvolta
