#pragma once

#include <string>

namespace repvolta {

/// Opens documents with the programs that the desktop has for them.
class DocumentOpener {
 public:
  virtual ~DocumentOpener() = default;

  /// Starts the program without waiting for its end. False when the desktop has none.
  virtual bool Open(const std::string& path) = 0;
};

}  // namespace repvolta
