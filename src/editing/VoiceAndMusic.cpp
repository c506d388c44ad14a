#include "editing/VoiceAndMusic.h"

#include <exception>
#include <utility>

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/WholeFile.h"
#include "clips/ClipSound.h"
#include "editing/ChangeClips.h"
#include "editing/VoiceTexts.h"
#include "sound/WavReader.h"
#include "voices/PutClips.h"
#include "voices/SongSound.h"

namespace repvolta {
namespace {

constexpr double kMusicSeconds = 6;
constexpr double kPauseSeconds = 0.3;
constexpr int kHalf = 50;  // per cent

/// Said in the preview, behind the name of the first exercise that has a recording.
constexpr const char* kInstruction[] = {"3.wav",   "sets.wav", "50.wav",  "kilograms.wav",
                                        "for.wav", "10.wav",   "reps.wav"};

void Append(Sound& sound, const Sound& more) {
  sound.samples.insert(sound.samples.end(), more.samples.begin(), more.samples.end());
}

void AppendSilence(Sound& sound, double seconds) {
  sound.samples.resize(sound.samples.size() + static_cast<std::size_t>(seconds * sound.rate));
}

/// What came of decoding a song: its middle, or why there is none.
struct Decoded {
  Sound music;
  std::string failure;
};

Decoded DecodeToHear(ChildProcesses& processes, const std::string& decoder,
                     const std::string& song) {
  try {
    return {MixedMiddle(DecodeMiddle(processes, decoder, song), kMusicSeconds), ""};
  } catch (const std::exception& error) {
    return {{}, error.what()};
  }
}

/// Reports one half of the work, which begins at a share of the whole.
ReportOfClips HalfFrom(int begin, const ReportWork& report) {
  return [&report, begin](std::size_t done, std::size_t all) {
    report(begin + static_cast<int>(done * kHalf / all));
  };
}

}  // namespace

VoiceAndMusic::VoiceAndMusic(VoiceServices& services, std::function<void()> changed)
    : services_(services),
      changed_(std::move(changed)),
      levels_(ReadLevels()),
      known_(services.editor.State().ProgramDirectory),
      notice_(NoticeOfNotes(levels_.Fault())) {}

VoiceAndMusic::~VoiceAndMusic() {
  changed_ = [] {};
  StopListening();
  StopMeasuring();
}

VoiceLevels VoiceAndMusic::ReadLevels() const {
  return {services_.editor.State().ProgramDirectory, ProgramVoice(services_.programVoice)};
}

/// The program of the encoder also decodes.
std::string VoiceAndMusic::Decoder() const {
  const std::string here = services_.editor.State().ProgramDirectory + kEncoder;
  return FileIsReachable(here) ? here : "lame";
}

void VoiceAndMusic::Measure() {
  MakeProgramDirectoryCurrent(services_.editor.State());
  songs_ = SongsToMeasure(services_.editor.State(), kMeasuredSongs);
  progress_ = {.songs = {}, .all = songs_.size(), .isMeasuring = true};
  MeasureNext();
}

void VoiceAndMusic::MeasureNext() {
  const std::size_t next = progress_.songs.size();
  if (next == songs_.size()) return EndMeasuring();
  measuring_.Begin([this, decoder = Decoder(), path = songs_[next],
                    known = known_](ChildProcesses& processes) -> std::function<void()> {
    const SongLoudness song = MeasureSong(processes, decoder, path, known);
    return [this, song] { TakeSong(song); };
  });
  changed_();
}

void VoiceAndMusic::TakeSong(const SongLoudness& song) {
  known_.Add(song);
  progress_.songs.push_back(song);
  MeasureNext();
}

void VoiceAndMusic::StopMeasuring() {
  if (!progress_.isMeasuring) return;
  measuring_.Stop();
  EndMeasuring();
}

void VoiceAndMusic::EndMeasuring() {
  progress_.isMeasuring = false;
  try {
    known_.Save(services_.editor.State().ProgramDirectory);
  } catch (const FileError&) {
    // The songs are measured again next time.
  }
  changed_();
}

void VoiceAndMusic::Listen(int level, std::optional<std::size_t> song) {
  StopListening();
  folder_ = std::make_unique<PrivateFolder>();
  if (!song) return PlayOrEnd({}, level);
  const std::string path = progress_.songs.at(*song).path;
  decoding_.Begin([this, decoder = Decoder(), path,
                   level](ChildProcesses& processes) -> std::function<void()> {
    const Decoded decoded = DecodeToHear(processes, decoder, path);
    return [this, decoded, path, level] {
      if (!decoded.failure.empty()) {
        return EndListening("\"" + FileName(path) + "\" cannot be heard. " + decoded.failure + ".");
      }
      try {
        Play(decoded.music, level);
      } catch (const std::exception& error) {
        EndListening(error.what());
      }
    };
  });
  Tell("");
}

void VoiceAndMusic::PlayOrEnd(const Sound& music, int level) {
  try {
    Play(music, level);
  } catch (...) {
    EndListening("");
    throw;
  }
}

void VoiceAndMusic::Play(const Sound& music, int level) {
  const Sound instruction = Instruction(level);
  Sound sound = music;
  if (music.samples.empty()) {
    sound = instruction;
  } else {
    AppendSilence(sound, kPauseSeconds);
    Append(sound, ConvertRate(instruction, sound.rate));
  }
  const std::string file = folder_->Path() + kSpokenSoundFile;
  WriteWholeFile(file, EncodeWav(sound, {.rate = sound.rate, .bits = 16, .channels = 1}));
  services_.player.Play(file, services_.output(),
                        [this](const std::string& failure) { EndListening(failure); });
  Tell("The voice is heard at " + LevelText(level) + ".");
}

Sound VoiceAndMusic::Instruction(int level) const {
  Sound joined{kClipFormat.rate, {}};
  const auto add = [&](const std::string& file) {
    const std::optional<Bytes> clip = levels_.ClipAt(file, level);
    if (!clip) return false;
    try {
      Append(joined, ConvertRate(ReadWav(*clip), joined.rate));
    } catch (const WavError&) {
      return false;
    }
    return true;
  };
  const ProgramState& state = services_.editor.State();
  for (int i = 0; i < state.NumberOfExercises; ++i) {
    const std::string name =
        AsFileName(state.Workout[i].ExerciseName.Trimmed(), kNameClipExtension);
    if (add(kNameClipSubfolder + name)) break;
  }
  for (const char* word : kInstruction) add(word);
  if (joined.samples.empty()) {
    throw SoundError("There are no clips that could be heard.");
  }
  return joined;
}

void VoiceAndMusic::StopListening() {
  if (folder_ == nullptr) return;
  EndListening("");
}

void VoiceAndMusic::EndListening(const std::string& failure) {
  decoding_.Stop();
  services_.player.Stop();
  folder_.reset();
  Tell(failure);
}

void VoiceAndMusic::Use(int level) {
  StopListening();
  levels_ = ReadLevels();
  ClipChange change;
  try {
    services_.editor.dialogs.ShowLongWork(
        "The recordings are brought to the level ...", [&](const ReportWork& report) {
          change = levels_.ChangeTo(level, HalfFrom(0, report));
          ChangeClips(services_.editor.program, change, HalfFrom(kHalf, report));
        });
  } catch (const WorkStopped&) {
    return Tell("Stopped. No recording was changed.");
  }
  levels_ = ReadLevels();
  Tell(UseNotice(change.clips.size(), level));
}

void VoiceAndMusic::Tell(const std::string& notice) {
  notice_ = notice;
  changed_();
}

}  // namespace repvolta
