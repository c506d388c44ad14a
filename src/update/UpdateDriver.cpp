#include "update/UpdateDriver.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "app/Options.h"
#include "app/WorkoutFiles.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "instruction/TextInstruction.h"
#include "instruction/VoiceInstruction.h"
#include "update/Encoder.h"
#include "update/Growth.h"
#include "update/OutputFolder.h"
#include "update/PlayList.h"
#include "update/PlayerDisk.h"
#include "update/PlayerPlayList.h"
#include "update/ProcessMP3tag.h"
#include "update/RandomMusic.h"
#include "update/Steps.h"

namespace repvolta {
namespace {

/// One run for the workout in memory.
class WorkoutUpdate {
 public:
  WorkoutUpdate(Program& program, ProgressLog& log, UpdateHost& host)
      : program_(program),
        state_(program.state),
        log_(log),
        host_(host),
        steps_(log, host),
        workoutName_(BaseName(state_.WorkoutFileName)),
        folder_(state_.Settings.OutputPath.Text(), workoutName_),
        playList_(folder_.Path() + workoutName_ + kPlayListExtension),  // quirk 51
        disk_(state_.Settings.OutputPath.Text()) {}

  /// Returns the path of the play list.
  std::string Run() {
    Prepare();
    GrowWorkout(program_, steps_);
    drawn_ = DrawRandomMusic(program_, steps_);
    // Quirk 34.
    steps_.Run([&] { SaveWorkout(state_); });
    for (std::int16_t i = 0; i < state_.NumberOfExercises; ++i) {
      text_.clear();
      ProduceInstruction(i);
      CopyMusic(i);
    }
    Finish();
    return playList_;
  }

  /// After a stop: removes the working files that this run has made, but not those that stay, and
  /// lists for the player what is there.
  void ClearAway() {
    // What fails is left to the next update; that this one was stopped must not get lost.
    const auto tryTo = [](const auto& statement) {
      try {
        statement();
      } catch (const FileError&) {
      }
    };
    if (workingFiles_ == WorkingFiles::kMade) {
      for (const char* file : {kWorkingWav, kWorkingMp3}) tryTo([&] { RemoveFile(file); });
    }
    tryTo([&] { WritePlayerPlayList(); });
  }

 private:
  /// The state of "temp.wav" and "temp.mp3". The files may also be an earlier run's, which leaves
  /// them when there is no encoder.
  enum class WorkingFiles { kNotMade, kMade, kStay };

  void Prepare() {
    // Showing the window clears its list, so an earlier failure is logged after that.
    const auto clearing = steps_.Try([&] { folder_.Clear(WhatToKeep()); });
    const auto creation = steps_.Try([&] { folder_.Create(); });
    host_.UpdateBegins();
    steps_.Log("Updating Workout " + FileName(state_.WorkoutFileName));
    steps_.LogFailure(clearing);
    steps_.LogFailure(creation);
    // Quirk 47.
    steps_.Log("Created directory " + folder_.Path());
  }

  Keepsakes WhatToKeep() const {
    const char* home = std::getenv("HOME");
    return {.folders = {state_.Settings.MusicPath.Trimmed(), state_.ProgramDirectory,
                        home == nullptr ? "" : home},
            .songs = SongsOf(state_.Workout),
            .songList = kMusicList,
            .otherSongs = SongsOfAllWorkoutFiles};
  }

  void ProduceInstruction(std::int16_t exercise) {
    steps_.Run([&] {
      workingFiles_ = WorkingFiles::kMade;
      GenerateHumanVoiceInstruction(state_, exercise, kWorkingWav, program_.speech, log_);
    });
    steps_.Run([&] { text_ = GenerateTextInstruction(state_.Workout, exercise); });
    const std::string path = NumberedPath("Instructions");
    Encoding encoding = Encoding::kNoEncoder;
    steps_.Run([&] {
      encoding = EncodeMP3file(program_.processes, kWorkingWav, kWorkingMp3);
      if (encoding == Encoding::kNoEncoder) workingFiles_ = WorkingFiles::kStay;
    });
    if (encoding == Encoding::kEncoderRun) {
      KeepMp3(path + ".mp3");
    } else {
      KeepWav(path + ".WAV");
    }
  }

  void KeepMp3(const std::string& path) {
    Measure(kWorkingMp3);
    steps_.Run([&] { folder_.CopyInto(kWorkingMp3, path); });
    steps_.Run([&] { RemoveFile(kWorkingWav); });
    steps_.Run([&] { RemoveFile(kWorkingMp3); });
    // Quirks 47 and 48.
    steps_.Log(FileName(path) + " MP3 Instruction file created sucessfully.");
    Tag(path);
    List(path, TitleOf(path, text_));
  }

  /// Without an encoder the instruction stays a WAV file, and the working file is kept too
  /// (quirk 50).
  void KeepWav(const std::string& path) {
    steps_.Run([&] { folder_.CopyInto(kWorkingWav, path); });
    steps_.Log(FileName(path) + " WAV Instruction file created sucessfully.");
    seconds_ = kUnknownSeconds;
    List(path, BaseName(path));
  }

  void CopyMusic(std::int16_t exercise) {
    steps_.Run([&] {
      const auto drawn = drawn_.find(exercise);
      if (drawn != drawn_.end()) {
        for (const std::string& song : drawn->second) CopySong(song);
        return;
      }
      const ExerciseRecord& record = state_.Workout[exercise];
      for (int j = 0; j < record.NumberOfMusicFiles; ++j) CopySong(record.MusicFile[j].Trimmed());
    });
  }

