#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "app/ProgramState.h"

#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// The file or folder at a path: its kind and rights, content, and time of the last change.
struct Entry {
  std::string content;  // of a file; the target of a link
  std::int64_t changed = 0;
  std::uint64_t number = 0;
  unsigned mode = 0;

  bool operator==(const Entry&) const = default;
};
using Entries = std::map<std::string, Entry>;

/// Everything below a folder, by relative path.
Entries Look(const std::string& root);

/// One call that fails: see fault_shim.cpp.
struct Fault {
  std::string group;
  int number = 0;
  std::string failure;
  bool allBehind = false;
  bool hidesTypes = false;  // folders do not report the types of their entries

  std::string Text() const;
};

/// How a run with a fault went.
struct FaultyRun {
  ProgramRun run;
  std::vector<std::string> trace;
  bool hit = false;  // the call was reached
};

/// True when REPVOLTA_LONG asks for the long form of the tests.
bool IsLongRun();

/// The distance between the tried points: 1 in the long form, else `shortStep`, or seven times that
/// where programs start slowly: in a build with sanitizers, and when REPVOLTA_SLOW is set.
int PointStep(int shortStep);

/// The smallest set of folders in which an update takes all its paths: "program" with very short
/// clips, a fake encoder and a fake speech engine, the workout Monday with an exercise that grows,
/// one chosen and one drawn song; another workout; "music"; "player"; and "precious", which nobody
/// may touch.
class FaultWorld : public testing::Test {
 protected:
  FaultWorld();

  std::string Full(const std::string& path) const { return folder.Path() + path; }

  /// Restores everything that an update may have changed.
  void Reset();

  FaultyRun RunWith(const Fault& fault, const std::string& program = "program/repvolta-update",
                    const std::vector<std::string>& operands = {"Monday"});

  /// The environment that gives the tested programs their engine and temporary folder.
  Environment Surroundings() const;

  /// Updates without a fault.
  ProgramRun Update(const std::vector<std::string>& operands = {"Monday"});

  /// From now on the name of Monday's first exercise has no clip and must be spoken.
  void MakeMondaySpeak();

  /// Updates once without a fault, to learn the right content of the workout and the player.
  void LearnWhatIsRight();

  /// Checks the promises that hold after any fault.
  void ExpectNothingLost();
  void ExpectNoTemporaryFiles();

  /// True when the player has the same content as after an update without a fault.
  bool PlayerIsRight() const;

  TemporaryFolder folder;
  ProgramState state;
  Bytes oldWorkout;
  Bytes newWorkout;

 private:
  void BuildProgram();
  void BuildWorkouts();
  void ExpectWorkoutIsWhole();
  void ExpectClipIsWhole();
  void ExpectVersionsAreWhole(const Entries& now);
  void ExpectOnlyAllowedPaths(const Entries& now);

  Entries before_;
  std::map<std::string, std::string> rightPlayer_;
  std::string rightClip_;
  std::string rightOrigins_;
};

}  // namespace repvolta
