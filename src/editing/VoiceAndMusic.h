#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editing/VoiceAndMusicView.h"
#include "editing/VoiceServices.h"
#include "sound/Sound.h"
#include "speech/PrivateFolder.h"
#include "voices/BackgroundSongs.h"
#include "voices/VoiceLevels.h"

namespace repvolta {

/// How loud the voice is beside the music: measures songs, lets a person hear one with an
/// instruction behind it, and brings the clips to the level that is chosen.
class VoiceAndMusic {
 public:
  /// Measures the clips. `changed` is called after each change of what can be asked here.
  /// `services` must outlive this. Throws FileError.
  VoiceAndMusic(VoiceServices& services, std::function<void()> changed);
  ~VoiceAndMusic();
  VoiceAndMusic(const VoiceAndMusic&) = delete;
  VoiceAndMusic& operator=(const VoiceAndMusic&) = delete;

  /// Begins to measure songs and returns at once. Throws FileError when the list of random music
  /// cannot be read.
  void Measure();
  void StopMeasuring();
  const SongProgress& Progress() const { return progress_; }

  /// The level that the clips have.
  int Chosen() const { return levels_.Chosen(); }

  /// Plays some seconds of a song, then an instruction at the level; without a song, only the
  /// instruction. Returns at once. Throws FileError or SoundError when it cannot begin; what fails
  /// later is in Notice.
  void Listen(int level, std::optional<std::size_t> song);
  void StopListening();
  bool IsListening() const { return folder_ != nullptr; }

  /// Brings all clips to the level, once the person has waited for it. Throws FileError; then no
  /// clip is changed.
  void Use(int level);

  /// What has happened or went wrong, as a sentence; "" when there is nothing to say.
  const std::string& Notice() const { return notice_; }

 private:
  VoiceLevels ReadLevels() const;
  std::string Decoder() const;
  void MeasureNext();
  void TakeSong(const SongLoudness& song);
  void EndMeasuring();
  void PlayOrEnd(const Sound& music, int level);
  void Play(const Sound& music, int level);
  Sound Instruction(int level) const;
  void EndListening(const std::string& failure);
  void Tell(const std::string& notice);

  VoiceServices& services_;
  std::function<void()> changed_;
  VoiceLevels levels_;
  std::vector<std::string> songs_;  // that are measured or to be measured
  KnownSongs known_;
  SongProgress progress_;
  std::unique_ptr<PrivateFolder> folder_;  // while something is heard or prepared
  std::string notice_;
  BackgroundSongs measuring_;
  BackgroundSongs decoding_;
};

}  // namespace repvolta
