#include "voices/VoiceFiles.h"

#include <QString>
#include <algorithm>
#include <set>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "clips/WordClips.h"

namespace repvolta {
namespace {

/// What a system for desktops puts into each ZIP file that it makes.
constexpr std::string_view kForeignFolder = "__MACOSX/";

/// Letters with accents in one way, as a person types them.
std::string Composed(const std::string& name) {
  return QString::fromStdString(name).normalized(QString::NormalizationForm_C).toStdString();
}

bool HasExtension(std::string_view name, std::string_view extension) {
  return FoldCase(name).ends_with(FoldCase(extension));
}

bool IsNameFolder(std::string_view folder) {
  return FoldCase(folder) == FoldCase(kNameClipSubfolder);
}

std::string WordClipOf(const std::string& name) {
  static const std::vector<std::string> words = WordClips();
  const std::string file = name + kClipExtension;
  const auto isIt = [&](const std::string& word) { return FoldCase(word) == FoldCase(file); };
  const auto found = std::ranges::find_if(words, isIt);
  return found == words.end() ? "" : *found;
}

std::string NameClipOf(const std::string& name) {
  const std::string file = name + kNameClipExtension;
  const bool canBeNamed = IsFileName(file) && file.find('\\') == std::string::npos;
  return canBeNamed ? kNameClipSubfolder + file : "";
}

bool IsHidden(std::string_view path) {
  return path.starts_with('.') || path.find("/.") != std::string_view::npos ||
         path.starts_with(kForeignFolder);
}

/// The folder of the voice in which this file would be a clip.
std::string VoiceFolderOf(const std::string& path) {
  const std::string folder = FolderOf(path);
  const std::string above = FolderOf(WithoutSeparator(folder));
  return IsNameFolder(folder.substr(above.size())) ? above : folder;
}

/// The folder that all the others lie in; or one of those beside each other.
std::string OutermostOf(const std::set<std::string>& folders) {
  return folders.empty() ? "" : *std::ranges::min_element(folders, {}, &std::string::size);
}

/// The folders that hold clips.
std::set<std::string> FoldersOfClips(const std::vector<std::string>& paths) {
  std::set<std::string> folders;
  for (const std::string& path : paths) {
    const std::string folder = VoiceFolderOf(path);
    if (!IsHidden(path) && !ClipOfPath(path.substr(folder.size())).empty()) folders.insert(folder);
  }
  return folders;
}

/// Why the folders are not one voice; "" when they lie in the folder `voice`.
std::string WhyNotOneVoice(const std::set<std::string>& folders, const std::string& voice) {
  for (const std::string& folder : folders) {
    if (folder.starts_with(voice)) continue;
    return "It holds several voices: " + ShownOnOneLine(WithoutSeparator(voice)) + ", " +
           ShownOnOneLine(WithoutSeparator(folder)) + ". Take in one after the other";
  }
  return "";
}

/// The clips among the paths, and what is none.
VoiceFiles SortedFiles(const std::vector<std::string>& paths, const std::string& voice) {
  VoiceFiles files;
  std::set<std::u32string> folded;
  for (const std::string& path : paths) {
    if (IsHidden(path)) continue;
    const std::string clip =
        path.starts_with(voice) ? ClipOfPath(std::string_view(path).substr(voice.size())) : "";
    if (clip.empty()) {
      files.leftOut.push_back(path);
    } else if (!folded.insert(FoldCaseFully(clip)).second) {
      files.fault = "It holds the clip " + clip + " more than once";
    } else {
      files.clips[clip] = path;
    }
  }
  return files;
}

}  // namespace

std::string ClipOfPath(std::string_view path) {
  if (!IsUtf8(path) || !HasExtension(path, kClipExtension)) return "";
  const std::string name(TrimBlanks(Composed(BaseName(path))));
  const std::string folder = FolderOf(path);
  if (name.empty()) return "";
  if (folder.empty()) return WordClipOf(name);
  return IsNameFolder(folder) ? NameClipOf(name) : "";
}

VoiceFiles FindVoiceFiles(const std::vector<std::string>& paths) {
  const std::set<std::string> folders = FoldersOfClips(paths);
  const std::string voice = OutermostOf(folders);
  VoiceFiles files;
  files.fault = WhyNotOneVoice(folders, voice);
  if (!files.fault.empty()) return files;
  files = SortedFiles(paths, voice);
  if (files.clips.empty()) files.fault = "It holds no clip of Repvolta's, such as 300.wav";
  return files;
}

}  // namespace repvolta
