#include "app/Voice.h"

namespace repvolta {

void SetUpVoice(ProgramState& state) {
  state.Voice = {.Voice = state.Settings.VoiceIndex,
                 .Rate = state.Settings.VoiceRate,
                 .Volume = state.Settings.VoiceVolume};
}

}  // namespace repvolta
