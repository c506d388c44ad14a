#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Mailbox.h"

namespace repvolta {

/// What a disk says about a folder where it is mounted.
struct VolumeAnswer {
  bool isFolder = false;                   // false also when the disk is broken
  std::optional<std::uint64_t> freeBytes;  // for ordinary users; nothing when it does not know
};

/// Asks disks, each in a thread of its own: a dead network or a player that hangs holds up neither
/// the caller nor the others. A question without an answer outlives this object and does no harm.
class VolumeAnswers {
 public:
  /// The event loop calls `answered` after answers have come.
  explicit VolumeAnswers(std::function<void()> answered);

  /// Asks the disk at `root` again, unless it still owes an answer.
  void Ask(const std::string& root);

  /// Waits until no disk owes an answer, at most `limit`.
  void Wait(std::chrono::milliseconds limit);

  /// The last answer; nothing when there has been none, or when the disk owes one.
  std::optional<VolumeAnswer> Of(const std::string& root) const;

 private:
  struct Shared;

  std::shared_ptr<Shared> shared_;
  std::function<void()> answered_;
  Mailbox mailbox_;
};

}  // namespace repvolta
