#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "app/ProgramState.h"

#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// What stands at a path: its kind and rights, content, and the moment of its last change.
struct Entry {
  std::string content;  // of a file; where a link leads
  std::int64_t changed = 0;
  std::uint64_t number = 0;
  unsigned mode = 0;

  bool operator==(const Entry&) const = default;
};
using Entries = std::map<std::string, Entry>;

/// All below a folder, by paths relative to it.
Entries Look(const std::string& root);

/// One call that fails: see fault_shim.cpp.
struct Fault {
  std::string group;
  int number = 0;
  std::string failure;
  bool allBehind = false;
  bool hidesTypes = false;  // and folders do not say what their entries are

  std::string Text() const;
};

/// How a run with a fault went.
struct FaultyRun {
  ProgramRun run;
  std::vector<std::string> trace;
  bool hit = false;  // the call was reached
};

/// True when the long form of the tests is wanted: REPVOLTA_LONG is set.
bool IsLongRun();

/// The long form tries each point, and this is 1; the short form one of `shortStep`, or of seven
/// times as many where programs take long to start: in the sanitizers' build, and where
/// REPVOLTA_SLOW is set.
int PointStep(int shortStep);

/// The smallest world in which an update goes all its ways: "program" with clips of a moment and an
/// encoder and a speech engine of our own, the workout Monday with one exercise that grows, one
/// song of its own and one drawn; another workout; "music"; "player"; and "precious", which nobody
/// may touch.
class FaultWorld : public testing::Test {
 protected:
  FaultWorld();

  std::string Full(const std::string& path) const { return folder.Path() + path; }

  /// Puts all that an update may have changed back to how it was at first.
  void Reset();

  FaultyRun RunWith(const Fault& fault, const std::string& program = "program/repvolta-update",
                    const std::vector<std::string>& operands = {"Monday"});

  /// Where the programs of the tests find their engine and their temporary folder.
  Environment Surroundings() const;

  /// Updates without a fault.
  ProgramRun Update(const std::vector<std::string>& operands = {"Monday"});

  /// From now on Monday's first exercise has a name that must be spoken first.
  void MakeMondaySpeak();

  /// Updates once without a fault, to know what the workout and the player then look like.
  void LearnWhatIsRight();

  /// The promises that hold whatever happened.
  void ExpectNothingLost();
  void ExpectNoTemporaryFiles();

  /// True when the player holds what an update without a fault brings there.
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
  void ExpectOnlyAllowedPaths(const Entries& now);

  Entries before_;
  std::map<std::string, std::string> rightPlayer_;
  std::string rightClip_;
};

}  // namespace repvolta
