#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/WholeFile.h"
#include "platform/SoundPlayer.h"
#include "speech/BackgroundSpeech.h"

namespace repvolta {

/// Plays nothing; a test says when the sound ends.
class FakeSoundPlayer : public SoundPlayer {
 public:
  void Play(const std::string& file, const ChosenOutput& output, Ended ended) override {
    if (!refusal.empty()) throw SoundError(refusal);
    files.push_back(file);
    played.push_back(ReadWholeFile(file, kLargest));
    outputs.push_back(output.name);
    end = std::move(ended);
  }

  void Stop() override { end = {}; }

  bool IsPlaying() const { return static_cast<bool>(end); }

  /// The sound is over; with a reason, it was not heard to its end.
  void End(const std::string& failure = {}) { std::exchange(end, {})(failure); }

  std::string refusal;             // why nothing can be played
  std::vector<std::string> files;  // that were played
  std::vector<Bytes> played;       // their content
  std::vector<std::string> outputs;

 private:
  static constexpr std::size_t kLargest = 1'000'000;

  Ended end;
};

/// Speaks when a test says so.
class FakeBackgroundSpeech : public BackgroundSpeech {
 public:
  void Speak(const SpeechRequest& request, Done whenDone) override {
    requests.push_back(request);
    done = std::move(whenDone);
  }

  void Stop() override { done = {}; }

  bool IsSpeaking() const { return static_cast<bool>(done); }

  /// The sound is written, unless there is a reason why not.
  void End(const Bytes& sound, const std::string& failure = {}) {
    if (failure.empty()) WriteWholeFile(requests.back().file, sound);
    std::exchange(done, {})(failure);
  }

  std::vector<SpeechRequest> requests;

 private:
  Done done;
};

}  // namespace repvolta
