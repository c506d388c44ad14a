#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "instruction/SpokenWords.h"

namespace repvolta {

/// The files of clips, each of which is looked for only once. The program directory must be
/// current.
class ClipFiles {
 public:
  struct Found {
    std::string path;
    std::optional<std::uint64_t> size;  // nothing when there is no such file
  };

  const Found& Of(const Clip& clip);

 private:
  std::map<std::pair<Clip::Kind, std::string>, Found> found_;
};

}  // namespace repvolta
