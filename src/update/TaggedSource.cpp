#include "update/TaggedSource.h"

#include <exception>

#include "base/File.h"
#include "base/FileNames.h"
#include "update/KeptLines.h"

namespace repvolta {
namespace {

/// The text with another name in place of a first one.
std::string Renamed(std::string text, const std::string& from, const std::string& to) {
  const std::size_t position = text.find(from);
  if (position != std::string::npos) text.replace(position, from.size(), to);
  return text;
}

}  // namespace

TaggedSource::TaggedSource(const std::string& source, const std::string& workingFile,
                           const std::string& path, const Tag& tag)
    : path_(path),
      file_(source),
      plan_(PlanTaggedCopy(source, path, tag.title, tag.workoutFileName)) {
  if (plan_) {
    KeptLines log(lines_);
    LogTagged(path_, log);
  } else {
    Stage(source, workingFile, tag);
  }
}

void TaggedSource::Stage(const std::string& source, const std::string& workingFile,
                         const Tag& tag) {
  KeptLines log(lines_);
  try {
    if (workingFile != source) CopyFileOver(source, workingFile);
    file_ = workingFile;
    TagWorkingCopy(workingFile, path_, tag.title, tag.workoutFileName, log);
  } catch (const std::exception& error) {
    failure_ = Renamed(error.what(), workingFile, path_);
  }
}

CopyStart TaggedSource::Start() const {
  return plan_ ? CopyStart{plan_->tag, plan_->audioOffset} : CopyStart{};
}

std::optional<std::string> TaggedSource::Log(const std::string& kept, ProgressLog& log) const {
  const std::string name = FileName(path_);
  for (const std::string& line : lines_) log.AddLineToUpdateList(Renamed(line, name, kept));
  if (!failure_) return std::nullopt;
  return Renamed(*failure_, path_, FolderOf(path_) + kept);
}

}  // namespace repvolta
