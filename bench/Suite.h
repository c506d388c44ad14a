#pragma once

#include <functional>
#include <string>
#include <vector>

// What is compared with what. A row compares several ways to do the same; each is a benchmark that
// is named ROW/WAY and runs once an iteration, so that the ways of all rows can be run in turn.

namespace repvolta::bench {

/// Where the measured files lie and where there is room to work.
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

/// The seconds that `work` takes by the clock on the wall.
std::function<double()> Timed(std::function<void()> work);

/// Runs a program that prints the seconds that its work took, its own start apart.
std::function<double()> SelfTimed(std::vector<std::string> command);

void Register(const Way& way);

void RegisterPlayTimes(const Places& places);
void RegisterListing(const Places& places);
void RegisterCopies(const Places& places);
void RegisterJoining(const Places& places);
void RegisterUpdate(const Places& places);

}  // namespace repvolta::bench
