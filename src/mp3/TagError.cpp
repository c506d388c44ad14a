#include "mp3/TagError.h"

#include <cerrno>

namespace repvolta {

TagError::TagError(const FileError& failure, std::string_view module)
    : FileError(failure), source_(program_invocation_short_name) {
  source_ += module;
}

}  // namespace repvolta
