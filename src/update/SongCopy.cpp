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

/// The size of an examined file; the system is asked only where nothing was found in it.
std::uint64_t SizeOf(const RepvoltaMP3& examined, const std::string& source) {
  if (examined.Info().fileLength > 0) return static_cast<std::uint64_t>(examined.Info().fileLength);
  return SizeIfReachable(source).value_or(0);
}

SongCopy PlanExamined(const RepvoltaMP3& song, const std::string& source, const std::string& path,
                      const TaggedSource::Tag& tag, std::uint64_t newTag) {
  SongCopy copy{.seconds = SecondsOf(song),
                .bytes = SizeOf(song, source),
                .newTag = SongCopy::NewTag::kWritten,
                .errorLine = {}};
  if (const auto offset = AudioOffsetOf(song, source)) {
    copy.bytes = newTag + copy.bytes - std::min(copy.bytes, *offset);
  } else {
    auto steps = PlanTaggedInSteps(song, source, path, tag.title, tag.workoutFileName);
    copy.bytes = steps.bytes;
    copy.errorLine = std::move(steps.line);
  }
  return copy;
}

}  // namespace

std::optional<SongCopy> PlanSongCopy(const std::string& source, const std::string& path,
                                     const TaggedSource::Tag& tag, std::uint64_t newTag) {
  try {
    RepvoltaMP3 song;
    song.SetFileName(source);
    return PlanExamined(song, source, path, tag, newTag);
  } catch (const std::exception& error) {
    const auto size = SizeIfReachable(source);
    if (!size) return std::nullopt;
    // What cannot even be opened is not copied, either.
    static_cast<void>(File::Open(source, File::Access::kRead));
    return SongCopy{.seconds = kUnknownSeconds,
                    .bytes = *size,
                    .newTag = SongCopy::NewTag::kNone,
                    .errorLine = LineOf(error, source, path)};
  }
}

std::string MissingSongLine(const std::string& song) { return "ERROR: File not found. " + song; }

std::string NotCopiedText(const std::string& song, const FileError& error) {
  return FileName(song) + " could not be copied: " + error.Reason();
}

}  // namespace repvolta
