#pragma once

#include <functional>
#include <string>

namespace repvolta {

/// Whether a disk can be made ready to be unplugged.
struct Ejection {
  enum class State {
    kNone,  // the folder is on no disk that could be unplugged
    kPossible,
    kRefused,
  };

  State state = State::kNone;
  std::string disk;    // what people call it
  std::string reason;  // why it is refused, as a sentence

  bool operator==(const Ejection&) const = default;
};

/// The computer's disks. Each call returns at once, and the event loop calls `tell` once when the
/// answer is known or too long in coming. A newer call takes the place of one whose answer is still
/// to come: the older one's `tell` is then never called.
class Disks {
 public:
  virtual ~Disks() = default;

  /// Asks whether the disk that holds the folder can be ejected.
  virtual void Ask(const std::string& folder, std::function<void(const Ejection&)> tell) = 0;

  /// Unmounts the disk that holds the folder and switches it off. `tell` gets "", or as a sentence
  /// why the disk is not ready. Called again after a failure, goes on with what is left to do.
  virtual void Eject(const std::string& folder,
                     std::function<void(const std::string& failure)> tell) = 0;
};

}  // namespace repvolta
