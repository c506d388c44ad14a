#include "support/Fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderInMemory = "/dev/shm";

/// TMPDIR, so that a script can clean up after a crash; without it, a folder in memory.
fs::path Place() {
  if (std::getenv("TMPDIR") == nullptr && fs::is_directory(kFolderInMemory)) return kFolderInMemory;
  return fs::temp_directory_path();
}

}  // namespace

void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "BROKEN RULE: %s\n", rule);
  std::abort();
}

FuzzFolder::FuzzFolder() {
  std::string pattern = Place() / "repvolta-fuzz-XXXXXX";
  Require(mkdtemp(pattern.data()) != nullptr, "a folder can be made");
  path_ = fs::canonical(pattern).string() + "/";
  fs::current_path(path_);
}

FuzzFolder::~FuzzFolder() {
  std::error_code ignored;
  fs::current_path("/", ignored);
  fs::remove_all(path_, ignored);
}

void FuzzFolder::Empty() const {
  for (const auto& entry : fs::directory_iterator(path_)) fs::remove_all(entry.path());
}

std::size_t FuzzFolder::CountEntries() const {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(path_), {}));
}

void PutFile(const std::string& path, std::span<const Byte> content) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(content.data()),
             static_cast<std::streamsize>(content.size()));
  Require(file.flush().good(), "a file can be written");
}

Bytes GetFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  Bytes content(fs::file_size(path));
  file.read(reinterpret_cast<char*>(content.data()), static_cast<std::streamsize>(content.size()));
  Require(file.good(), "a file can be read back");
  return content;
}

Byte FuzzInput::TakeByte() {
  if (rest_.empty()) return 0;
  const Byte byte = rest_.front();
  rest_ = rest_.subspan(1);
  return byte;
}

std::uint32_t FuzzInput::TakeNumber() {
  const std::uint32_t high = TakeByte();
  return high << 8 | TakeByte();
}

std::string FuzzInput::TakeText() {
  const std::size_t length = TakeByte();
  const auto text = rest_.first(std::min(length, rest_.size()));
  rest_ = rest_.subspan(text.size());
  return AsText(text);
}

}  // namespace repvolta
