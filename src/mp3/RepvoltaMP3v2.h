#pragma once

#include <string>
#include <string_view>

#include "mp3/Id3v2Reader.h"

namespace repvolta {

/// The ID3v2 tag at the start of one file: reads versions 2.2 to 2.4, replaces frames, and writes
/// the tag as version 2.3. Texts are UTF-8 here and Windows-1252 in the file. All sizes in the file
/// are plain big-endian numbers, while RepvoltaMP3 reads seven bits of each byte (quirk 60).
class cMP3ID3v2 {
 public:
  /// Makes `path` the current file and reads its tag, the first one behind `start`. Drops all
  /// frames of the file before. Throws TagError with the source ".cMP3ID3v1" (quirk 61).
  void SetFileName(const std::string& path, std::uint64_t start = 0);

  /// True when "ID3" comes before the audio.
  bool HasTag() const { return place_.position >= 1; }

  // Each replaces all frames of its identifier by a single one.
  void SetUserUrl(std::string_view address);  // WXXX
  void SetTitle(std::string_view text) { Replace("TIT2", std::string(text)); }
  void SetArtist(std::string_view text) { Replace("TPE1", std::string(text)); }
  void SetAlbum(std::string_view text) { Replace("TALB", std::string(text)); }
  void SetTrack(std::string_view text) { Replace("TRCK", std::string(text)); }

  /// Writes the frames into the current file. A file without a tag, or with too small a tag, is
  /// replaced by a longer one, all or nothing; a tag that is large enough is overwritten in place.
  /// Throws TagError.
  void WriteTag();

  /// By how many bytes WriteTag makes the file longer; 0 when the old tag is large enough.
  std::size_t Growth() const;

  /// The frames and padding that WriteTag puts in front of a file without a tag.
  Bytes NewTag() const;

  std::string Title() const { return frames_.LastText("TIT2"); }
  std::string Artist() const { return frames_.LastText("TPE1"); }
  std::string Album() const { return frames_.LastText("TALB"); }
  std::string Year() const { return frames_.LastText("TYER"); }
  std::string Track() const { return frames_.LastText("TRCK"); }
  std::string Copyright() const { return frames_.LastText("TCOP"); }
  std::string OriginalArtist() const { return frames_.LastText("TOPE"); }
  std::string Composer() const { return frames_.LastText("TCOM"); }
  std::string EncodedBy() const { return frames_.LastText("TENC"); }
  std::string PlayCount() const { return frames_.LastText("PCNT"); }
  std::string UserUrl() const;
  std::string AudioFileUrl() const { return frames_.LastText("WOAF"); }
  std::string ArtistUrl() const { return frames_.LastText("WOAR"); }
  std::string CommercialUrl() const { return frames_.LastText("WCOM"); }
  std::string Lyrics() const { return frames_.LastText("USLT"); }

  /// All comments, with "\r\n" between them.
  std::string Comment() const;

  /// The name after "(number)"; the number's name if none follows; a text without "(number)"
  /// unchanged.
  std::string Genre() const;

  /// 255 when unknown.
  Byte GenreNumber() const;

  const Id3v2Place& Place() const { return place_; }
  const Id3v2Frames& Frames() const { return frames_; }

 private:
  void Replace(std::string_view identifier, std::string text);
  Bytes BuildTag() const;
  void WriteInto(File& file) const;

  std::string fileName_;
  Id3v2Place place_;
  Id3v2Frames frames_;
};

}  // namespace repvolta
