#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <taglib/fileref.h>

#include "base/ProgramFiles.h"
#include "update/MusicListing.h"

#include "Operations.h"
#include "Suite.h"
#include "limits/Descriptor.h"
#include "limits/Limits.h"

namespace repvolta::bench {
namespace {

using Files = std::vector<std::string>;

constexpr std::size_t kColdSongs = 400;
constexpr std::size_t kTagRounds = 500;
constexpr int kLines = 1000000;  // of the collection's list

int PlayTimesByTagLib(const Files& files) {
  int sum = 0;
  for (const std::string& file : files) {
    const TagLib::FileRef song(file.c_str());
    if (!song.isNull()) sum += song.audioProperties()->lengthInSeconds();
  }
  return sum;
}

/// Lets the system forget the content of the files.
void Forget(const Files& files) {
  for (const std::string& path : files) {
    const limits::Descriptor file(path, O_RDONLY);
    fdatasync(file.Number());
    posix_fadvise(file.Number(), 0, 0, POSIX_FADV_DONTNEED);
  }
}

void RegisterWorstCase(const std::string& folder, const std::string& name) {
  const std::string path = folder + "/" + name + ".mp3";
  const std::string row = "worst case " + name;
  Register({row, "ours", {}, Timed([=] { benchmark::DoNotOptimize(PlayTimes({path})); })});
  Register({row, "limit", {}, Timed([=] { benchmark::DoNotOptimize(limits::ReadOnce(path)); })});
}

}  // namespace

void RegisterPlayTimes(const Places& places) {
  const std::string folder = places.collection + "/songs";
  const Files songs = FilesBelow(folder, ".mp3");
  const std::string warm = "play time warm";
  Register({warm, "ours", {}, Timed([=] { benchmark::DoNotOptimize(PlayTimes(songs)); })});
  Register(
      {warm, "limit", {}, Timed([=] { benchmark::DoNotOptimize(limits::ReadPlaces(songs)); })});
  Register(
      {warm, "TagLib", {}, Timed([=] { benchmark::DoNotOptimize(PlayTimesByTagLib(songs)); })});
  Register({warm,
            "mutagen",
            {},
            SelfTimed({"/usr/bin/python3", places.peers + "/play_times.py", folder})});

  const Files few(songs.begin(), songs.begin() + std::min(songs.size(), kColdSongs));
  const auto forget = [=] { Forget(few); };
  const std::string cold = "play time cold";
  Register({cold, "ours", forget, Timed([=] { benchmark::DoNotOptimize(PlayTimes(few)); })});
  Register(
      {cold, "limit", forget, Timed([=] { benchmark::DoNotOptimize(limits::ReadPlaces(few)); })});

  // The file is too small to be measured by a single reading.
  const Files tags(kTagRounds, places.collection + "/worst/tags.mp3");
  const std::string inARow = "10,000 empty tags";
  Register({inARow, "ours", {}, Timed([=] { benchmark::DoNotOptimize(PlayTimes(tags)); })});
  Register({inARow, "limit", {}, Timed([=] {
              for (const std::string& file : tags) {
                benchmark::DoNotOptimize(limits::ReadOnce(file));
              }
            })});

  for (const char* name : {"zeros", "ff", "ff00", "fffbf0", "random", "late"}) {
    RegisterWorstCase(places.collection + "/worst", name);
  }
}

void RegisterListing(const Places& places) {
  const std::string folder = places.collection + "/list";
  Register({"listing", "ours", {}, Timed([=] { CompileMusicList(folder); })});
  Register({"listing", "limit", {}, Timed([=] { limits::ListPlainly(folder, "plain.txt"); })});
  Register({"listing", "find", {}, Timed([=] {
              limits::RunProgram({"find", folder, "-name", "*.mp3"}, "found.txt");
            })});

  const std::string lines = places.collection + "/draw";
  const auto there = [=, work = places.work](const std::function<void()>& run) {
    return Timed([=] {
      if (chdir(lines.c_str()) != 0) throw std::runtime_error(lines);
      run();
      if (chdir(work.c_str()) != 0) throw std::runtime_error(work);
    });
  };
  Register({"draw", "ours", {}, there([] { DrawInVain(kLines); })});
  Register(
      {"draw", "limit", {}, there([] { benchmark::DoNotOptimize(limits::PassOver(kMusicList)); })});
}

}  // namespace repvolta::bench