  void CopySong(const std::string& source) {
    if (!FileIsReachable(source)) {
      steps_.Log("ERROR: File not found. " + source);  // quirk 52
      return;
    }
    const std::string path(TrimBlanks(NumberedPath(TrimBlanks(FileName(source)))));
    const auto plan = PlanTaggedCopy(source, path, text_, state_.WorkoutFileName);
    bool isCopied = false;
    steps_.Run([&] {
      CopyOrSayWhy(source, path, plan ? CopyStart{plan->tag, plan->audioOffset} : CopyStart{});
      isCopied = true;
    });
    // A copy that failed never shows: it is left out like a song that is missing.
    if (!isCopied || !WaitFor(path)) return;
    if (plan) {
      steps_.Run([&] { OutputFolder::StartFlush(path); });
      LogTagged(path, log_);
    } else {
      Tag(path);
    }
    Measure(source);
    List(path, TitleOf(path, text_));
  }

  void CopyOrSayWhy(const std::string& source, const std::string& path, const CopyStart& start) {
    try {
      folder_.CopyInto(source, path, start);
    } catch (const FileError& error) {
      throw std::runtime_error(FileName(source) + " could not be copied: " + error.Reason());
    }
  }

  bool MayChange(const std::string& path) {
    bool mayChange = false;
    steps_.Run([&] { mayChange = folder_.MayChange(path); });
    return mayChange;
  }

  /// False when the run no longer waits for the copy.
  bool WaitFor(const std::string& path) {
    if (!MayChange(path)) return false;
    bool isThere = false;
    steps_.Run([&] { isThere = Appears(path); });
    return isThere;
  }

  bool Appears(const std::string& path) {
    while (!FileExists(path)) {
      steps_.CheckStop();
      if (!host_.KeepWaiting()) return false;
    }
    return true;
  }

  void Tag(const std::string& path) {
    if (!MayChange(path)) return;
    steps_.Run([&] { ProcessMP3tag(path, text_, state_.WorkoutFileName, log_); });
  }

  bool ListsForPlayer() const { return Get(state_.Options, kPlayListForPlayer); }

  /// Takes the play time of the latest file from one on this computer that sounds the same.
  void Measure(const std::string& file) {
    if (ListsForPlayer()) seconds_ = SecondsOf(file);
  }

  /// Appends the latest file to the play lists and moves on to the next number.
  void List(const std::string& path, const std::string& title) {
    steps_.Run([&] {
      folder_.Claim(playList_);
      AddToPlaylistFile(path, playList_);
    });
    if (ListsForPlayer()) playerPlayList_.Add({FileName(path), title, seconds_});
    ++counter_;
  }

  /// Players that take each file only once get it whole. Throws FileError.
  void WritePlayerPlayList() {
    if (playerPlayList_.IsEmpty()) return;
    const std::string path = folder_.Path() + workoutName_ + kPlayerPlayListExtension;
    folder_.Claim(path);
    RemoveFile(path);
    File file = File::CreateNew(path);
    file.WriteAt(0, AsBytes(playerPlayList_.Text()));
    file.ConfirmWritten();
  }

  /// The path of the next file: its number has at least three digits.
  std::string NumberedPath(std::string_view name) const {
    std::string number = std::to_string(counter_);
    if (number.size() < 3) number.insert(0, 3 - number.size(), '0');
    return (folder_.Path() + "RV" + number + "-").append(name);
  }

  void Finish() {
    // A second attempt, for files that could not be deleted earlier.
    if (workingFiles_ == WorkingFiles::kMade) {
      for (const char* file : {kWorkingWav, kWorkingMp3}) steps_.Run([&] { RemoveFile(file); });
    }
    steps_.Run([&] { WritePlayerPlayList(); });
    steps_.Run([&] { folder_.FlushToDevice(); });
    steps_.Run([&] { disk_.Remember(state_); });
    steps_.Log("");
    steps_.Log("UPDATE COMPLETE.");
  }

  Program& program_;
  ProgramState& state_;
  ProgressLog& log_;
  UpdateHost& host_;
  Steps steps_;
  std::string workoutName_;
  OutputFolder folder_;
  std::string playList_;
  PlayerPlayList playerPlayList_;
  int seconds_ = kUnknownSeconds;  // of the latest file
  PlayerDisk disk_;
  DrawnSongs drawn_;
  std::string text_;  // the sentence of the current exercise, for its music too (quirk 53)
  int counter_ = 1;
  WorkingFiles workingFiles_ = WorkingFiles::kNotMade;
};

}  // namespace

std::optional<std::string> UpdateCurrentWorkout(Program& program, ProgressLog& log,
                                                UpdateHost& host) {
  ProgramState& state = program.state;
  state.WorkoutFileName = TrimBlanks(state.WorkoutFileName);
  if (state.WorkoutFileName.empty()) return std::nullopt;
  state.Settings.OutputPath = state.Settings.OutputPath.Trimmed();
  WorkoutUpdate update(program, log, host);
  try {
    return update.Run();
  } catch (const UpdateStopped&) {
    update.ClearAway();
    throw;
  }
}

}  // namespace repvolta
