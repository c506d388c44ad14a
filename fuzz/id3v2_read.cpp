#include <map>

#include "base/SingleByteText.h"
#include "base/Text.h"
#include "mp3/RepvoltaMP3v2.h"

#include "support/Cost.h"
#include "support/Fuzz.h"
#include "support/Mp3Rule.h"

// The input is an MP3 file. The plain rule must find the same frames in its tag.

namespace repvolta {
namespace {

constexpr const char* kSong = "song.mp3";

void RequireFramesOf(const TagByRule& rule, const Id3v2Frames& frames) {
  std::map<std::string, std::size_t> seen;
  for (const FrameByRule& frame : rule.frames) {
    const std::size_t ordinal = ++seen[frame.identifier];
    Require(frames.Text(frame.identifier, ordinal) == FromWindows1252(frame.bytes),
            "a frame's text is the rule's");
  }
  Require(frames.Identifiers().size() == seen.size(), "no frame is made up");
  for (const auto& [identifier, count] : seen) {
    Require(frames.Count(identifier) == count, "all frames of an identifier are held");
  }
}

void AskAll(const cMP3ID3v2& tag) {
  for (const std::string& text :
       {tag.Title(), tag.Artist(), tag.Album(), tag.Year(), tag.Track(), tag.UserUrl(),
        tag.Comment(), tag.Genre(), tag.Lyrics(), tag.PlayCount(), tag.OriginalArtist()}) {
    Require(IsUtf8(text), "texts are UTF-8");
  }
  Require(tag.GenreNumber() == 255 || !tag.Genre().empty() || tag.GenreNumber() == 123 ||
              tag.GenreNumber() > 147 || tag.Frames().Count("TCON") > 1,
          "a numbered genre has a name");
}

}  // namespace
}  // namespace repvolta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace repvolta;
  static const FuzzFolder folder;
  const std::span<const Byte> file(data, size);
  PutFile(kSong, file);
  cMP3ID3v2 tag;
  {
    const LinearCost cost(size);
    tag.SetFileName(kSong);
    AskAll(tag);
  }
  const TagByRule rule = ReadTagByRule(file);
  Require(tag.HasTag() == rule.present, "a tag is found where the rule finds one");
  if (rule.present) {
    Require(tag.Place().Offset() == rule.offset && tag.Place().size == rule.size,
            "the tag is where the rule finds it");
  }
  RequireFramesOf(rule, tag.Frames());
  return 0;
}
