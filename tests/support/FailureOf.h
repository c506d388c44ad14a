#pragma once

#include <functional>
#include <string>

#include "base/FileError.h"

namespace repvolta {

/// What the FileError says that the call throws; empty when it throws none.
inline std::string FailureOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const FileError& error) {
    return error.what();
  }
  return "";
}

}  // namespace repvolta
