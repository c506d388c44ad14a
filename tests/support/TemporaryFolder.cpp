#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <stdlib.h>

namespace repvolta {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() : before_(fs::current_path()) {
  std::string pattern = fs::temp_directory_path() / "repvolta-test-XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = fs::canonical(pattern).string() + "/";
  fs::current_path(path_);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::current_path(before_, ignored);
  fs::remove_all(path_, ignored);
}

void PutFile(const std::string& path, std::span<const Byte> content) {
  PutFile(path, AsText(content));
}

void PutFile(const std::string& path, std::string_view content) {
  if (fs::path(path).has_parent_path()) fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

Bytes GetFile(const std::string& path) {
  const std::string text = GetTextFile(path);
  const std::span<const Byte> bytes = AsBytes(text);
  return {bytes.begin(), bytes.end()};
}

std::string GetTextFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path << " cannot be read";
  // By whole blocks: tests are not optimised, and read workouts thousands of times.
  std::ostringstream text;
  if (file.peek() != std::ifstream::traits_type::eof()) text << file.rdbuf();
  return text.str();
}

}  // namespace repvolta
