#pragma once

#include "update/UpdatePlan.h"

namespace repvolta {

inline PlannedFile InstructionFile(const std::string& name) {
  return {.kind = PlannedFile::Kind::kInstruction,
          .name = name,
          .title = "RV001- Squat - 3 sets, 20kg for 12reps",
          .source = "",
          .seconds = 12,
          .bytes = 96'000,
          .figures = PlannedFile::Figures::kEstimated,
          .choice = PlannedFile::Choice::kSet};
}

inline PlannedFile SongFile(const std::string& name, const std::string& source,
                            PlannedFile::Choice choice = PlannedFile::Choice::kSet) {
  return {.kind = PlannedFile::Kind::kSong,
          .name = name,
          .title = "RV002- Squat - 3 sets, 20kg for 12reps",
          .source = source,
          .seconds = 200,
          .bytes = 3'200'000,
          .figures = PlannedFile::Figures::kExact,
          .choice = choice};
}

/// "Squat" with a song and a grown weight, then "Row" with an example of random music.
inline UpdatePlan SamplePlan() {
  UpdatePlan plan{};
  plan.workout = "Monday.RPV";
  plan.day = 39166;
  plan.folder = "/media/player/Monday/";
  plan.playList = "Monday.M3U";
  plan.exercises = {
      {.name = "Squat",
       .growth = {{.set = 0, .field = 1, .from = 20, .to = 22.5F, .day = 39166, .failure = {}}},
       .sentence = "Squat - 1 set, 22.5kg for 12reps",
       .clips = {{.kind = Clip::Kind::kName, .text = "Squat"},
                 {.kind = Clip::Kind::kWord, .text = "1"},
                 {.kind = Clip::Kind::kWord, .text = "set"}},
       .files = {InstructionFile("RV001-Instructions.mp3"),
                 SongFile("RV002-Run.mp3", "/music/Run.mp3")}},
      {.name = "Row",
       .growth = {},
       .sentence = "Row - 1 set, 40kg for 8reps",
       .clips = {{.kind = Clip::Kind::kName, .text = "Row"}},
       .files = {InstructionFile("RV003-Instructions.mp3"),
                 SongFile("RV004-Walk.mp3", "/music/Walk.mp3", PlannedFile::Choice::kExample)}}};
  plan.seconds = 424;
  plan.bytes = 6'592'000;
  plan.room = DiskRoom{.free = 1'200'000'000, .unit = 4096};
  return plan;
}

/// The workout of that plan.
inline ExerciseSlots SampleWorkout() {
  ExerciseSlots workout;
  workout[0].ExerciseName = "Squat";
  workout[0].NumberOfMusicFiles = 2;
  workout[0].MusicFile[0] = "/music/Gone.mp3";
  workout[0].MusicFile[1] = "/music/Run.mp3";
  workout[1].ExerciseName = "Row";
  workout[1].RandomMusic = kTrue;
  return workout;
}

inline PlannedProblem ProblemOf(PlannedProblem::Kind kind, const std::string& text,
                                int exercise = kNoExercise, int row = -1) {
  return {.kind = kind,
          .severity = PlannedProblem::Severity::kError,
          .exercise = exercise,
          .row = row,
          .text = text};
}

}  // namespace repvolta
