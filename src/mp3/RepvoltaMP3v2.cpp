#include "mp3/RepvoltaMP3v2.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/Numbers.h"
#include "base/WholeFile.h"
#include "mp3/GenreName.h"
#include "mp3/Id3v2Format.h"
#include "mp3/TagError.h"

namespace repvolta {
namespace {

constexpr std::string_view kModule = ".cMP3ID3v2";
constexpr std::string_view kModuleOfReading = ".cMP3ID3v1";
constexpr Byte kUnknownGenre = 255;

void StoreSize(std::size_t size, Bytes& tag) {
  StoreBigEndian32(std::span(tag).subspan(kId3v2SizeOffset), static_cast<std::uint32_t>(size));
}

/// Adds the empty frame header that ends the frames, or as much of it as the tag's area has room
/// for, so that the rest of an older tag is not read as more frames.
void EndFrames(std::size_t area, Bytes& tag) {
  constexpr std::size_t kEnd = kFrameLayoutOfVersion3.headerSize;
  tag.resize(std::min(tag.size() + kEnd, area));
}

/// The area that a new tag of `size` bytes gets (quirk 66).
std::size_t AreaFor(std::size_t size) { return (size / kTagStep + 1) * kTagStep; }

/// A negative size means that the file has no tag that could be replaced.
std::size_t SizeOf(const Id3v2Place& old) {
  return static_cast<std::size_t>(std::max(old.size, 0));
}

/// The bytes that a new tag of `size` bytes needs beside the old one. None when that is larger: it
/// then keeps its size, so the audio need not be moved (quirk 68).
std::size_t RoomBeside(const Id3v2Place& old, std::size_t size) {
  if (old.position >= 1 && SizeOf(old) > size) return 0;
  return AreaFor(size) - SizeOf(old);
}

/// Replaces the beginning of the file by the tag, so that the file grows by `room` bytes
/// (quirk 67).
void WriteGrown(const File& file, Bytes tag, std::size_t room) {
  tag.resize(std::max(tag.size(), room));
  WholeFileWriter writer(file.Path());
  writer.Append(tag);
  writer.AppendRest(file, tag.size() - room);
  writer.Commit();
}

/// A genre as a TCON frame gives it.
struct GenreText {
  std::optional<Byte> number;
  std::string name;
};

GenreText ParseGenre(const std::string& text) {
  const std::size_t open = text.find('(');
  const std::size_t close = text.find(')', open == std::string::npos ? 0 : open);
  if (open == std::string::npos || close == std::string::npos) return {std::nullopt, text};
  const std::string between = text.substr(open + 1, close - open - 1);
  const bool isNumber = !between.empty() && between.size() <= 3 &&
                        between.find_first_not_of("0123456789") == std::string::npos;
  const double value = isNumber ? LeadingNumber(between) : kUnknownGenre;
  GenreText genre;
  if (value < kUnknownGenre) genre.number = static_cast<Byte>(value);
  genre.name = close + 1 == text.size() ? GenreName(genre.number.value_or(kUnknownGenre))
                                        : text.substr(close + 1);
  return genre;
}

}  // namespace

void cMP3ID3v2::SetFileName(const std::string& path, std::uint64_t start) {
  *this = {};
  fileName_ = path;
  try {
    const File file = File::Open(path, File::Access::kRead);
    place_ = LocateId3v2(file, start);
    frames_ = ReadId3v2Frames(file, place_);
  } catch (const FileError& error) {
    throw TagError(error, kModuleOfReading);
  }
}

void cMP3ID3v2::Replace(std::string_view identifier, std::string text) {
  frames_.RemoveAll(identifier);
  frames_.Add(identifier, std::move(text));
}

void cMP3ID3v2::SetUserUrl(std::string_view address) {
  // The leading zero byte ends the empty description.
  Replace("WXXX", std::string(1, '\0').append(address));
}

std::string cMP3ID3v2::UserUrl() const {
  std::string text = frames_.LastText("WXXX");
  std::erase(text, '\0');
  return text;
}

std::string cMP3ID3v2::Comment() const {
  std::string all = frames_.Text("COMM", 1);
  for (std::size_t i = 2; i <= frames_.Count("COMM"); ++i) all += "\r\n" + frames_.Text("COMM", i);
  return all;
}

std::string cMP3ID3v2::Genre() const { return ParseGenre(frames_.LastText("TCON")).name; }

Byte cMP3ID3v2::GenreNumber() const {
  std::optional<Byte> number;
  for (std::size_t i = 1; i <= frames_.Count("TCON"); ++i) {
    if (const auto further = ParseGenre(frames_.Text("TCON", i)).number) number = further;
  }
  return number.value_or(kUnknownGenre);
}

Bytes cMP3ID3v2::BuildTag() const {
  Bytes tag(kId3v2HeaderSize);
  std::copy(kId3v2Marker.begin(), kId3v2Marker.end(), tag.begin());
  tag[kId3v2VersionOffset] = kVersionWritten;
  const Bytes frames = frames_.Build();
  tag.insert(tag.end(), frames.begin(), frames.end());
  return tag;
}

Bytes cMP3ID3v2::NewTag() const {
  Bytes tag = BuildTag();
  const std::size_t area = AreaFor(tag.size());
  StoreSize(area, tag);
  tag.resize(area);
  return tag;
}

void cMP3ID3v2::WriteTag() {
  try {
    File file = File::Open(fileName_, File::Access::kReadWrite);
    WriteInto(file);
  } catch (const FileError& error) {
    throw TagError(error, kModule);
  }
}

std::size_t cMP3ID3v2::Growth() const { return RoomBeside(place_, BuildTag().size()); }

void cMP3ID3v2::WriteInto(File& file) const {
  Bytes tag = BuildTag();
  const Id3v2Place old = LocateId3v2(file);
  const std::size_t room = RoomBeside(old, tag.size());
  StoreSize(SizeOf(old) + room, tag);
  if (room == 0) {
    EndFrames(SizeOf(old), tag);
    file.WriteAt(old.Offset(), tag);
    file.ConfirmWritten();
  } else {
    WriteGrown(file, std::move(tag), room);
  }
}

}  // namespace repvolta
