#pragma once

#include <map>
#include <string>
#include <vector>

#include "faults/FaultWorld.h"

namespace repvolta {

/// A change through the journal of a restore, which is all done or not at all: whatever call fails
/// or is the last before a kill, everything is as before or as it should be once a start has
/// finished it.
class OldOrNewFaults : public FaultWorld {
 protected:
  using Files = std::map<std::string, std::string>;  // contents by path

  /// `step` is what engine_steps calls the change. Works in the program directory.
  explicit OldOrNewFaults(const char* step);

  /// Puts everything as it was before the change.
  virtual void Reset() = 0;

  /// What must be all old or all new.
  virtual Files Own() const = 0;

  /// Makes the change once to see what it is; call this first.
  void LearnOldAndNew();

  FaultyRun ChangeWith(const Fault& fault);

  const Files& Old() const { return old_; }
  const Files& New() const { return new_; }

  /// These return how many calls were tried, one at a time, `distance` apart.
  int FailEveryCall(int distance);
  int FailDecidingCalls();
  int KillAmid(int distance);

 private:
  void ExpectOldOrNew(const ProgramRun& run) const;
  bool TryFault(const Fault& fault);
  int TryEvery(const std::string& group, int distance, const std::vector<const char*>& failures);

  const char* step_;
  Files old_;
  Files new_;
};

}  // namespace repvolta
