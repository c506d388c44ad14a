#include "update/ProcessMP3tag.h"

#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Product.h"
#include "base/Text.h"
#include "mp3/Id3v2Reader.h"
#include "mp3/RepvoltaMP3v2.h"

namespace repvolta {
namespace {

constexpr std::size_t kNameCharactersInTitle = 6;

/// False when an old tag could not be removed.
bool RemoveOldTag(const std::string& path) {
  RepvoltaMP3 mp3;
  mp3.SetFileName(path);
  if (!mp3.HasID3v2()) return true;
  try {
    mp3.RemoveLeadingData(RepvoltaMP3::FileTimes::kKept);
    return true;
  } catch (const FileError&) {
    return !mp3.HasID3v2();
  }
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  const auto startsCharacter = [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  };
  std::size_t end = 0;
  while (end < text.size() && (count > 0 || !startsCharacter(text[end]))) {
    if (startsCharacter(text[end])) --count;
    ++end;
  }
  return text.substr(0, end);
}

// Scripts look for this line, which has no blank after the colon (quirk 71).
std::string NotRemovedLine(const std::string& path) {
  return "ERROR:" + FileName(path) + " - MP3v2 TAG could not be removed.";
}

/// Where the file begins once its old tag is removed.
std::uint64_t StartBehindTag(const RepvoltaMP3& examined) {
  return examined.HasID3v2() ? static_cast<std::uint64_t>(examined.Info().headerOffset) : 0;
}

/// True when the audio that LocateId3v2 knows begins at the offset, so that no tag stands before
/// it.
bool HasAudioAt(const MP3Info& info, std::uint64_t offset) {
  return static_cast<std::uint64_t>(info.headerOffset) == offset && info.mpegVersion == 1 &&
         info.layer == 3 && !info.crcProtected;
}

void SetFrames(cMP3ID3v2& tag, const std::string& path, std::string_view title,
               std::string_view workoutFileName) {
  tag.SetArtist(kProductName);
  tag.SetAlbum(TrimBlanks(workoutFileName));
  tag.SetTitle(TitleOf(path, title));
  tag.SetTrack("0");  // quirk 69
  tag.SetUserUrl(kProductAddress);
}

Bytes NewTag(const std::string& path, std::string_view title, std::string_view workoutFileName) {
  cMP3ID3v2 tag;
  SetFrames(tag, path, title, workoutFileName);
  return tag.NewTag();
}

}  // namespace

// The title begins with the number of the file, so that players show the order (quirk 70).
std::string TitleOf(const std::string& path, std::string_view title) {
  const std::string baseName = BaseName(path);
  std::string text(FirstCharacters(baseName, kNameCharactersInTitle));
  text.append(" ").append(title);
  return std::string(TrimBlanks(text));
}

void ProcessMP3tag(const std::string& path, std::string_view title,
                   std::string_view workoutFileName, ProgressLog& log) {
  TagWorkingCopy(path, path, title, workoutFileName, log);
}

void TagWorkingCopy(const std::string& copy, const std::string& path, std::string_view title,
                    std::string_view workoutFileName, ProgressLog& log) {
  const bool removed = RemoveOldTag(copy);
  cMP3ID3v2 tag;
  tag.SetFileName(copy);
  if (!removed || tag.HasTag()) log.AddLineToUpdateList(NotRemovedLine(path));
  SetFrames(tag, path, title, workoutFileName);
  tag.WriteTag();
  LogTagged(path, log);
}

std::optional<std::uint64_t> AudioOffsetOf(const RepvoltaMP3& examined, const std::string& source) {
  const std::uint64_t offset = StartBehindTag(examined);
  if (HasAudioAt(examined.Info(), offset)) return offset;
  if (HasId3v2Behind(File::Open(source, File::Access::kRead), offset)) return std::nullopt;
  return offset;
}

std::optional<TaggedCopy> PlanTaggedCopy(const std::string& source, const std::string& path,
                                         std::string_view title, std::string_view workoutFileName) {
  try {
    RepvoltaMP3 mp3;
    mp3.SetFileName(source);
    const auto offset = AudioOffsetOf(mp3, source);
    if (!offset) return std::nullopt;
    return TaggedCopy{.tag = NewTag(path, title, workoutFileName), .audioOffset = *offset};
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

TaggedInSteps PlanTaggedInSteps(const RepvoltaMP3& examined, const std::string& source,
                                const std::string& path, std::string_view title,
                                std::string_view workoutFileName) {
  const std::uint64_t size = File::Open(source, File::Access::kRead).Size();
  const std::uint64_t start = StartBehindTag(examined);
  cMP3ID3v2 tag;
  tag.SetFileName(source, start);
  const bool stays = tag.HasTag();
  SetFrames(tag, path, title, workoutFileName);
  return {.bytes = size - start + tag.Growth(), .line = stays ? NotRemovedLine(path) : ""};
}

std::uint64_t SizeOfNewTag(const std::string& path, std::string_view title,
                           std::string_view workoutFileName) {
  return NewTag(path, title, workoutFileName).size();
}

void LogTagged(const std::string& path, ProgressLog& log) {
  log.AddLineToUpdateList(FileName(path) + "  TAG modified OK");
}

}  // namespace repvolta
