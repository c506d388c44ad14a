#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace repvolta {

/// What the command line of the program without a window asks for.
struct UpdateArguments {
  enum class Task { kUpdate, kShowPlan, kShowPlanAsJson, kShowHelp, kShowVersion };

  Task task = Task::kUpdate;
  std::vector<std::string> workouts = {};  // as they were typed; none: all

  bool operator==(const UpdateArguments&) const = default;
};

/// A word of the command line that cannot be understood; what() says which.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Options may stand before and behind the workouts. Throws UsageError; an unknown option is
/// refused even beside --help.
UpdateArguments ParseUpdateArguments(const std::vector<std::string>& words);

/// The lines of --help.
std::string UpdateHelp();

}  // namespace repvolta
