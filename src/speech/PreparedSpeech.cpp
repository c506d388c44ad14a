#include "speech/PreparedSpeech.h"

#include "platform/QtChildProcesses.h"

namespace repvolta {

PreparedSpeech::PreparedSpeech(const Make& make, ChildProcesses& processes)
    : speech_(make(processes)), begun_(std::async(std::launch::async, [make] {
        QtChildProcesses own;
        return make(own)->VoiceNames();
      })) {}

std::vector<std::string> PreparedSpeech::VoiceNames() {
  return begun_.valid() ? begun_.get() : speech_->VoiceNames();
}

}  // namespace repvolta
