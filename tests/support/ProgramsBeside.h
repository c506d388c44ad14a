#pragma once

#include <filesystem>
#include <string>

namespace repvolta {

/// The path of a helper program that the build puts beside the test programs.
inline std::string ProgramBeside(const std::string& name) {
  return (std::filesystem::canonical("/proc/self/exe").parent_path() / name).string();
}

}  // namespace repvolta
