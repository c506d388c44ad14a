#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <string>

#include "base/WholeFile.h"

#include "support/Mp3Bytes.h"

// Makes the files for measuring speed, always the same ones:
//
//   repvolta_collection FRAMES FOLDER
//
// FRAMES is an MP3 file without any tag, of 64 kbit/s; the songs are made of its frames.

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr int kSongs = 2000;
constexpr int kSongsToCopy = 50;
constexpr std::size_t kBytesASecond = 8000;
constexpr std::size_t kWorstSize = std::size_t{100} * 1024 * 1024;
constexpr std::uint64_t kSparseSize = std::uint64_t{3} * 1024 * 1024 * 1024;
constexpr int kEmptyTags = 10000;
constexpr int kListedFolders = 400;
constexpr int kListedInEach = 500;
constexpr int kLines = 1000000;

using Random = std::mt19937;

void Write(const fs::path& path, std::span<const Byte> bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error(path.string() + " could not be written");
}

Bytes RandomBytes(std::size_t count, Random& random) {
  Bytes bytes(count);
  for (Byte& byte : bytes) byte = static_cast<Byte>(random());
  return bytes;
}

Id3v2Bytes SmallTag() {
  Id3v2Bytes tag;
  tag.Text("TIT2", "A Song").Text("TPE1", "The Band").Text("TALB", "The Album");
  return tag.Padding(512).Syncsafe();
}

Id3v2Bytes PictureTag(Random& random) {
  constexpr std::size_t kPicture = std::size_t{300} * 1024;
  Id3v2Bytes tag = SmallTag();
  return tag.Frame("APIC", AsText(RandomBytes(kPicture, random))).Syncsafe();
}

/// Adds a kind of tags and other data to a song's frames.
using Kind = std::function<Bytes(const Bytes& frames, Random& random)>;

const std::map<std::string, Kind>& Kinds() {
  static const std::map<std::string, Kind> kinds{
      {"none", [](const Bytes& frames, Random&) { return frames; }},
      {"small",
       [](const Bytes& frames, Random&) { return Mp3Bytes().Id3v2(SmallTag()).Raw(frames); }},
      {"picture", [](const Bytes& frames,
                     Random& random) { return Mp3Bytes().Id3v2(PictureTag(random)).Raw(frames); }},
      {"footer",
       [](const Bytes& frames, Random&) {
         return Mp3Bytes().Raw(frames).Id3v2(SmallTag()).Footer(SmallTag());
       }},
      {"id3v1",
       [](const Bytes& frames, Random&) { return Mp3Bytes().Raw(frames).Id3v1("A Song", 7); }}};
  return kinds;
}

Bytes Frames(const Bytes& some, std::size_t size) {
  Bytes frames;
  frames.reserve(size + some.size());
  while (frames.size() < size) frames.insert(frames.end(), some.begin(), some.end());
  frames.resize(size);
  return frames;
}

/// 2 to 6 minutes, a fifth of each kind.
void MakeSongs(const fs::path& folder, const Bytes& frames, Random& random) {
  for (int i = 0; i < kSongs; ++i) {
    auto kind = Kinds().begin();
    std::advance(kind, i % static_cast<int>(Kinds().size()));
    const fs::path place = folder / "songs" / std::to_string(i % 40);
    fs::create_directories(place);
    const std::size_t seconds = 120 + random() % 241;
    Write(place / (kind->first + std::to_string(i) + ".mp3"),
          kind->second(Frames(frames, seconds * kBytesASecond), random));
  }
}

void MakeSongsToCopy(const fs::path& folder, const Bytes& frames, Random& random) {
  constexpr std::size_t kSize = std::size_t{5} * 1024 * 1024;
  for (const auto& [name, kind] : Kinds()) {
    const fs::path place = folder / "copy" / name;
    fs::create_directories(place);
    for (int i = 0; i < kSongsToCopy; ++i) {
      Write(place / ("Song " + std::to_string(i) + ".mp3"), kind(Frames(frames, kSize), random));
    }
  }
}

Bytes Repeated(std::span<const Byte> pattern) {
  Bytes bytes(kWorstSize);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = pattern[i % pattern.size()];
  return bytes;
}

/// Random bytes in which no frame starts: the third byte of every header is made invalid.
Bytes RandomWithoutFrame(Random& random) {
  Bytes bytes = RandomBytes(kWorstSize, random);
  for (std::size_t i = 0; i + 2 < bytes.size(); ++i) {
    if (bytes[i] == 0xFF && (bytes[i + 1] & 0xE0) == 0xE0) bytes[i + 2] = 0xF0;
  }
  return bytes;
}

void MakeWorstCases(const fs::path& folder, const Bytes& frames, Random& random) {
  const fs::path place = folder / "worst";
  fs::create_directories(place);
  Write(place / "zeros.mp3", Repeated(Bytes{0}));
  Write(place / "ff.mp3", Repeated(Bytes{0xFF}));
  Write(place / "ff00.mp3", Repeated(Bytes{0xFF, 0}));
  Write(place / "fffbf0.mp3", Repeated(Bytes{0xFF, 0xFB, 0xF0}));
  Write(place / "random.mp3", RandomWithoutFrame(random));
  Bytes late = Repeated(Bytes{0});
  std::copy(frames.begin(), frames.begin() + 4096, late.end() - 4096);
  Write(place / "late.mp3", late);
  Mp3Bytes tags;
  for (int i = 0; i < kEmptyTags; ++i) tags.Id3v2(Id3v2Bytes());
  Write(place / "tags.mp3", tags.Raw(frames));
  Write(place / "sparse.mp3", {});
  fs::resize_file(place / "sparse.mp3", kSparseSize);
}

/// Makes 200,000 empty files in folders, for listing.
void MakeFilesToList(const fs::path& folder) {
  for (int i = 0; i < kListedFolders; ++i) {
    const fs::path place = folder / "list" / ("Album " + std::to_string(i));
    fs::create_directories(place);
    for (int j = 0; j < kListedInEach; ++j) {
      Write(place / ("Song number " + std::to_string(j) + ".mp3"), {});
    }
  }
}

/// Makes a list of missing files, so that drawing measures no play time.
void MakeLines(const fs::path& folder) {
  fs::create_directories(folder / "draw");
  WholeFileWriter list(folder / "draw" / "musiclist.txt");
  for (int i = 0; i < kLines; ++i) {
    list.Append("/nowhere/Music/The Band " + std::to_string(i / 1000) + "/Album/Song " +
                std::to_string(i) + ".mp3\n");
  }
  list.Commit();
}

void MakeCollection(const std::string& framesFile, const fs::path& folder) {
  constexpr std::size_t kMostFrames = std::size_t{16} * 1024 * 1024;
  const Bytes frames = ReadWholeFile(framesFile, kMostFrames);
  Random random(20071121);
  MakeSongs(folder, frames, random);
  MakeSongsToCopy(folder, frames, random);
  MakeWorstCases(folder, frames, random);
  MakeFilesToList(folder);
  MakeLines(folder);
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: repvolta_collection FRAMES FOLDER\n", stderr);
    return 2;
  }
  try {
    repvolta::MakeCollection(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "repvolta_collection: %s\n", error.what());
    return 1;
  }
}
