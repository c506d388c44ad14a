#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "editing/FolderQuestion.h"
#include "platform/Mailbox.h"

namespace repvolta {

/// What is known of a folder.
struct FolderSight {
  enum class State { kLooking, kDone, kUnreadable };

  State state = State::kLooking;
  int songs = 0;                                // so far; those that the music list would have
  std::optional<std::uint64_t> freeBytes = {};  // nothing when the disk does not know

  bool operator==(const FolderSight&) const = default;
};

/// Looks at a folder in a thread of its own, however large it is and however slow its disk. A look
/// that never ends outlives this object and does no harm. Needs a QCoreApplication.
class FolderLook {
 public:
  /// The event loop calls `tell` each time when more is known of the folder.
  FolderLook(FolderQuestion::Figure figure, std::function<void(const FolderSight&)> tell);
  ~FolderLook();
  FolderLook(const FolderLook&) = delete;
  FolderLook& operator=(const FolderLook&) = delete;

  /// Looks at this folder from now on, and gives up the one before.
  void At(const std::string& folder);

  /// Nothing is told of the folder any more.
  void GiveUp();

 private:
  struct Job;

  const FolderQuestion::Figure figure_;
  const std::function<void(const FolderSight&)> tell_;
  std::shared_ptr<Job> job_;
  Mailbox mailbox_;
};

}  // namespace repvolta
