#include "update/NotingSpeech.h"

#include <cstdint>
#include <string_view>

#include "app/ClipOrigins.h"
#include "base/Days.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/ProgramFiles.h"
#include "base/WorkingFile.h"

namespace repvolta {

NotingSpeech::NotingSpeech(SpeechSynthesizer& speech, const Clock& clock)
    : speech_(speech), clock_(clock) {
  try {
    RemoveFile(WorkingName(kClipOrigins));
  } catch (const FileError&) {
    // Nothing depends on the notes.
  }
}

void NotingSpeech::SpeakToFile(const SpeechRequest& request) {
  speech_.SpeakToFile(request);
  if (!request.file.starts_with(kNameClipFolder)) return;
  NoteClipOrigin(request.file.substr(std::string_view(kClipFolder).size()),
                 {.owner = ClipOwner::kComputer,
                  .day = IsoDate(clock_.Today()),
                  .text = request.text,
                  .voice = speech_.LastVoice(),
                  .rate = static_cast<std::int16_t>(request.rate)});
}

}  // namespace repvolta
