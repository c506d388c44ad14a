#include "voices/VoiceLevels.h"

#include <cmath>
#include <limits>
#include <utility>

#include "app/BroughtFiles.h"
#include "base/File.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Lines.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "clips/ClipSound.h"
#include "clips/VoiceLevel.h"
#include "clips/WordClips.h"
#include "sound/WavReader.h"
#include "voices/FieldLines.h"
#include "voices/SongLoudness.h"

namespace repvolta {
namespace {

constexpr std::string_view kFirstField = "level";
constexpr std::string_view kRaised = "raised";
constexpr std::string_view kAsMade = "as-made";
constexpr std::size_t kFields = 4;  // checksum, level, kRaised or kAsMade, file
constexpr std::size_t kLongestClip = std::size_t{32} * 1024 * 1024;
constexpr double kNear = 1.5;  // LU
constexpr double kSilent = -std::numeric_limits<double>::infinity();

bool IsFromEngine(const ClipOrigin& origin) {
  return origin.owner == ClipOwner::kComputer || origin.owner == ClipOwner::kUnknown;
}

double LoudnessOf(const Bytes& clip) {
  try {
    const std::vector<Sound> sounds = {ReadWav(clip)};
    return sounds.front().rate == kClipFormat.rate ? JoinedLoudness(sounds) : kSilent;
  } catch (const WavError&) {
    return kSilent;
  }
}

}  // namespace

VoiceLevels::VoiceLevels(std::string programDirectory, ProgramVoice program)
    : directory_(std::move(programDirectory)),
      program_(std::move(program)),
      origins_(directory_, UnreadNotes::kAreMissed),
      fault_(origins_.Fault()),
      chosen_(kVoiceAsMade),
      made_(kVoiceAsMade) {
  try {
    ReadNotes();
  } catch (const FileError& error) {
    fault_ = error;
  }
  Measure();
}

std::pair<std::u32string, std::string> VoiceLevels::KeyOf(const std::string& file) {
  return {FoldCase(file), file};
}

void VoiceLevels::ReadNotes() {
  if (!IsTaken(directory_ + kClipLevels)) return;
  ForEachLine(directory_ + kClipLevels, [this](std::string_view line) {
    Read(line);
    return true;
  });
}

void VoiceLevels::Read(std::string_view line) {
  const auto fields = Fields(line, kFields);
  if (fields.size() == 2 && fields[0] == kFirstField) {
    const auto level = NumberIn(fields[1]);
    const bool isLevel = level && *level >= kQuietestRaised && *level <= kLoudestRaised;
    if (isLevel) chosen_ = static_cast<int>(std::lround(*level));
  }
  if (fields.size() != kFields) return;
  const auto made = NumberIn(fields[1]);
  const std::string file(fields[3]);
  // A damaged line may not lead elsewhere.
  const bool isClip = IsFileName(FileName(file)) &&
                      (FolderOf(file).empty() || FolderOf(file) == kNameClipSubfolder);
  if (made && isClip)
    notes_[KeyOf(file)] = {file, std::string(fields[0]), *made, fields[2] == kRaised};
}

/// The person may have chosen another voice since, which is not as loud.
void VoiceLevels::Measure() {
  const double loudness = LoudnessOfVoice(directory_ + kClipFolder);
  if (std::abs(loudness - chosen_) > kNear) chosen_ = kVoiceAsMade;
  made_ = std::abs(loudness - chosen_) > kNear ? loudness : chosen_;
}

std::vector<std::string> VoiceLevels::Clips() const {
  std::vector<std::string> files;
  const std::string folder = directory_ + kClipFolder;
  for (const std::string& word : WordClips()) {
    if (const auto path = FindFile(folder + word)) files.push_back(path->substr(folder.size()));
  }
  for (const std::string& name : ListFiles(folder + kNameClipSubfolder, kNameClipExtension)) {
    files.push_back(kNameClipSubfolder + name);
  }
  return files;
}

/// An engine speaks as loud as it likes, so what it has spoken is brought to the level outright.
/// All other clips keep their differences, which make words sound natural.
Bytes VoiceLevels::Source::At(int level) const {
  if (level == kVoiceAsMade && !isRaised) return original;
  const double difference = level - (IsFromEngine(origin) ? LoudnessOf(original) : made);
  return std::isfinite(difference) ? LouderClip(original, difference) : original;
}

/// Nothing when the clip is neither what the last change made of it nor, as a restored backup can
/// bring it, the original itself.
std::optional<VoiceLevels::KeptClip> VoiceLevels::OriginalAt(const Note& note,
                                                             const Bytes& content) const {
  const std::string kept = directory_ + kOriginalClips + note.file;
  if (!FileExists(kept)) return std::nullopt;
  Bytes original = ReadWholeFile(kept, kLongestClip);
  if (note.checksum != ChecksumOf(content) && original != content) return std::nullopt;
  return KeptClip{.note = note, .original = std::move(original)};
}

/// The name of the clip may have got another case since.
std::optional<VoiceLevels::KeptClip> VoiceLevels::KeptOriginal(const std::string& file,
                                                               const Bytes& content) const {
  const Notes::key_type key = KeyOf(file);
  const auto exact = notes_.find(key);
  if (exact != notes_.end()) {
    if (auto kept = OriginalAt(exact->second, content)) return kept;
  }
  for (auto note = notes_.lower_bound({key.first, ""});
       note != notes_.end() && note->first.first == key.first; ++note) {
    if (auto kept = OriginalAt(note->second, content)) return kept;
  }
  return std::nullopt;
}

VoiceLevels::Source VoiceLevels::SourceOf(const std::string& file) const {
  Source source;
  source.content = ReadWholeFile(directory_ + kClipFolder + file, kLongestClip);
  source.origin = origins_.Of(file, source.content);
  const bool isProgram = source.origin.owner == ClipOwner::kProgram;
  if (auto clip = isProgram ? program_.ClipOf(file) : std::nullopt) {
    source.original = std::move(*clip);
    source.made = kVoiceAsMade;
    source.isProgram = true;
  } else if (auto kept = KeptOriginal(file, source.content)) {
    source.original = std::move(kept->original);
    source.made = kept->note.made;
    source.isRaised = kept->note.isRaised;
    source.kept = kept->note.file;
  } else {
    source.original = source.content;
    source.made = made_;
    source.isRaised = chosen_ != kVoiceAsMade;
  }
  return source;
}

std::optional<Bytes> VoiceLevels::ClipAt(const std::string& file, int level) const {
  const std::string folder = directory_ + kClipFolder;
  const auto path = FindFile(folder + file);
  if (!path) return std::nullopt;
  return SourceOf(path->substr(folder.size())).At(level);
}

void VoiceLevels::AddTo(ClipChange& change, Notes& notes, const std::string& file,
                        int level) const {
  const Source source = SourceOf(file);
  Bytes content = source.At(level);
  if (!source.isProgram && content != source.original) {
    const std::string& name = source.kept.empty() ? file : source.kept;
    notes[KeyOf(name)] = {name, ChecksumOf(content), source.made, source.isRaised};
    if (source.kept.empty()) change.files.push_back({kOriginalClips + file, source.original});
  }
  if (content == source.content) return;
  change.clips.push_back({.file = file, .content = std::move(content), .origin = source.origin});
}

ClipChange VoiceLevels::ChangeTo(int level, const Report& report) const {
  if (fault_) throw NothingChanged(directory_, *fault_);
  ClipChange change;
  Notes notes;
  const std::vector<std::string> clips = Clips();
  for (std::size_t i = 0; i < clips.size(); ++i) {
    AddTo(change, notes, clips[i], level);
    if (report) report(i + 1, clips.size());
  }
  std::string lines = std::string(kFirstField) + "\t" + TwoPlaces(level) + "\n";
  for (const auto& [key, note] : notes) {
    lines += note.checksum + "\t" + TwoPlaces(note.made) + "\t";
    lines += note.isRaised ? kRaised : kAsMade;
    lines += "\t" + note.file + "\n";
  }
  const auto text = AsBytes(lines);
  change.files.push_back({kClipLevels, {text.begin(), text.end()}});
  for (const auto& [key, note] : notes_) {
    if (!notes.contains(key)) change.removed.push_back(kOriginalClips + note.file);
  }
  return change;
}

}  // namespace repvolta
