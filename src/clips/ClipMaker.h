#pragma once

#include <string>
#include <vector>

#include "base/Bytes.h"
#include "clips/ClipLists.h"
#include "clips/Speaker.h"
#include "sound/SoundSource.h"

namespace repvolta {

/// Has the clips spoken and writes them below `folder`, which is created if missing; existing clips
/// are replaced. Writes nothing until all clips are spoken. Throws ClipError, SpeechError,
/// FileError.
void MakeClips(const Speaker& speaker, const std::vector<ClipWords>& clips,
               const std::string& folder);

/// The file of a clip: the word in a recording of any rate, at a loudness in LUFS
/// (LoudnessOfVoice). Holds a small multiple of the recording and of the clip. Throws ClipError
/// when the recording is silent or its sound is longer than two minutes.
Bytes ClipOf(const SoundSource& recording, double loudness);

/// Makes a clip of any WAV recording of a word, as loud as the voice that it is put into; an
/// existing clip is replaced. Holds a small multiple of the recording and of the clip. Throws
/// ClipError when the recording is silent or its sound is longer than two minutes, FileError.
void MakeClipOfRecording(const std::string& recording, const std::string& clip);

}  // namespace repvolta
