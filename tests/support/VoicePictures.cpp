#include "support/VoicePictures.h"

#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "clips/WordClips.h"
#include "editing/EarlierVersions.h"
#include "editing/RecordWords.h"
#include "ui/RecordForm.h"
#include "ui/RecordingsForm.h"
#include "ui/RestoreVersionForm.h"
#include "ui/SayDifferentlyForm.h"
#include "ui/VoiceAndMusicForm.h"
#include "ui/VoicesForm.h"
#include "voices/SongLoudness.h"

#include "fakes/FakeMicrophone.h"
#include "fakes/FakeSound.h"
#include "support/TemporaryFolder.h"
#include "support/ToneClip.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// The program's voice, with a few recordings of somebody, and a second voice.
void PutVoice() {
  fs::copy(REPVOLTA_CLIPS "program-voice", "voice",
           fs::copy_options::recursive | fs::copy_options::overwrite_existing);
  fs::copy(REPVOLTA_CLIPS "brought.sha256", "brought.sha256");
  for (const std::string& word : WordClips()) PutFile("voices/Kim/" + word, AsText(ToneClip(0.2F)));
  for (const char* word : {"voice/1.wav", "voice/2.wav", "voice/exercise/Goblet Squat.WAV"}) {
    PutFile(word, AsText(ToneClip(0.18F)));
  }
  PutFile("voice/3.wav", AsText(ToneClip(0.04F)));
}

/// Songs that were measured before, so that no decoder is needed.
void PutMeasuredSongs(ProgramState& state) {
  struct Measured {
    const char* name;
    double loudness;
  };
  KnownSongs songs;
  for (int exercise = 0; exercise < 3; ++exercise) state.Workout[exercise].NumberOfMusicFiles = 0;
  int count = 0;
  for (const Measured& song : {Measured{"Café au lait.mp3", -9.3}, Measured{"Long Run.mp3", -11.0},
                               Measured{"Northern Line.mp3", -8.4}, Measured{"Rain.mp3", -14.2}}) {
    const std::string path = fs::absolute(std::string("songs/") + song.name).string();
    PutFile(path, "song");
    songs.Add({.path = path, .loudness = song.loudness, .stamp = StampOf(path)});
    state.Workout[0].MusicFile[count++] = path;
  }
  state.Workout[0].NumberOfMusicFiles = static_cast<std::int16_t>(count);
  songs.Save("");
}

void TakeRecording(const Pictures& pictures, VoiceServices& services, FakeMicrophone& microphone) {
  RecordWords recording(services, "");
  RecordForm record(recording, nullptr);
  record.show();
  std::vector<float> voice(4800);
  for (std::size_t i = 0; i < voice.size(); ++i) {
    voice[i] = 0.3F * std::sin(0.1F * static_cast<float>(i));
  }
  microphone.Hear(voice);
  pictures.Take(record, "RecordForm");
}

void TakeVersions(const Pictures& pictures, ProgramState& state) {
  struct Kept {
    const char* name;
    float weight;
  };
  const float today = state.Workout[1].SetValue1[1];
  for (const Kept& kept : {Kept{"2026-05-28 18.04.11 before change", today - 5},
                           Kept{"2026-05-30 05.30.02 before update", today - 2.5F},
                           Kept{"2026-05-31 19.47.50 before change", today - 2.5F}}) {
    state.Workout[1].SetValue1[1] = kept.weight;
    SaveWorkout(state);
    PutFile("versions/Monday/" + std::string(kept.name) + ".RPV", GetFile("workouts/Monday.RPV"));
  }
  state.Workout[1].SetValue1[1] = today;
  SaveWorkout(state);
  EarlierVersions versions("Monday.RPV");
  RestoreVersionForm form(versions);
  pictures.Take(form, "RestoreVersionForm");
}

}  // namespace

void TakeVoiceWindows(const Pictures& pictures, const Editor& editor, ProgramState& state) {
  PutVoice();
  FakeSoundPlayer player;
  FakeBackgroundSpeech speech;
  FakeMicrophone microphone;
  VoiceServices services{.editor = editor,
                         .player = player,
                         .speech = speech,
                         .output = [] { return ChosenOutput{}; },
                         .microphone = &microphone,
                         .programVoice = REPVOLTA_CLIPS "program-voice/"};
  RecordingsForm recordings(services);
  while (!recordings.IsComplete()) QApplication::processEvents();
  recordings.findChild<QTableView*>("RecordingsTable")->selectRow(0);
  recordings.resize(840, recordings.height());
  pictures.Take(recordings, "RecordingsForm");
  TakeRecording(pictures, services, microphone);
  state.Workout[0].ExerciseName = "Goblet Squat";
  state.Workout[2].ExerciseName = "OHP";
  SaveWorkout(state);
  SayDifferentlyForm differently(services, "exercise/OHP.WAV");
  differently.findChild<QLineEdit*>("SayText")->setText("Overhead Press");
  pictures.Take(differently, "SayDifferentlyForm");
  VoicesForm voices(services);
  pictures.Take(voices, "VoicesForm");
  TakeVersions(pictures, state);
  PutMeasuredSongs(state);
  VoiceAndMusicForm music(services);
  Pictures::Settle(music);
  const auto& measuring = *music.findChild<QProgressBar*>();
  while (measuring.isVisible()) QApplication::processEvents();
  music.findChild<QPushButton*>("RecommendedButton")->click();
  pictures.Take(music, "VoiceAndMusicForm");
}

}  // namespace repvolta
