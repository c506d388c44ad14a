#include <algorithm>

#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "base/Text.h"
#include "clips/ClipLists.h"

#include "support/Cost.h"
#include "support/Fuzz.h"

// The input is a list of clips. Whatever its lines say, every clip's file is in the folder.

namespace repvolta {
namespace {

constexpr const char* kList = "list.txt";

void RequireSafe(const std::vector<ClipWords>& clips, std::size_t mostClips) {
  Require(clips.size() <= mostClips, "a line is one clip at the most");
  for (const ClipWords& clip : clips) {
    const bool isOfExercise = clip.file.starts_with(kNameClipSubfolder);
    const std::string name =
        clip.file.substr(isOfExercise ? std::string_view(kNameClipSubfolder).size() : 0);
    Require(IsFileName(name) && name.find('/') == std::string::npos, "a clip's file is a name");
    Require(TrimBlanks(clip.words) == clip.words, "words have no blanks around them");
    Require(IsUtf8(clip.words), "words are UTF-8");
  }
}

void RequireNames(const std::vector<ClipWords>& clips) {
  for (const ClipWords& clip : clips) {
    Require(clip.file.starts_with(kNameClipSubfolder), "the folder");
    Require(!clip.words.empty(), "a name is spoken");
  }
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  const std::span<const Byte> list(data, size);
  PutFile(kList, list);
  const auto lines = static_cast<std::size_t>(std::ranges::count(list, Byte{'\n'})) + 1;
  std::vector<ClipWords> names;
  std::vector<ClipWords> words;
  {
    // Each clip is two texts.
    const LinearCost cost(size + lines * 2 * sizeof(ClipWords));
    names = ReadNameList(kList);
    Succeeds<ClipError>([&] { words = ReadWordList(kList); });
  }
  RequireSafe(names, lines);
  RequireNames(names);
  RequireSafe(words, lines);
  Require(RemarksOn(words, kList).size() <= words.size() * 2 + 1, "remarks are about lines");
  return 0;
}
