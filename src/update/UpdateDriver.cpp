#include "update/UpdateDriver.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <vector>

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
#include "update/ProcessMP3tag.h"
#include "update/RandomMusic.h"
#include "update/Steps.h"
#include "update/StopTexts.h"
#include "update/UpdateWork.h"

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
        work_(steps_, host),
        workoutName_(BaseName(state_.WorkoutFileName)),
        folder_(state_.Settings.OutputPath.Text(), workoutName_),
        playList_(folder_.Path() + workoutName_ + kPlayListExtension) {}  // quirk 51

  /// Returns the path of the play list.
  std::string Run() {
    Prepare();
    GrowWorkout(program_, steps_);
    drawn_ = DrawRandomMusic(program_, steps_);
    // Quirk 34.
    steps_.Run([&] { SaveWorkout(state_); });
    stage_ = Stage::kSaved;
    work_.Plan(WorkOfExercises(state_.Workout, state_.NumberOfExercises, drawn_));
    for (std::int16_t i = 0; i < state_.NumberOfExercises; ++i) {
      text_.clear();
      ProduceInstruction(i);
      CopyMusic(i);
    }
    Finish();
    return playList_;
  }

  /// After a stop: leaves no working files, and on the player no file that is not in the play list;
  /// the files there are on the device. Logs what is there.
  void EndStopped() {
    TidyUp([&] { RemoveUnlisted(); });
    TidyUp([&] { RemoveWorkingFiles(); });
    TidyUp([&] {
      if (stage_ == Stage::kSaved) folder_.FlushToDevice();
    });
    if (stage_ == Stage::kCleared) state_.Workout = workoutBefore_;
    steps_.Log(StoppedLine());
  }

 private:
  enum class Stage { kNotBegun, kCleared, kSaved };

  /// The state of "temp.wav" and "temp.mp3". The files may also be an earlier run's, which leaves
  /// them when there is no encoder.
  enum class WorkingFiles { kNotMade, kMade, kStay };

  void Prepare() {
    // Showing the window clears its list, so an earlier failure is logged after that.
    const auto clearing = steps_.Try([&] {
      stage_ = Stage::kCleared;
      folder_.Clear(WhatToKeep());
    });
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
    work_.BeginInstruction(exercise);
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
    work_.EndFile();
  }

  void KeepMp3(const std::string& path) {
    unlisted_ = path;
    steps_.Run([&] { folder_.CopyInto(kWorkingMp3, path); });
    steps_.Run([&] { RemoveFile(kWorkingWav); });
    steps_.Run([&] { RemoveFile(kWorkingMp3); });
    // Quirks 47 and 48.
    steps_.Log(FileName(path) + " MP3 Instruction file created sucessfully.");
    Tag(path);
    List(path);
  }

  /// Without an encoder the instruction stays a WAV file, and the working file is kept too
  /// (quirk 50).
  void KeepWav(const std::string& path) {
    unlisted_ = path;
    steps_.Run([&] { folder_.CopyInto(kWorkingWav, path); });
    steps_.Log(FileName(path) + " WAV Instruction file created sucessfully.");
    List(path);
  }

  void CopyMusic(std::int16_t exercise) {
    steps_.Run([&] {
      const auto drawn = drawn_.find(exercise);
      if (drawn != drawn_.end()) {
        for (const std::string& song : drawn->second) AddSong(song);
        return;
      }
      const ExerciseRecord& record = state_.Workout[exercise];
      for (int j = 0; j < record.NumberOfMusicFiles; ++j) AddSong(record.MusicFile[j].Trimmed());
    });
  }

  void AddSong(const std::string& source) {
    work_.BeginSong(source);
    CopySong(source);
    work_.EndFile();
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
      CopyStart start = plan ? CopyStart{plan->tag, plan->audioOffset} : CopyStart{};
      start.watch = work_.Watch();
      CopyOrSayWhy(source, path, start);
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
    List(path);
  }

  void CopyOrSayWhy(const std::string& source, const std::string& path, const CopyStart& start) {
    try {
      unlisted_ = path;
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

  /// Appends the latest file to the play list and moves on to the next number.
  void List(const std::string& path) {
    steps_.Run([&] {
      folder_.Claim(playList_);
      AddToPlaylistFile(path, playList_);
    });
    unlisted_.clear();
    work_.AddListed();
    ++counter_;
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
    work_.BeginFlush();
    steps_.Run([&] { folder_.FlushToDevice(); });
    work_.End();
    steps_.Log("");
    steps_.Log("UPDATE COMPLETE.");
  }

  /// The next update tries again; that this one was stopped must not get lost.
  template <class Statement>
  void TidyUp(Statement&& statement) {
    try {
      statement();
    } catch (const FileError& error) {
      steps_.LogFailure(error.what());
    }
  }

  void RemoveUnlisted() const {
    if (!unlisted_.empty() && folder_.MayChange(unlisted_)) RemoveFile(unlisted_);
  }

  void RemoveWorkingFiles() const {
    if (workingFiles_ != WorkingFiles::kMade) return;
    RemoveFile(kWorkingWav);
    RemoveFile(kWorkingMp3);
  }

  std::string StoppedLine() const {
    const std::string workout = FileName(state_.WorkoutFileName);
    if (stage_ == Stage::kNotBegun) return NotUpdatedText({workout});
    return stage_ == Stage::kCleared ? StoppedUnchangedText(workout) : work_.StoppedLine();
  }

  Program& program_;
  ProgramState& state_;
  ProgressLog& log_;
  UpdateHost& host_;
  Steps steps_;
  UpdateWork work_;
  std::string workoutName_;
  OutputFolder folder_;
  std::string playList_;
  DrawnSongs drawn_;
  std::string text_;  // the sentence of the current exercise, for its music too (quirk 53)
  int counter_ = 1;
  WorkingFiles workingFiles_ = WorkingFiles::kNotMade;
  Stage stage_ = Stage::kNotBegun;
  ExerciseSlots workoutBefore_ = state_.Workout;
  std::string unlisted_;  // the file that is being written, until it is in the play list
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
    update.EndStopped();
    throw;
  }
}

}  // namespace repvolta
