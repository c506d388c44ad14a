#include "update/PlanUpdate.h"

#include <cmath>
#include <set>
#include <stdexcept>
#include <utility>

#include "app/Options.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "instruction/TextInstruction.h"
#include "instruction/VoiceInstruction.h"
#include "player/OutputFolder.h"
#include "player/OutputPath.h"
#include "player/PlayList.h"
#include "player/PlayerPlayList.h"
#include "update/Encoder.h"
#include "update/InstructionSize.h"
#include "update/KeptLines.h"
#include "update/NumberedName.h"
#include "update/PlanProblems.h"
#include "update/ProcessMP3tag.h"
#include "update/RandomMusic.h"
#include "update/SongCopy.h"
#include "update/Steps.h"
#include "update/UpdateWork.h"
#include "update/WhatToKeep.h"

namespace repvolta {
namespace {

/// Nobody watches a plan or stops it.
class Nobody : public UpdateHost {
 public:
  bool KeepWaiting() override { return false; }
  bool StopRequested() override { return false; }
};

/// Goes through one update on a copy of the state.
class Planning {
 public:
  Planning(const ProgramState& state, double day, RandomNumbers& random)
      : state_(state),
        random_(random),
        encoding_(EncodingNow()),
        listsForPlayer_(Get(state.Options, kPlayListForPlayer)) {
    state_.WorkoutFileName = TrimBlanks(state_.WorkoutFileName);
    state_.Settings.OutputPath = state_.Settings.OutputPath.Trimmed();
    plan_.workout = state_.WorkoutFileName;
    plan_.day = day;
  }

  UpdatePlan Run() {
    if (plan_.workout.empty()) return std::move(plan_);
    plan_.room = RoomForUpdate(state_);
    problems_.Add(ProblemsOfAll(state_, plan_.day));
    FindFolder();
    Grow();
    Draw();
    PlanFiles();
    if (!playerList_.IsEmpty()) plan_.bytes += playerList_.Text().size();
    plan_.problems = problems_.Take();
    return std::move(plan_);
  }

 private:
  void FindFolder() {
    if (IsOutputPathMissing(state_.Settings)) return;
    const std::string outputPath = state_.Settings.OutputPath.Text();
    OutputFolder folder(outputPath, BaseName(plan_.workout));
    try {
      folder.Look(WhatToKeep(state_));
      problems_.Add(ProblemsOfCreation(outputPath, folder.Name()));
    } catch (const std::exception& error) {
      problems_.Add({ProblemOfFolder(error)});
    }
    plan_.folder = folder.Path();
  }

  void Grow() {
    plan_.exercises.resize(static_cast<std::size_t>(state_.NumberOfExercises));
    for (int i = 0; i < state_.NumberOfExercises; ++i) {
      ExerciseRecord& exercise = state_.Workout[i];
      problems_.Add(ProblemsOfDates(exercise, i, plan_.day));
      At(i).name = exercise.ExerciseName.Trimmed();
      At(i).growth = repvolta::Grow(exercise, plan_.day);
      problems_.Add(ProblemsOfGrowth(exercise, i, At(i).growth));
    }
  }

  void Draw() {
    for (int i = 0; i < state_.NumberOfExercises; ++i) {
      std::vector<std::string> lines;
      KeptLines log(lines);
      Nobody host;
      Steps steps(log, host);
      auto drawing = DrawFor(state_, i, random_, steps);
      if (!drawing) continue;
      problems_.Add(ProblemsOfDrawing(state_.Workout[i], i, *drawing, lines));
      drawn_[i] = std::move(drawing->songs);
    }
  }

  void PlanFiles() {
    const auto work = WorkOfExercises(state_.Workout, state_.NumberOfExercises, drawn_);
    for (int i = 0; i < state_.NumberOfExercises; ++i) {
      PlanInstruction(i);
      const auto& songs = work[static_cast<std::size_t>(i)].songs;
      for (std::size_t row = 0; row < songs.size(); ++row) {
        PlanSong(i, static_cast<int>(row), songs[row]);
      }
      problems_.Add(ProblemsOfCounts(state_.Workout[i], i));
    }
  }

