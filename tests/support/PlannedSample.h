#pragma once

#include <string>

#include "base/Numbers.h"
#include "update/UpdatePlan.h"

namespace repvolta {

/// An exercise of a plan for pictures: its weight grows to `weight`, and it has an instruction and
/// a song, whose numbers begin with `number`.
inline PlannedExercise PlannedSample(const std::string& name, float weight, int number) {
  const auto nameOf = [](int file, const std::string& rest) {
    return "RV00" + std::to_string(file) + "-" + rest + ".mp3";
  };
  const std::string sentence = name + " - 3 sets, " + ListNumberText(weight) + "kg for 12reps";
  PlannedExercise exercise{
      .name = name, .growth = {}, .sentence = sentence, .clips = {}, .files = {}};
  exercise.growth.push_back(
      {.set = 0, .field = 1, .from = weight - 2.5F, .to = weight, .day = 0, .failure = {}});
  for (const char* word : {"3", "sets", "22", "point", "5", "kilograms", "for", "12", "reps"}) {
    exercise.clips.push_back({.kind = Clip::Kind::kWord, .text = word});
  }
  exercise.clips.insert(exercise.clips.begin(), {.kind = Clip::Kind::kName, .text = name});
  exercise.files.push_back({.kind = PlannedFile::Kind::kInstruction,
                            .name = nameOf(number, "Instructions"),
                            .title = "RV001- " + sentence,
                            .source = "",
                            .seconds = 14,
                            .bytes = 112'000,
                            .figures = PlannedFile::Figures::kEstimated,
                            .choice = PlannedFile::Choice::kSet});
  exercise.files.push_back({.kind = PlannedFile::Kind::kSong,
                            .name = nameOf(number + 1, "Café au lait"),
                            .title = "RV002- " + sentence,
                            .source = "/home/kim/Music/Café au lait.mp3",
                            .seconds = 215,
                            .bytes = 3'441'000,
                            .figures = PlannedFile::Figures::kExact,
                            .choice = PlannedFile::Choice::kSet});
  return exercise;
}

}  // namespace repvolta
