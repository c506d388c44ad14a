#include "base/FileError.h"

#include <system_error>

namespace repvolta {

FileError::FileError(const std::string& path, const std::string& failure, int error)
    : FileError(path, failure, std::generic_category().message(error), error) {}

}  // namespace repvolta