  void PlanInstruction(int i) {
    const ExerciseRecord& exercise = state_.Workout[i];
    PlannedExercise& planned = At(i);
    planned.sentence = SentenceOf(i);
    planned.clips = ClipsFor(state_.Settings, exercise).clips;
    problems_.Add(ProblemsOfClips(planned, i, clipFiles_, spoken_));
    if (state_.Settings.IncludeWeightValues == kTrue) problems_.Add(ProblemsOfValues(exercise, i));
    const std::string name = InstructionName(number_, encoding_);
    newTag_ = SizeOfNewTag(name, planned.sentence, plan_.workout);
    const InstructionSize size = SizeOfInstruction(planned.clips, clipFiles_);
    PlannedFile file{.kind = PlannedFile::Kind::kInstruction,
                     .name = name,
                     .title = {},
                     .source = {},
                     .seconds = static_cast<int>(std::lround(size.seconds)),
                     .bytes = size.bytes,
                     .figures = PlannedFile::Figures::kEstimated,
                     .choice = PlannedFile::Choice::kSet};
    if (encoding_ == Encoding::kEncoderRun) {
      file.title = TitleOf(file.name, planned.sentence);
      file.bytes = EncodedSize(size) + newTag_;
    } else if (size.clips == InstructionSize::Clips::kAllThere) {
      file.figures = PlannedFile::Figures::kExact;
    }
    Take(std::move(file), {.exercise = i, .name = planned.name});
  }

  std::string SentenceOf(int exercise) const {
    try {
      return GenerateTextInstruction(state_.Workout, static_cast<std::int16_t>(exercise));
    } catch (const std::out_of_range&) {
      return "";
    }
  }

  void PlanSong(int i, int row, const std::string& song) {
    PlannedExercise& planned = At(i);
    const PlannedPlace place{
        .exercise = i, .row = drawn_.contains(i) ? kNoRow : row, .name = planned.name};
    const std::string name = SongCopyName(number_, song);
    try {
      const auto copy =
          PlanSongCopy(song, plan_.folder + name, {planned.sentence, plan_.workout}, newTag_);
      if (!copy) return problems_.Add({ProblemOfMissing(song, place)});
      problems_.Add(ProblemsOfCopy(song, *copy, place));
      Take({.kind = PlannedFile::Kind::kSong,
            .name = name,
            .title =
                copy->newTag == SongCopy::NewTag::kWritten ? TitleOf(name, planned.sentence) : "",
            .source = song,
            .seconds = copy->seconds,
            .bytes = copy->bytes,
            .figures = PlannedFile::Figures::kExact,
            .choice =
                drawn_.contains(i) ? PlannedFile::Choice::kExample : PlannedFile::Choice::kSet},
           place);
    } catch (const FileError& error) {
      problems_.Add({ProblemOfUnreadable(song, error, place)});
    }
  }

  void Take(PlannedFile file, const PlannedPlace& place) {
    ++number_;
    plan_.bytes += file.bytes;
    if (file.seconds != kUnknownSeconds) plan_.seconds += file.seconds;
    try {
      plan_.bytes += PlayListLine(plan_.folder + file.name).size();
      if (plan_.playList.empty()) plan_.playList = PlayListName(BaseName(plan_.workout));
    } catch (const std::invalid_argument& error) {
      problems_.Add({ProblemOfUnlisted(file.name, error, place)});
    }
    AddForPlayer(file, At(place.exercise).sentence);
    At(place.exercise).files.push_back(std::move(file));
  }

  /// The play list has a title for every song, and no play time for a WAV file.
  void AddForPlayer(const PlannedFile& file, const std::string& sentence) {
    if (!listsForPlayer_) return;
    if (file.kind == PlannedFile::Kind::kInstruction && file.title.empty()) {
      playerList_.Add({.name = file.name, .title = BaseName(file.name)});
    } else {
      playerList_.Add(
          {.name = file.name, .title = TitleOf(file.name, sentence), .seconds = file.seconds});
    }
  }

  PlannedExercise& At(int exercise) { return plan_.exercises[static_cast<std::size_t>(exercise)]; }

  ProgramState state_;
  RandomNumbers& random_;
  Encoding encoding_;
  UpdatePlan plan_{};
  PlannedProblems problems_;
  DrawnSongs drawn_;
  ClipFiles clipFiles_;
  std::set<std::string> spoken_;  // the clips of names that the update will have spoken
  std::uint64_t newTag_ = 0;      // the size of the tags of the exercise
  bool listsForPlayer_;
  PlayerPlayList playerList_;
  int number_ = 1;  // of the next file
};

}  // namespace

UpdatePlan PlanUpdate(const ProgramState& state, double day, RandomNumbers& random) {
  return Planning(state, day, random).Run();
}

}  // namespace repvolta
