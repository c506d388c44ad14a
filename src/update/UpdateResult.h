#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace repvolta {

/// What an update of one workout has left on the player.
struct UpdateResult {
  enum class End { kComplete, kStopped };

  std::string workout = {};  // the name of its file, without ".RPV"
  std::string folder = {};   // on the player, its full path
  End end = End::kComplete;
  std::size_t files = 0;           // those of the play list
  std::size_t planned = 0;         // those that a complete update would have left
  std::int64_t seconds = 0;        // of the files whose play time is known
  std::size_t unknownSeconds = 0;  // how many files have no known play time

  bool operator==(const UpdateResult&) const = default;
};

}  // namespace repvolta
