#pragma once

#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "clips/SoundLevel.h"
#include "clips/Take.h"
#include "editing/RecordView.h"
#include "editing/RecordingList.h"
#include "editing/VoiceServices.h"
#include "platform/Microphone.h"
#include "speech/PrivateFolder.h"

namespace repvolta {

enum class NextWord { kWaitsForKey, kStartsByItself };

/// Records one word of a list after the other. The microphone is open from Open to Stop, so that
/// its level can be seen; a take begins when the person starts it, and ends by itself. Nothing but
/// Keep changes a clip. What goes wrong is told in the view, and leaves the session where it was.
class RecordingSession {
 public:
  /// `services` must outlive it.
  explicit RecordingSession(const VoiceServices& services);
  ~RecordingSession();
  RecordingSession(const RecordingSession&) = delete;
  RecordingSession& operator=(const RecordingSession&) = delete;

  /// Begins a list at its first word, and listens to the microphone.
  void Open(std::vector<WordToRecord> list);

  /// Listens to another microphone, now and for what follows.
  void Use(const ChosenInput& input);

  /// True while the microphone is open.
  bool IsListening() const { return isOpen_; }

  void SetNextWord(NextWord next) { next_ = next; }

  // The commands. Those that do not fit the moment do nothing.
  void StartOrStop();
  void Keep();
  void Listen();
  void Next();
  void Back();

  /// Ends all sound. A take that was not kept is lost.
  void Stop();

  RecordView View() const;

  /// Called after each change of View, and with the level of the microphone in dBFS.
  void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }
  void OnLevel(std::function<void(double)> level) { level_ = std::move(level); }

 private:
  const WordToRecord& Word() const { return list_.at(at_); }
  void GoTo(std::size_t at);
  void Begin();
  void OpenMicrophone();
  void Hear(std::span<const float> samples);
  bool AddToTake(std::span<const float> samples);
  void Lose(const std::string& reason);
  void EndTake();
  void MakeClipOf(const Take& take);
  void Judge(const TakeJudgement& judgement);
  void Play();
  void PutInPlace();
  RecordPhase PhaseOfSilence() const;
  void EndPlaying(const std::string& failure);
  void Quiet();
  void Tell() const;
  std::string FileToHear();

  const VoiceServices& services_;
  NextWord next_ = NextWord::kWaitsForKey;
  std::vector<WordToRecord> list_;
  std::size_t at_ = 0;
  std::set<std::size_t> kept_;  // places of the list
  RecordPhase phase_ = RecordPhase::kDone;
  std::optional<Take> take_;  // while it is recorded
  TakeQuality quality_ = TakeQuality::kNone;
  std::string verdict_;
  std::optional<Bytes> clip_;       // that can be kept
  std::optional<double> loudness_;  // of the voice, in LUFS: what is kept does not change it
  ChosenInput input_;
  bool isOpen_ = false;       // the microphone
  std::string noMicrophone_;  // why, until something is heard of one
  LevelMeter meter_{Microphone::kRate};
  PrivateFolder folder_;  // of what is heard
  std::function<void()> changed_;
  std::function<void(double)> level_;
};

}  // namespace repvolta
