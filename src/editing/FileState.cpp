#include "editing/FileState.h"

#include <algorithm>

#include "app/RecordFormat.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestFile = 4 * kWorkoutFileSize;

}  // namespace

FileState::FileState(const Bytes& content, const FileState& other) {
  std::vector<Part> parts;
  parts.reserve(content.size() / kExerciseRecordSize + 1);
  for (std::size_t at = 0; at < content.size(); at += kExerciseRecordSize) {
    const std::span<const Byte> part =
        std::span(content).subspan(at, std::min(kExerciseRecordSize, content.size() - at));
    const auto isEqual = [&](const Part& known) { return std::ranges::equal(*known, part); };
    const std::size_t i = parts.size();
    if (other.content_ && i < other.content_->size() && isEqual((*other.content_)[i])) {
      parts.push_back((*other.content_)[i]);
    } else if (!parts.empty() && isEqual(parts.back())) {
      // Records that are not used are alike.
      parts.push_back(parts.back());
    } else {
      parts.push_back(std::make_shared<const Bytes>(part.begin(), part.end()));
    }
  }
  content_ = std::make_shared<const std::vector<Part>>(std::move(parts));
  if (other == *this) content_ = other.content_;
}

Bytes FileState::Content() const {
  Bytes content;
  if (!content_) return content;
  content.reserve(content_->size() * kExerciseRecordSize);
  for (const Part& part : *content_) content.insert(content.end(), part->begin(), part->end());
  return content;
}

bool FileState::operator==(const FileState& other) const {
  if (content_ == other.content_) return true;
  if (!content_ || !other.content_) return false;
  return std::ranges::equal(*content_, *other.content_,
                            [](const Part& a, const Part& b) { return a == b || *a == *b; });
}

FileState ReadFileState(const std::string& path, const FileState& other) {
  if (!FileExists(path)) return {};
  const Bytes content = ReadWholeFile(path, kLargestFile + 1);
  if (content.size() > kLargestFile) {
    throw FileError(path, "could not be kept for Undo", "It is too large for a workout");
  }
  return {content, other};
}

}  // namespace repvolta
