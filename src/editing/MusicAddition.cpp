#include "editing/MusicAddition.h"

#include <algorithm>
#include <exception>

#include "app/Exercises.h"
#include "app/PathField.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Text.h"
#include "mp3/GetPlayTime.h"

namespace repvolta {
namespace {

constexpr std::size_t kLinesOfAGroup = 5;
constexpr std::size_t kLongestName = 60;  // bytes; a longer one would make the box too wide

/// The last part of a path; a folder keeps the separator at its end.
std::string ShownName(const std::string& path) {
  const std::string part = WithoutSeparator(path);
  std::string name = ShownOnOneLine(FileName(part) + path.substr(part.size()));
  if (name.size() <= kLongestName) return name;
  return std::string(CutUtf8(name, kLongestName)) + "...";
}

std::vector<std::string> ShownNames(const std::vector<std::string>& paths) {
  std::vector<std::string> names;
  names.reserve(paths.size());
  for (const std::string& path : paths) names.push_back(ShownName(path));
  return names;
}

std::string Songs(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " song" : " songs");
}

/// A paragraph with a title and a line for each item; nothing when there are no items.
std::string Group(const std::string& title, const std::vector<std::string>& items) {
  if (items.empty()) return {};
  std::string text = "\r\r" + title + ":";
  const std::size_t shown = std::min(items.size(), kLinesOfAGroup);
  for (std::size_t i = 0; i < shown; ++i) text += "\r" + ShownOnOneLine(items[i]);
  if (items.size() > shown) text += "\rand " + std::to_string(items.size() - shown) + " more";
  return text;
}

std::string NoMusicTitle(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " is" : " are") +
         " no MP3 file, or a folder without one";
}

}  // namespace

void ChangeMusic(ProgramState& state, const std::function<void(ExerciseRecord&)>& change) {
  ExerciseRecord& exercise = state.Workout[state.CurrentExercise];
  const ExerciseRecord before = exercise;
  try {
    change(exercise);
    CalculateExerciseMusicTime(state);
  } catch (...) {
    exercise = before;
    throw;
  }
}

void AddMusicFile(ProgramState& state, const std::string& path) {
  ChangeMusic(state, [&](ExerciseRecord& exercise) {
    const std::int16_t count = exercise.NumberOfMusicFiles;
    exercise.MusicFile[count] = PathField(path);
    exercise.MusicFilePlayTime[count] = GetPlayTime(path);
    ++exercise.NumberOfMusicFiles;
  });
}

MusicAddition AddFoundMusic(ProgramState& state, const FoundMusic& found) {
  MusicAddition addition{
      .added = {}, .noRoom = {}, .noMusic = found.noMusic, .failures = found.failures};
  for (const std::string& song : found.songs) {
    if (state.Workout[state.CurrentExercise].NumberOfMusicFiles >= MaxMusicFiles) {
      addition.noRoom.push_back(song);
      continue;
    }
    try {
      AddMusicFile(state, song);
      addition.added.push_back(song);
    } catch (const FileError& error) {
      addition.failures.emplace_back(error.what());
    } catch (const std::exception& error) {
      addition.failures.push_back(ShownName(song) + ": " + error.what());
    }
  }
  return addition;
}

std::string NotAddedText(const MusicAddition& addition) {
  const std::string groups =
      Group(Songs(addition.noRoom.size()) + " did not fit, because an exercise has " +
                std::to_string(MaxMusicFiles) + " at most",
            ShownNames(addition.noRoom)) +
      Group(NoMusicTitle(addition.noMusic.size()), ShownNames(addition.noMusic)) +
      Group(std::to_string(addition.failures.size()) + " could not be read or kept",
            addition.failures);
  if (groups.empty()) return {};
  const std::size_t count = addition.added.size();
  return Songs(count) + (count == 1 ? " was" : " were") + " added." + groups;
}

}  // namespace repvolta
