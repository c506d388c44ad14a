#pragma once

#include "update/DryRun.h"

namespace repvolta {

inline constexpr double kSampleDay = 39166;  // 25 March 2007

/// A plan of one exercise that grows, with an instruction and two songs, of which one is drawn.
inline UpdatePlan SamplePlan() {
  const PlannedFile instruction = {.kind = PlannedFile::Kind::kInstruction,
                                   .name = "RV001-Instructions.mp3",
                                   .title = "Squat - 1 set, 52.5kg for 10reps",
                                   .source = "",
                                   .seconds = 7,
                                   .bytes = 61'000,
                                   .figures = PlannedFile::Figures::kEstimated,
                                   .choice = PlannedFile::Choice::kSet};
  const PlannedFile song = {.kind = PlannedFile::Kind::kSong,
                            .name = "RV002-Song.mp3",
                            .title = "Song",
                            .source = "/music/Song.mp3",
                            .seconds = 201,
                            .bytes = 4'750'001,
                            .figures = PlannedFile::Figures::kExact,
                            .choice = PlannedFile::Choice::kSet};
  PlannedFile drawn = song;
  drawn.name = "RV003-Drawn.mp3";
  drawn.source = "/music/Drawn.mp3";
  drawn.choice = PlannedFile::Choice::kExample;
  const SetGrowth growth = {
      .set = 0, .field = 1, .from = 50, .to = 52.5F, .day = kSampleDay, .failure = {}};
  return {.workout = "Monday.RPV",
          .day = kSampleDay,
          .folder = "/player/Monday/",
          .playList = "Monday.M3U",
          .exercises = {{.name = "Squat",
                         .growth = {growth},
                         .sentence = "Squat - 1 set, 52.5kg for 10reps",
                         .clips = {{Clip::Kind::kName, "Squat"}, {Clip::Kind::kWord, "1"}},
                         .files = {instruction, song, drawn}}},
          .problems = {},
          .seconds = 409,
          .bytes = 9'561'100,
          .room = DiskRoom{.free = 300'999'999, .unit = 4096}};
}

inline DryRun SampleDryRun() {
  return {.day = kSampleDay, .plans = {SamplePlan()}, .problems = {}};
}

inline PlannedProblem SampleProblem(PlannedProblem::Severity severity, const std::string& text) {
  return {.kind = PlannedProblem::Kind::kSongGone,
          .severity = severity,
          .exercise = 0,
          .row = 2,
          .text = text};
}

}  // namespace repvolta
