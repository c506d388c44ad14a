#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/Bytes.h"
#include "base/Descriptor.h"
#include "voices/ReadVoice.h"

namespace repvolta {

/// The clips of a voice on their way into the program directory, which must be current: in a folder
/// of their own, which is no voice until Commit(). Without it the folder is removed; one that a
/// kill left is removed by the next.
class VoiceStage {
 public:
  /// Throws FileError, also while another window is taking in a voice.
  VoiceStage();
  ~VoiceStage();
  VoiceStage(const VoiceStage&) = delete;
  VoiceStage& operator=(const VoiceStage&) = delete;

  /// Where the clips lie; ends with the separator.
  const std::string& Folder() const { return folder_; }

  /// `clip` as ClipOfPath gives it. Throws FileError.
  void Add(const std::string& clip, std::span<const Byte> content);

  /// The clip is not to be taken in. Throws FileError.
  void Drop(const std::string& clip);

  /// Makes clips of those that are sounds of another format, as `repvolta-voice convert` does, and
  /// returns why for each from which none can be made; that one is dropped. Throws FileError and
  /// what `watch` throws.
  std::vector<std::string> Convert(const std::vector<std::string>& clips, const VoiceWatch& watch);

  /// Puts the voice in place under this name, which must be free. Throws FileError and what `watch`
  /// throws; then there is no such voice.
  void Commit(const std::string& voice, const VoiceWatch& watch);

 private:
  const std::string folder_;
  Descriptor lock_;
  bool isCommitted_ = false;
};

}  // namespace repvolta
