#pragma once

#include <functional>
#include <string>
#include <vector>

// The comparisons. A row compares several ways to do the same work; each way is a benchmark named
// ROW/WAY that runs once an iteration, so that the ways of all rows can take turns.

namespace repvolta::bench {

/// The folders of the measured files and of the work.
struct Places {
  std::string collection;
  std::string programs;  // the folder of the built programs, with the clips
  std::string peers;     // the folder of the scripts that drive other libraries
  std::string work;      // an empty folder, which is the current one
};

struct Way {
  std::string row;
  std::string name;
  std::function<void()> prepare;
  /// Does the work and returns the seconds that it took.
  std::function<double()> measure;
};

/// The wall-clock seconds that `work` takes.
std::function<double()> Timed(std::function<void()> work);

/// Runs a program that prints the seconds that its work took, without its own start.
std::function<double()> SelfTimed(std::vector<std::string> command);

void Register(const Way& way);

void RegisterPlayTimes(const Places& places);
void RegisterListing(const Places& places);
void RegisterCopies(const Places& places);
void RegisterJoining(const Places& places);
void RegisterUpdate(const Places& places);

}  // namespace repvolta::bench
