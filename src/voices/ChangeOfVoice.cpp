#include "voices/ChangeOfVoice.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "app/ClipOrigins.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "clips/MeasuredClip.h"
#include "clips/VoiceLevel.h"
#include "clips/WordClips.h"
#include "voices/ClipsAsMade.h"
#include "voices/KeptRecordings.h"
#include "voices/VoiceFiles.h"

namespace repvolta {
namespace {

constexpr std::size_t kLargestClip = std::size_t{32} << 20;

Bytes Content(const std::string& path) { return ReadWholeFile(path, kLargestClip); }

/// A clip has the same name in every folder, whatever its case.
using ClipKey = std::u32string;

ClipKey KeyOf(const std::string& clip) { return FoldCase(clip); }

/// The clips in a folder, "" for none, with their paths below it.
std::map<ClipKey, std::string> Listed(const std::string& folder) {
  std::map<ClipKey, std::string> clips;
  if (folder.empty()) return clips;
  for (const std::string& clip : ClipsIn(folder)) clips.try_emplace(KeyOf(clip), clip);
  return clips;
}

/// A folder of clips whose contents are looked at where it matters.
class ClipFolder {
 public:
  explicit ClipFolder(std::string folder) : folder_(std::move(folder)), clips_(Listed(folder_)) {}

  const std::map<ClipKey, std::string>& Clips() const { return clips_; }
  const std::string& Folder() const { return folder_; }
  bool Has(const ClipKey& key) const { return clips_.contains(key); }
  std::string PathOf(const ClipKey& key) const { return folder_ + clips_.at(key); }

  bool Holds(const ClipKey& key, const Bytes& content) const {
    return Has(key) && SizeIfReachable(PathOf(key)) == content.size() &&
           Content(PathOf(key)) == content;
  }

 private:
  std::string folder_;
  std::map<ClipKey, std::string> clips_;
};

/// Which clips of the clip folder would be lost.
class RecordingSearch {
 public:
  explicit RecordingSearch(const VoicesHere& here)
      : origins_(""), program_(here.programVoice), asMade_("", here.programVoice) {
    for (const std::string& voice : ListVoices()) voices_.emplace(voice, FolderOfVoice(voice));
  }

  VoiceClips Run() const {
    VoiceClips found;
    for (const auto& [key, clip] : Listed(kClipFolder)) {
      const ClipOrigin origin = origins_.Of(clip, Content(kClipFolder + clip));
      if (origin.owner == ClipOwner::kProgram || IsOfVoice(key, origin) ||
          IsSpokenAnew(key, clip, origin)) {
        continue;
      }
      Bytes content = asMade_.Content(clip);
      if (!IsElsewhere(key, content)) found.emplace(clip, std::move(content));
    }
    return found;
  }

 private:
  bool IsElsewhere(const ClipKey& key, const Bytes& content) const {
    return program_.Holds(key, content) || std::ranges::any_of(voices_, [&](const auto& one) {
             return one.second.Holds(key, content);
           });
  }

  /// True for a name as the computer speaks it again when it is missing.
  bool IsSpokenAnew(const ClipKey& key, const std::string& clip, const ClipOrigin& origin) const {
    return origin.owner == ClipOwner::kComputer && !program_.Has(key) &&
           origin.text == BaseName(clip);
  }

  /// True for a clip that was put in place for a voice, perhaps at another loudness.
  bool IsOfVoice(const ClipKey& key, const ClipOrigin& origin) const {
    const auto voice = voices_.find(origin.voice);
    return origin.owner == ClipOwner::kOwn && voice != voices_.end() && voice->second.Has(key);
  }

  const ClipOrigins origins_;
  const ClipFolder program_;
  const ClipsAsMade asMade_;
  std::map<std::string, ClipFolder> voices_;
};

/// One change, planned step by step.
class Planning {
 public:
  Planning(const VoicesHere& here, const ChoiceOfVoice& choice)
      : choice_(choice),
        inPlace_(kClipFolder),
        program_(here.programVoice),
        chosen_(choice.voice.empty() ? "" : FolderOfVoice(choice.voice)) {
    Keep(RecordingsToKeep(here), here.inUse);
    PutProgram();
    PutChosen();
  }

  ChangeOfVoice Result() { return std::move(result_); }

 private:
  static VoiceClips RecordingsToKeep(const VoicesHere& here) {
    try {
      return RecordingsInUse(here);
    } catch (const FileError& error) {
      throw NothingChanged("", error);
    }
  }

  void Keep(const VoiceClips& recordings, const std::string& inUse) {
    for (const auto& [clip, content] : recordings) {
      const std::string path = inUse.empty() ? PlaceOfRecording("", clip, content)
                                             : ExistingName(FolderOfVoice(inUse) + clip);
      if (path.empty()) continue;
      const std::string voice = VoiceOfPath(path);
      // It is among the clips that are chosen.
      if (voice == choice_.voice) staying_.emplace(KeyOf(clip), content);
      result_.keptIn.insert(voice);
      result_.change.files.push_back({path, content});
    }
    result_.kept = result_.change.files.size();
  }

