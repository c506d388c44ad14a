#include "update/UpdateDriver.h"

#include <algorithm>
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
#include "keeping/KeepWorkout.h"
#include "player/OutputFolder.h"
#include "player/PlayList.h"
#include "player/PlayerDisk.h"
#include "player/PlayerPlayList.h"
#include "update/Encoder.h"
#include "update/Growth.h"
#include "update/NotingSpeech.h"
#include "update/NumberedName.h"
#include "update/ProcessMP3tag.h"
#include "update/RandomMusic.h"
#include "update/SongCopy.h"
#include "update/Steps.h"
#include "update/StopTexts.h"
#include "update/TaggedSource.h"
#include "update/UpdateWork.h"
#include "update/WhatToKeep.h"

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
        speech_(program.speech, program.clock),
        steps_(log, host),
        work_(steps_, host),
        workoutName_(BaseName(state_.WorkoutFileName)),
        folder_(state_.Settings.OutputPath.Text(), workoutName_),
        playList_(folder_, PlayListName(workoutName_)),
        disk_(state_.Settings.OutputPath.Text()) {}

  /// Returns the path of the play list.
  std::string Run() {
    Prepare();
    GrowWorkout(program_, steps_);
    drawn_ = DrawRandomMusic(program_, steps_);
    KeepVersion();
    // The growth is saved first, so that it stays even if all the rest fails (quirk 34).
    steps_.Run([&] { SaveWorkout(state_); });
    stage_ = Stage::kSaved;
    work_.Plan(WorkOfExercises(state_.Workout, state_.NumberOfExercises, drawn_));
    for (std::int16_t i = 0; i < state_.NumberOfExercises; ++i) {
      text_.clear();
      ProduceInstruction(i);
      CopyMusic(i);
    }
    Finish();
    TellResult(UpdateResult::End::kComplete);
    return folder_.Path() + playList_.Name();
  }

  /// After a stop: leaves no working files, and on the player the files of the play list, which are
  /// on the device. Logs what is there.
  void EndStopped() {
    TidyUp([&] { ListFinished(); });
    TidyUp([&] { playList_.Complete(); });
    TidyUp([&] { WritePlayerPlayList(); });
    RemoveWorkingFiles();
    TidyUp([&] {
      if (stage_ == Stage::kSaved) folder_.FlushToDevice();
    });
    if (stage_ == Stage::kCleared) state_.Workout = workoutBefore_;
    steps_.Log(StoppedLine());
    TellResult(UpdateResult::End::kStopped);
  }

 private:
  /// The state of "temp.wav" and "temp.mp3". The files may also be an earlier run's, which leaves
  /// them when there is no encoder.
  enum class WorkingFiles { kNotMade, kMade, kStay };

  enum class Stage { kNotBegun, kCleared, kSaved };

  void Prepare() {
    const std::string asked = folder_.Name();
    // Showing the window clears its list, so an earlier failure is logged after that.
    const auto clearing = steps_.Try([&] {
      stage_ = Stage::kCleared;
      folder_.Clear(WhatToKeep(state_));
    });
    const auto creation = steps_.Try([&] { folder_.Create(); });
    host_.UpdateBegins();
    steps_.Log("Updating Workout " + FileName(state_.WorkoutFileName));
    steps_.LogFailure(clearing);
    steps_.LogFailure(creation);
    // This line ends the step, even if the step has failed (quirk 47).
    steps_.Log("Created directory " + folder_.Path());
    if (folder_.Name() != asked) WarnOfName(asked, folder_.Name());
  }

  /// The player could not hold the name as it is.
  void WarnOfName(const std::string& name, const std::string& kept) {
    steps_.Log("WARNING: " + name + " is kept as " + kept);
  }

  void KeepVersion() {
    const std::string unkept =
        KeepBefore(BeforeWhat::kUpdate, PathOfWorkout(state_), state_, program_.clock.Now());
    if (unkept.empty()) return;
    steps_.Log("WARNING: " + unkept);
    state_.Kept.isFailureTold = true;
  }

  void ProduceInstruction(std::int16_t exercise) {
    work_.BeginInstruction(exercise);
    steps_.Run([&] {
      workingFiles_ = WorkingFiles::kMade;
      GenerateHumanVoiceInstruction(state_, exercise, kWorkingWav, speech_, log_);
    });
    steps_.Run([&] { text_ = GenerateTextInstruction(state_.Workout, exercise); });
    Encoding encoding = Encoding::kNoEncoder;
    steps_.Run([&] {
      encoding = EncodeMP3file(program_.processes, kWorkingWav, kWorkingMp3);
      if (encoding == Encoding::kNoEncoder) workingFiles_ = WorkingFiles::kStay;
    });
    const std::string name = InstructionName(counter_, encoding);
    if (encoding == Encoding::kEncoderRun) {
      KeepMp3(name);
    } else {
      KeepWav(name);
    }
    work_.EndFile();
  }

  void KeepMp3(std::string name) {
    const TaggedSource source = WithTag(kWorkingMp3, kWorkingMp3, name);
    bool isCopied = false;
    steps_.Run([&] {
      name = folder_.CopyInto(source.FileToCopy(), name, source.Start());
      unlisted_ = name;
      isCopied = true;
    });
    steps_.Run([&] { RemoveFile(kWorkingWav); });
    steps_.Run([&] { RemoveFile(kWorkingMp3); });
    // The line also comes after an error, and has always been misspelled (quirks 47 and 48).
    steps_.Log(name + " MP3 Instruction file created sucessfully.");
    if (isCopied) {
      LogTag(source, name);
      List(name);
    } else {
      // What is not there cannot have its tag, either.
      steps_.Run([&] { folder_.OpenFile(name, File::Access::kRead); });
    }
    ++counter_;
  }

  /// Without an encoder the instruction stays a WAV file, and the working file is kept too
  /// (quirk 50).
  void KeepWav(std::string name) {
    bool isCopied = false;
    steps_.Run([&] {
      unlisted_ = name = folder_.CopyInto(kWorkingWav, name);
      latest_ = {.name = name, .title = BaseName(name)};
      isCopied = true;
    });
    steps_.Log(name + " WAV Instruction file created sucessfully.");
    if (isCopied) List(name);
    ++counter_;
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
      steps_.Log(MissingSongLine(source));  // quirk 52
      return;
    }
    const std::string name = SongCopyName(counter_, source);
    // A copy that failed never shows: it is left out like a song that is missing.
    const auto kept = CopyWithTag(source, name);
    if (!kept) return;
    List(*kept);
    ++counter_;
  }

  /// Returns the name of the copy; nothing when there is none.
  std::optional<std::string> CopyWithTag(const std::string& source, const std::string& name) {
    const TaggedSource tagged = WithTag(source, kWorkingSong, name);
    std::optional<std::string> kept;
    steps_.Run([&] {
      kept = CopyOrSayWhy(source, tagged, name);
      unlisted_ = *kept;
    });
    if (tagged.FileToCopy() == kWorkingSong) steps_.Run([&] { RemoveFile(kWorkingSong); });
    if (kept && *kept != name) WarnOfName(FileName(source), *kept);
    if (!kept || !WaitFor(*kept)) return std::nullopt;
    LogTag(tagged, *kept);
    return kept;
  }

  TaggedSource WithTag(const std::string& source, const std::string& workingFile,
                       const std::string& name) {
    steps_.CheckStop();
    if (ListsForPlayer() || host_.IsWatched()) {
      latest_ = {.name = name, .title = TitleOf(name, text_), .seconds = SecondsOf(source)};
    }
    return {source, workingFile, folder_.Path() + name, {text_, state_.WorkoutFileName}};
  }

  void LogTag(const TaggedSource& tagged, const std::string& name) {
    steps_.LogFailure(tagged.Log(name, log_));
  }

  std::string CopyOrSayWhy(const std::string& source, const TaggedSource& tagged,
                           const std::string& name) {
    try {
      CopyStart start = tagged.Start();
      start.watch = work_.Watch();
      return folder_.CopyInto(tagged.FileToCopy(), name, start);
    } catch (const FileError& error) {
      throw std::runtime_error(NotCopiedText(source, error));
    }
  }

  /// False when the run no longer waits for the copy, or something else has taken its name.
  bool WaitFor(const std::string& name) {
    bool isThere = false;
    steps_.Run([&] { isThere = Appears(name); });
    return isThere;
  }

  bool Appears(const std::string& name) {
    auto status = folder_.StatusOf(name);
    while (!status) {
      steps_.CheckStop();
      if (!host_.KeepWaiting()) return false;
      status = folder_.StatusOf(name);
    }
    return S_ISREG(status->st_mode);
  }

  /// Appends the latest file to the play list.
  void List(const std::string& name) {
    const std::string asked = playList_.Name();
    steps_.Run([&] { playList_.AddToPlaylistFile(folder_.Path() + name); });
    if (playList_.Name() != asked) WarnOfName(asked, playList_.Name());
    ListForPlayer(name);
    unlisted_.clear();
    work_.AddListed(latest_.seconds);
  }

  bool ListsForPlayer() const { return Get(state_.Options, kPlayListForPlayer); }

  void ListForPlayer(const std::string& name) {
    if (!ListsForPlayer()) return;
    latest_.name = name;
    playerPlayList_.Add(latest_);
  }

  /// In one pass, since many players take each file only once. Throws FileError.
  void WritePlayerPlayList() {
    if (playerPlayList_.IsEmpty()) return;
    const std::string name = BaseName(playList_.Name()) + kPlayerPlayListExtension;
    const std::string kept = folder_.WriteInto(name, playerPlayList_.Text());
    if (kept != name) WarnOfName(name, kept);
  }

  void Finish() {
    // A second attempt, for files that could not be deleted earlier.
    if (workingFiles_ == WorkingFiles::kMade) {
      for (const char* file : {kWorkingWav, kWorkingMp3}) steps_.Run([&] { RemoveFile(file); });
    }
    work_.BeginFlush();
    steps_.Run([&] { playList_.Complete(); });
    steps_.Run([&] { WritePlayerPlayList(); });
    steps_.Run([&] { folder_.FlushToDevice(); });
    steps_.Run([&] { disk_.Remember(state_); });
    work_.End();
    steps_.Log("");
    steps_.Log("UPDATE COMPLETE.");
  }

  /// The next update writes all anew; that this one was stopped must not get lost.
  template <class Statement>
  void TidyUp(Statement&& statement) {
    try {
      statement();
    } catch (const std::exception& error) {
      steps_.LogFailure(error.what());
    }
  }

  /// A file that is whole, but that the stop has kept from the play list.
  void ListFinished() {
    if (unlisted_.empty() || !folder_.StatusOf(unlisted_)) return;
    playList_.AddToPlaylistFile(folder_.Path() + unlisted_);
    ListForPlayer(unlisted_);
    work_.AddListed(latest_.seconds);
  }

  void RemoveWorkingFiles() {
    TidyUp([] { RemoveFile(kWorkingSong); });
    if (workingFiles_ != WorkingFiles::kMade) return;
    for (const char* file : {kWorkingWav, kWorkingMp3}) TidyUp([&] { RemoveFile(file); });
  }

  void TellResult(UpdateResult::End end) {
    UpdateResult result = work_.Result(end);
    result.workout = workoutName_;
    result.folder = folder_.Path();
    host_.UpdateEnded(result);
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
  NotingSpeech speech_;
  Steps steps_;
  UpdateWork work_;
  std::string workoutName_;
  OutputFolder folder_;
  PlayList playList_;
  PlayerPlayList playerPlayList_;
  PlayerFile latest_;  // the file that is being made, for the player's play list
  PlayerDisk disk_;
  DrawnSongs drawn_;
  std::string text_;  // the sentence of the current exercise, for its music too (quirk 53)
  int counter_ = 1;
  WorkingFiles workingFiles_ = WorkingFiles::kNotMade;
  Stage stage_ = Stage::kNotBegun;
  ExerciseSlots workoutBefore_ = state_.Workout;
  std::string unlisted_;  // a file that is on the player, but not yet in the play list
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
