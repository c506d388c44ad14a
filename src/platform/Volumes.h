#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace repvolta {

/// A mounted file system that may hold a person's files.
struct Volume {
  enum class Kind { kFixed, kRemovable };
  /// A silent one has not answered: using it can take for ever.
  enum class State { kReady, kSilent };

  std::string root = {};   // the folder where it is mounted
  std::string label = {};  // what people call it
  Kind kind = Kind::kFixed;
  State state = State::kReady;
  std::optional<std::uint64_t> freeBytes = {};  // nothing when it does not know

  bool operator==(const Volume&) const = default;
};

/// The volumes of the computer.
class Volumes {
 public:
  virtual ~Volumes() = default;

  /// Those that are there now: "/" first, the others in the order of their roots. Never waits
  /// longer than an instant for a disk.
  virtual std::vector<Volume> Now() = 0;

  /// From now on the event loop calls `tell` when a volume came, went or answered.
  virtual void OnChange(std::function<void()> tell) = 0;
};

}  // namespace repvolta
