#include <algorithm>

#include "app/ClipOrigins.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "voices/SongLoudness.h"
#include "voices/VoiceLevels.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is each of the files beside the voices: whose the clips are, their levels, and how loud
// songs are. Each is read, written and read again; nothing in it leads elsewhere.

namespace repvolta {
namespace {

constexpr const char* kSongs = "voices/songs.txt";
constexpr const char* kClip = "exercise/A.WAV";
constexpr int kLevel = -12;

// A line becomes a few entries of a tree.
constexpr std::size_t kHeldByLine = 64;

void MakeFoldersOnce() {
  static const bool areMade = [] {
    MakeFolders(std::string(kClipFolder) + kNameClipSubfolder);
    MakeFolders(std::string(kOriginalClips) + kNameClipSubfolder);
    PutFile(std::string(kClipFolder) + kClip, AsBytes("as it is"));
    PutFile(std::string(kOriginalClips) + kClip, AsBytes("as it was"));
    return true;
  }();
  static_cast<void>(areMade);
}

void ReadOrigins(std::span<const Byte> file) {
  const ClipOrigins origins("");
  const std::string encoded = origins.Encode();
  Require(encoded.starts_with('#') && encoded.ends_with('\n'),
          "the notes begin with what they are");
  static_cast<void>(origins.LastSpoken(kClip));
  PutFile(kClipOrigins, AsBytes(encoded));
  Require(ClipOrigins("").Encode() == encoded, "the notes are read as they were written");
  PutFile(kClipOrigins, {});
  ClipOrigins added("");
  added.AddNotesOf(AsText(file));
  Require(added.Encode() == encoded, "added notes are those that are read");
}

void RequireBelow(const std::string& path) {
  Require(path.starts_with(kOriginalClips), "only originals are removed");
  std::string name = path.substr(std::string_view(kOriginalClips).size());
  if (name.starts_with(kNameClipSubfolder)) {
    name.erase(0, std::string_view(kNameClipSubfolder).size());
  }
  Require(IsFileName(name), "an original is a file of the folder");
}

void ReadLevels() {
  const VoiceLevels levels("", ProgramVoice(""));
  const int chosen = levels.Chosen();
  Require(chosen == kVoiceAsMade || (chosen >= kQuietestRaised && chosen <= kLoudestRaised),
          "a level is one that can be chosen");
  const ClipChange change = levels.ChangeTo(kLevel);
  for (const std::string& path : change.removed) RequireBelow(path);
  Require(change.clips.size() <= 1, "there is one clip");
  const Bytes& written = change.files.back().content;
  if (std::ranges::count(written, Byte{'\n'}) == 1) return;  // only the level; measuring takes long
  PutFile(kClipLevels, written);
  const ClipChange again = VoiceLevels("", ProgramVoice("")).ChangeTo(kLevel);
  Require(again.files.back().content == written, "the levels are read as they were written");
}

void ReadSongs() {
  const KnownSongs songs("");
  songs.Save("");
  const Bytes saved = GetFile(kSongs);
  KnownSongs("").Save("");
  Require(GetFile(kSongs) == saved, "the songs are read as they were written");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  MakeFoldersOnce();
  const std::span<const Byte> file(data, size);
  for (const char* path : {kClipOrigins, kClipLevels, kSongs}) PutFile(path, file);
  const auto lines = static_cast<std::size_t>(std::ranges::count(file, Byte{'\n'})) + 1;
  const LinearCost cost(size + lines * kHeldByLine);
  ReadOrigins(file);
  PutFile(kClipOrigins, {});
  ReadLevels();
  ReadSongs();
  return 0;
}
