#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/Answers.h"

namespace repvolta {

/// What a disk says about a folder where it is mounted.
struct VolumeAnswer {
  bool isFolder = false;                   // false also when the disk is broken
  std::optional<std::uint64_t> freeBytes;  // for ordinary users; nothing when it does not know
};

/// What the disks say about the folders where they are mounted.
class VolumeAnswers : public Answers<VolumeAnswer> {
 public:
  explicit VolumeAnswers(std::function<void()> answered);
};

}  // namespace repvolta
