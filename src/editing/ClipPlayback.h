#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editing/VoiceServices.h"
#include "instruction/SpokenWords.h"
#include "speech/PrivateFolder.h"

namespace repvolta {

/// Lets a person hear clips, one thing at a time. Changes nothing.
class ClipPlayback {
 public:
  /// `services` must outlive this. `changed` is called when something begins or ends.
  ClipPlayback(const VoiceServices& services, std::function<void()> changed);
  ~ClipPlayback();
  ClipPlayback(const ClipPlayback&) = delete;
  ClipPlayback& operator=(const ClipPlayback&) = delete;

  /// Plays a clip, a file below the clip folder, instead of what is heard. Does not throw: Notice
  /// says what failed.
  void PlayClip(const std::string& file, const std::string& said);

  /// Plays clips as an update joins them. `unsaid` is what there is no clip for.
  void PlaySentence(const std::vector<Clip>& clips, const std::vector<std::string>& unsaid);

  void Stop();

  /// The file of the clip that is heard, "" for a sentence or when it is quiet.
  const std::string& Heard() const { return heard_; }
  bool IsPlaying() const { return isPlaying_; }

  /// What is happening or what went wrong, as a sentence; "" when there is nothing to say.
  const std::string& Notice() const { return notice_; }

 private:
  void Begin(const std::string& file, const std::string& heard, const std::string& notice);
  void Silence();
  void Tell(const std::string& notice);

  const VoiceServices& services_;
  std::function<void()> changed_;
  std::unique_ptr<PrivateFolder> folder_;  // of a joined sentence
  std::string heard_;
  std::string notice_;
  std::string remark_;  // that stays when it has been heard
  bool isPlaying_ = false;
};

}  // namespace repvolta
