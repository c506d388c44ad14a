#include "voices/KeptRecordings.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "app/ClipOrigins.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "voices/ClipsAsMade.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestClip = 32U << 20;  // bytes

bool IsRecording(const ClipOrigin& origin) {
  return origin.owner == ClipOwner::kOwn || origin.owner == ClipOwner::kUnknown;
}

/// Keeps clips of one program directory.
class Keeping {
 public:
  explicit Keeping(const std::string& programDirectory)
      : directory_(programDirectory), origins_(programDirectory), asMade_(programDirectory, "") {}

  /// A copy of the clip `file` as it was made, whose place `next` takes, beside those that are
  /// planned; nothing when it need not be kept.
  std::optional<FileBesideClips> CopyOf(const std::string& file, const Bytes& next,
                                        const std::vector<FileBesideClips>& planned) const {
    const auto found = FindFile(directory_ + kClipFolder + file);
    if (!found) return std::nullopt;
    const Bytes present = ReadWholeFile(*found, kLongestClip);
    if (present == next || !IsRecording(origins_.Of(file, present))) return std::nullopt;
    Bytes content = asMade_.Content(file);
    const std::string path = PlaceOfRecording(directory_, file, content, planned);
    if (path.empty()) return std::nullopt;
    return FileBesideClips{.path = path, .content = std::move(content)};
  }

 private:
  const std::string& directory_;
  const ClipOrigins origins_;
  const ClipsAsMade asMade_;
};

Keeping KeepingIn(const std::string& programDirectory) {
  try {
    return Keeping(programDirectory);
  } catch (const FileError& error) {
    throw NothingChanged(programDirectory, error);
  }
}

/// What lies at the path, without regard to case, or will lie there.
std::optional<Bytes> KeptAt(const std::string& programDirectory, const std::string& path,
                            const std::vector<FileBesideClips>& planned) {
  const auto found = FindFile(programDirectory + path);
  if (found) return ReadWholeFile(*found, kLongestClip);
  const auto isThere = [key = FoldCase(path)](const FileBesideClips& file) {
    return FoldCase(file.path) == key;
  };
  const auto file = std::ranges::find_if(planned, isThere);
  return file == planned.end() ? std::nullopt : std::optional(file->content);
}

}  // namespace

std::string PlaceOfRecording(const std::string& programDirectory, const std::string& file,
                             const Bytes& content, const std::vector<FileBesideClips>& planned) {
  std::string voice = kKeptRecordings;
  for (int number = 2;; ++number) {
    std::string path = std::string(kVoicesFolder).append(voice).append("/").append(file);
    const std::optional<Bytes> kept = KeptAt(programDirectory, path, planned);
    if (!kept) return path;
    if (*kept == content) return "";
    voice = kKeptRecordings + (" " + std::to_string(number));
  }
}

std::size_t KeepRecordings(const std::string& programDirectory, ClipChange& change) {
  const Keeping keeping = KeepingIn(programDirectory);
  const std::size_t before = change.files.size();
  for (const NewClip& clip : change.clips) {
    if (auto copy = keeping.CopyOf(clip.file, clip.content, change.files)) {
      change.files.push_back(std::move(*copy));
    }
  }
  for (const std::string& path : change.removed) {
    if (!path.starts_with(kClipFolder)) continue;
    const std::string file = path.substr(std::string_view(kClipFolder).size());
    if (auto copy = keeping.CopyOf(file, {}, change.files)) {
      change.files.push_back(std::move(*copy));
    }
  }
  return change.files.size() - before;
}

std::string VoiceOfKept(const ClipChange& change) {
  const std::string& path = change.files.front().path;
  const std::size_t begin = std::string_view(kVoicesFolder).size();
  return path.substr(begin, path.find('/', begin) - begin);
}

}  // namespace repvolta
