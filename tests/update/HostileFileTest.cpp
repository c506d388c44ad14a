#include <filesystem>
#include <gtest/gtest.h>
#include <random>

#include "base/FileError.h"
#include "mp3/GetPlayTime.h"
#include "mp3/RepvoltaMP3.h"
#include "update/ProcessMP3tag.h"

#include "fakes/RecordingLog.h"
#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// A file with everything that the program reads, in which some bytes are then damaged.
Bytes Damaged(std::mt19937& random) {
  const Id3v2Bytes tag = Id3v2Bytes(static_cast<Byte>(2 + random() % 3), 0x10)
                             .Text("TIT2", "Title")
                             .Text("COMM", "Comment")
                             .Text("TCON", "(17)");
  Bytes file = Mp3Bytes()
                   .Id3v2(tag)
                   .Garbage(random() % 50)
                   .Frame({.bitRate = static_cast<std::uint32_t>(random() % 16)})
                   .Xing(1, 3)
                   .Frames(2)
                   .Id3v2(tag)
                   .Footer(tag)
                   .Id3v1("Title", 7);
  constexpr Byte kNasty[] = {0x00, 0x01, 0x7F, 0x80, 0xFF, 0xFB, 'I', 'X'};
  for (auto count = random() % 12; count > 0; --count) {
    const std::size_t place = random() % 2 == 0 ? random() % 64 : random() % file.size();
    file[place] = kNasty[random() % std::size(kNasty)];
  }
  if (random() % 4 == 0) file.resize(random() % file.size());
  return file;
}

/// Runs it and ignores exceptions that a bad file may cause.
template <typename Deed>
void Try(Deed deed) {
  try {
    deed();
  } catch (const FileError&) {
  } catch (const std::overflow_error&) {
  } catch (const DivisionByZero&) {
  }
}

TEST(HostileFile, RaisesNothingButItsFaultsWhenItIsExamined) {
  TemporaryFolder folder;
  std::mt19937 random(1);
  for (int round = 0; round < 500; ++round) {
    PutFile("song.mp3", Damaged(random));
    Try([] { GetPlayTime("song.mp3"); });
    Try([] { RepvoltaMP3(RepvoltaMP3::EmbeddedTags::kSearched).SetFileName("song.mp3"); });
  }
}

TEST(HostileFile, GrowsByNoMoreThanATagWhenItIsTagged) {
  TemporaryFolder folder;
  std::mt19937 random(2);
  for (int round = 0; round < 100; ++round) {
    const Bytes file = Damaged(random);
    PutFile("song.mp3", file);
    RecordingLog log;
    Try([&] { ProcessMP3tag("song.mp3", "title", "Monday.RPV", log); });
    ASSERT_LE(std::filesystem::file_size("song.mp3"), file.size() + 4096) << round;
  }
}

}  // namespace
}  // namespace repvolta
