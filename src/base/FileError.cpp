#include "base/FileError.h"

#include <cstring>

namespace repvolta {
namespace {

/// The system's text in English in every locale, like the program's own texts.
std::string Description(int error) {
  const char* text = strerrordesc_np(error);
  return text == nullptr ? "Error " + std::to_string(error) : text;
}

}  // namespace

FileError::FileError(const std::string& path, const std::string& failure, int error)
    : FileError(path, failure, Description(error), error) {}

}  // namespace repvolta
