#include "voices/WholeVoices.h"

#include <algorithm>
#include <cerrno>

#include "base/DeleteFolder.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/ProgramFiles.h"
#include "base/RenameToNew.h"
#include "base/Text.h"

namespace repvolta {
namespace {

/// A voice on its way out, which is no voice any more.
constexpr const char* kRemovedVoice = "voices/.removed";

constexpr std::size_t kLongestName = 100;  // bytes, so that paths stay short enough everywhere

/// No name has them, since other disks and systems to which a voice may be taken do not allow them.
constexpr std::string_view kForeign = "/\\:*?\"<>|";
constexpr std::string_view kNotAtTheEnds = " .";

bool IsForeign(char letter) {
  constexpr unsigned char kFirstPrinted = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  const auto code = static_cast<unsigned char>(letter);
  return code < kFirstPrinted || code == kDelete || kForeign.find(letter) != kForeign.npos;
}

bool CanNameFolder(const std::string& name) {
  return IsUtf8(name) && IsFileName(name) && name.size() <= kLongestName &&
         std::ranges::none_of(name, IsForeign) && name.find_first_not_of(kNotAtTheEnds) == 0 &&
         name.find_last_not_of(kNotAtTheEnds) == name.size() - 1;
}

/// Beside the voices lie notes on the clips.
bool IsForNotes(const std::string& name) { return FoldCase(name).ends_with(U".txt"); }

/// The nearest name that a voice could have.
std::string AsVoiceName(const std::string& wanted) {
  constexpr std::size_t kRoomForNumber = 10;
  std::string name(CutUtf8(wanted, kLongestName - kRoomForNumber));
  std::ranges::replace_if(name, IsForeign, '_');
  const std::size_t begin = std::min(name.find_first_not_of(kNotAtTheEnds), name.size());
  name = name.substr(begin, name.find_last_not_of(kNotAtTheEnds) + 1 - begin);
  return CanNameFolder(name) && !IsForNotes(name) ? name : "Voice";
}

bool IsSame(const std::string& name, const std::string& other) {
  return FoldCaseFully(name) == FoldCaseFully(other);
}

bool IsUsed(const std::string& name) {
  bool isUsed = false;
  const int error = ForEachEntry(kVoicesFolder, [&](std::string_view entry, EntryType /*type*/) {
    isUsed = isUsed || IsSame(std::string(entry), name);
  });
  if (error != 0 && error != ENOENT) throw FileError(kVoicesFolder, "could not be read", error);
  return isUsed;
}

}  // namespace

std::string FolderOfVoice(const std::string& voice) { return kVoicesFolder + voice + "/"; }

std::vector<std::string> ListVoices() {
  std::vector<std::string> voices;
  const int error = ForEachEntry(kVoicesFolder, [&](std::string_view entry, EntryType type) {
    const std::string name(entry);
    if (type == EntryType::kFolder && CanNameFolder(name)) voices.push_back(name);
  });
  if (error != 0 && error != ENOENT) throw FileError(kVoicesFolder, "could not be read", error);
  std::ranges::sort(voices, {},
                    [](const std::string& name) { return std::pair(FoldCase(name), name); });
  return voices;
}

std::string WhyNoVoiceName(const std::string& name, const std::string& present) {
  if (name.empty()) return "A voice needs a name.";
  if (!CanNameFolder(name)) {
    return "The name becomes that of a folder, so it cannot have / \\ : * ? \" < > |, begin or end "
           "with a dot or a blank, or be longer than 100 letters.";
  }
  if (IsSame(name, kTheProgramsVoice) || IsForNotes(name)) {
    return "The program uses this name itself.";
  }
  if (!present.empty() && IsSame(name, present)) return "";
  return IsUsed(name) ? "There is a voice of this name already." : "";
}

std::string FreeVoiceName(const std::string& wanted) {
  const std::string name = AsVoiceName(wanted);
  std::string free = name;
  for (int i = 2; !WhyNoVoiceName(free).empty(); ++i) free = name + " " + std::to_string(i);
  return free;
}

void RenameVoice(const std::string& from, const std::string& to) {
  if (from == to) return;
  RenameToNew(WithoutSeparator(FolderOfVoice(from)), WithoutSeparator(FolderOfVoice(to)));
  FlushFolder(kVoicesFolder);
}

void RemoveVoice(const std::string& voice) {
  DeleteFolder(kRemovedVoice);
  RenameToNew(WithoutSeparator(FolderOfVoice(voice)), kRemovedVoice);
  DeleteFolder(kRemovedVoice);
}

std::vector<std::string> ClipsIn(const std::string& folder) {
  std::vector<std::string> clips = ListFiles(folder, kClipExtension);
  for (const std::string& name : ListFiles(folder + kNameClipSubfolder, kNameClipExtension)) {
    clips.push_back(kNameClipSubfolder + name);
  }
  return clips;
}

}  // namespace repvolta