  static std::string VoiceOfPath(const std::string& path) {
    const std::size_t begin = std::string_view(kVoicesFolder).size();
    return path.substr(begin, path.find('/', begin) - begin);
  }

  void PutProgram() {
    const ClipOrigin origin{.owner = ClipOwner::kProgram};
    const double louder = LentLouderBy();
    for (const auto& [key, clip] : program_.Clips()) {
      if (!chosen_.Has(key) && !staying_.contains(key))
        Put(key, LouderClip(Content(program_.PathOf(key)), louder), origin);
    }
    for (const std::string& word : WordClips()) {
      const ClipKey key = KeyOf(word);
      const bool isLent = !chosen_.Has(key) && !staying_.contains(key) && program_.Has(key);
      if (!choice_.voice.empty() && isLent) result_.lent.push_back(word);
    }
  }

  void PutChosen() {
    const ClipOrigin origin{.owner = ClipOwner::kOwn, .day = choice_.day, .voice = choice_.voice};
    const double louder = LouderBy(chosen_);
    for (const auto& [key, clip] : chosen_.Clips()) {
      if (staying_.contains(key)) continue;
      Put(key, LouderClip(Content(chosen_.PathOf(key)), louder), origin);
    }
    for (const auto& [key, content] : staying_) Put(key, LouderClip(content, louder), origin);
  }

  /// What the program lends to a voice is as loud as that, or the words would jump.
  double LentLouderBy() const {
    if (choice_.loudness || choice_.voice.empty()) return LouderBy(program_);
    const auto voice = HeardLoudness(chosen_.Folder());
    const auto lent = HeardLoudness(program_.Folder());
    const double difference = voice && lent ? *voice - *lent : 0;
    return std::abs(difference) < kHeardDifference ? 0 : difference;
  }

  double LouderBy(const ClipFolder& folder) const {
    if (!choice_.loudness || folder.Clips().empty()) return 0;
    return *choice_.loudness - HeardLoudness(folder.Folder()).value_or(*choice_.loudness);
  }

  void Put(const ClipKey& key, Bytes content, const ClipOrigin& origin) {
    if (inPlace_.Holds(key, content)) return;
    const ClipFolder& named = inPlace_.Has(key) ? inPlace_ : chosen_.Has(key) ? chosen_ : program_;
    result_.change.clips.push_back({named.Clips().at(key), std::move(content), origin});
  }

  const ChoiceOfVoice& choice_;
  const ClipFolder inPlace_;
  const ClipFolder program_;
  const ClipFolder chosen_;
  std::map<ClipKey, Bytes> staying_;
  ChangeOfVoice result_;
};

/// Later clips take the places of earlier ones.
void AddClips(const ClipFolder& folder, VoiceClips& to) {
  for (const auto& [key, clip] : folder.Clips()) {
    const std::string name = ClipOfPath(clip);
    if (!name.empty()) to[name] = Content(folder.PathOf(key));
  }
}

}  // namespace

std::string VoiceInUse(const OptionLines& options) {
  const std::string voice = Get(options, kVoiceInUse);
  const std::vector<std::string> voices = ListVoices();
  return std::ranges::find(voices, voice) == voices.end() ? "" : voice;
}

std::string OwnFolderOf(const VoicesHere& here, const std::string& voice) {
  return voice.empty() ? here.programVoice : FolderOfVoice(voice);
}

std::optional<double> HeardLoudness(const std::string& folder) {
  if (folder.empty()) return std::nullopt;
  std::vector<MeasuredClip> words;
  std::vector<MeasuredClip> names;
  for (const std::string& clip : ClipsIn(folder)) {
    const bool isName = clip.starts_with(kNameClipSubfolder);
    if (isName && std::isfinite(MiddleLoudness(words))) break;
    (isName ? names : words).push_back(MeasureClip(folder, clip));
  }
  const double loudness = MiddleLoudness(names.empty() ? words : names);
  return std::isfinite(loudness) ? std::optional(loudness) : std::nullopt;
}

VoiceClips RecordingsInUse(const VoicesHere& here) { return RecordingSearch(here).Run(); }

ChangeOfVoice PlanChangeOfVoice(const VoicesHere& here, const ChoiceOfVoice& choice) {
  return Planning(here, choice).Result();
}

VoiceClips ClipsOfVoice(const VoicesHere& here, const std::string& voice, ClipsToWrite which) {
  VoiceClips clips;
  const bool isInUse = voice == here.inUse;
  if (which == ClipsToWrite::kAll) AddClips(ClipFolder(here.programVoice), clips);
  if (!voice.empty()) AddClips(ClipFolder(FolderOfVoice(voice)), clips);
  if (isInUse && which == ClipsToWrite::kAll) AddClips(ClipFolder(kClipFolder), clips);
  if (isInUse && which == ClipsToWrite::kOwn) {
    for (auto& [clip, content] : RecordingsInUse(here)) {
      const std::string name = ClipOfPath(clip);
      if (!name.empty()) clips[name] = content;
    }
  }
  return clips;
}

}  // namespace repvolta
