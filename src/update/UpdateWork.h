#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/Records.h"
#include "base/File.h"
#include "update/RandomMusic.h"
#include "update/Steps.h"
#include "update/UpdateResult.h"

namespace repvolta {

/// The files that an update makes for one exercise: an instruction and copies of its songs.
struct ExerciseWork {
  std::string name;
  std::vector<std::string> songs;  // paths
};

/// The files for the first `count` exercises of a workout. Songs that were drawn replace those of
/// the record.
std::vector<ExerciseWork> WorkOfExercises(const ExerciseSlots& workout, int count,
                                          const DrawnSongs& drawn = {});

/// The work of making them all, see WorkDone; looks up the size of each song.
std::uint64_t AmountOfWork(const std::vector<ExerciseWork>& exercises);

/// Counts the work of one workout's update, tells the host of it, and knows which files are on the
/// player. The host may stop the update whenever it is told, also within a long copy: then
/// UpdateStopped is thrown.
class UpdateWork {
 public:
  UpdateWork(Steps& steps, UpdateHost& host) : steps_(steps), host_(host) {}

  /// Sets what is ahead.
  void Plan(std::vector<ExerciseWork> exercises);

  /// The instruction of the exercise is being made; its songs follow.
  void BeginInstruction(int exercise);

  /// The next song of the exercise is being copied.
  void BeginSong(const std::string& song);

  /// For the copy of the song: null unless the update is watched.
  CopyWatch Watch();

  /// The instruction or song is done, or has failed.
  void EndFile();

  /// A further file of the exercise is on the player and in the play list; `seconds` is its play
  /// time, or kUnknownSeconds.
  void AddListed(int seconds);

  /// The files are being flushed to the device.
  void BeginFlush();

  /// Everything is done.
  void End();

  /// What a stop leaves behind, as a line.
  std::string StoppedLine() const;

  /// How many files are on the player, and their play time.
  UpdateResult Result(UpdateResult::End end) const;

 private:
  void Begin(std::size_t file, const std::string& atHand);
  void Show(std::uint64_t done);

  Steps& steps_;
  UpdateHost& host_;
  std::vector<ExerciseWork> exercises_;
  std::vector<std::size_t> firstFile_;  // of each exercise
  std::vector<std::size_t> listed_;     // how many files of each exercise
  std::vector<std::uint64_t> before_;   // the work before each file; at last, before the flush
  std::uint64_t total_ = 0;
  std::int64_t seconds_ = 0;        // of the listed files
  std::size_t unknownSeconds_ = 0;  // listed files
  std::size_t exercise_ = 0;
  std::size_t file_ = 0;      // at hand
  std::uint64_t copied_ = 0;  // of the file at hand
  std::string atHand_;
};

}  // namespace repvolta
