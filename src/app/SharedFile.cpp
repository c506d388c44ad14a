#include "app/SharedFile.h"

#include "base/FileError.h"
#include "base/WholeFile.h"

namespace repvolta {
namespace {

constexpr int kTries = 3;

/// Another program saved the file while ours was being written.
class AnotherCameIn : public FileError {
 public:
  explicit AnotherCameIn(const char* name)
      : FileError(name, "could not be written", "Another program goes on changing it") {}
};

void RememberPlaced(const SharedFile& file, const WholeFileWriter& writer) {
  if (const auto stamp = writer.Placed()) file.remember(*stamp);
}

void WriteShared(const SharedFile& file) {
  WholeFileWriter writer(file.name);
  file.takeOver();
  writer.Append(file.content());
  try {
    writer.Commit([&] {
      if (StampOfOthers(file.name, file.knownStamp())) throw AnotherCameIn(file.name);
    });
  } catch (const FileError&) {
    RememberPlaced(file, writer);
    throw;
  }
  RememberPlaced(file, writer);
}

}  // namespace

std::optional<FileStamp> StampOfOthers(const char* name, const std::optional<FileStamp>& known) {
  const std::optional<FileStamp> stamp = StampOf(name);
  return stamp == known ? std::nullopt : stamp;
}

void SaveShared(const SharedFile& file) {
  if (file.isUnread) {
    throw FileError(file.name, "is kept as it was", "It could not be read at the start");
  }
  for (int tries = 1; true; ++tries) {
    try {
      return WriteShared(file);
    } catch (const AnotherCameIn&) {
      if (tries == kTries) throw;
    }
  }
}

}  // namespace repvolta
