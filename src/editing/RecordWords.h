#pragma once

#include <string>
#include <vector>

#include "editing/RecordingList.h"
#include "editing/RecordingSession.h"
#include "editing/VoiceServices.h"

namespace repvolta {

/// What a person chooses in "Record Words", and the session that follows it. What is chosen is kept
/// in the options.
class RecordWords {
 public:
  /// With `clip` that one is asked for, otherwise all words. What is given must outlive this.
  RecordWords(VoiceServices& services, const std::string& clip);
  RecordWords(const RecordWords&) = delete;
  RecordWords& operator=(const RecordWords&) = delete;

  RecordingSession& Session() { return session_; }

  /// Why nothing can be kept now, in sentences; "" while it can.
  const std::string& Notice() const { return notice_; }

  // The entries of the lists, and which one is chosen. Choosing another one begins a new list of
  // words; what was kept stays.
  std::vector<std::string> WhatTexts() const;
  int What() const;
  void ChooseWhat(int entry);

  /// The last entry asks for the file of a word list.
  std::vector<std::string> LanguageNames() const;
  int Language() const { return language_; }
  void ChooseLanguage(int entry);

  bool LeavesOutOwn() const { return wish_.own == OwnRecordings::kLeaveOut; }
  void LeaveOutOwn(bool leaveOut);

  bool StartsByItself() const;
  void StartByItself(bool byItself);

  /// The microphones that there are now.
  std::vector<std::string> Microphones() const;

  /// The entry in `microphones` of the chosen one; of the default one when that is not there.
  int ChosenMicrophone(const std::vector<std::string>& microphones) const;
  void ChooseMicrophone(const std::vector<std::string>& microphones, int entry);

  /// Other microphones are there now: listens to the one that is chosen, if it does not yet.
  void Follow(const std::vector<std::string>& microphones);

 private:
  void BeginList();
  bool Change(const RecordingWish& wish);
  void ChooseWordList();
  void KeepOptions();

  VoiceServices& services_;
  RecordingWish wish_;
  std::vector<RecordingLanguage> languages_;
  int language_ = 0;
  std::string notice_;
  ChosenInput input_;
  RecordingSession session_;
};

}  // namespace repvolta
