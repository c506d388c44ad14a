#include "update/SongCopy.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/File.h"
#include "base/FileNames.h"
#include "mp3/RepvoltaMP3.h"
#include "player/PlayerPlayList.h"
#include "update/ProcessMP3tag.h"

namespace repvolta {
namespace {

/// The update tells of the copy what was found in the source.
std::string LineOf(const std::exception& error, const std::string& source,
                   const std::string& path) {
  std::string text = error.what();
  const std::size_t position = text.find(source);
  if (position != std::string::npos) text.replace(position, source.size(), path);
  return "ERROR: " + text;
}

void PlanTag(const std::string& source, const std::string& path, const TaggedSource::Tag& tag,
             SongCopy& copy) {
  RepvoltaMP3 song;
  song.SetFileName(source);
  copy.seconds = SecondsOf(song);
  const auto plan = PlanTaggedCopy(song, source, path, tag.title, tag.workoutFileName);
  if (plan) {
    copy.bytes = plan->tag.size() + copy.bytes - std::min(copy.bytes, plan->audioOffset);
  } else {
    auto steps = PlanTaggedInSteps(song, source, path, tag.title, tag.workoutFileName);
    copy.bytes = steps.bytes;
    copy.errorLine = std::move(steps.line);
  }
  copy.newTag = SongCopy::NewTag::kWritten;
}

}  // namespace

std::optional<SongCopy> PlanSongCopy(const std::string& source, const std::string& path,
                                     const TaggedSource::Tag& tag) {
  const auto size = SizeIfReachable(source);
  if (!size) return std::nullopt;
  SongCopy copy{.seconds = kUnknownSeconds,
                .bytes = *size,
                .newTag = SongCopy::NewTag::kNone,
                .errorLine = {}};
  try {
    PlanTag(source, path, tag, copy);
  } catch (const std::exception& error) {
    // What cannot even be opened is not copied, either.
    static_cast<void>(File::Open(source, File::Access::kRead));
    copy.errorLine = LineOf(error, source, path);
  }
  return copy;
}

std::string MissingSongLine(const std::string& song) { return "ERROR: File not found. " + song; }

std::string NotCopiedText(const std::string& song, const FileError& error) {
  return FileName(song) + " could not be copied: " + error.Reason();
}

}  // namespace repvolta
