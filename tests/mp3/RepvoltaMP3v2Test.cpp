#include <filesystem>
#include <gtest/gtest.h>

#include "mp3/RepvoltaMP3v2.h"
#include "mp3/TagError.h"

#include "support/Mp3Bytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using Names = std::vector<std::string>;

cMP3ID3v2 Read(std::span<const Byte> file) {
  TemporaryFolder folder;
  PutFile("song.mp3", file);
  cMP3ID3v2 tag;
  tag.SetFileName("song.mp3");
  return tag;
}

cMP3ID3v2 ReadTag(const Id3v2Bytes& tag) { return Read(Mp3Bytes().Id3v2(tag).Frame()); }

TEST(cMP3ID3v2, ReadsVersion3) {
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes(3).Text("TIT2", "Squats").Text("TPE1", "Coach"));
  EXPECT_TRUE(tag.HasTag());
  EXPECT_EQ(tag.Title(), "Squats");
  EXPECT_EQ(tag.Artist(), "Coach");
  EXPECT_EQ(tag.Place().position, 4);
  EXPECT_EQ(tag.Place().version, 3);
  EXPECT_EQ(tag.Place().size, 33);
}

TEST(cMP3ID3v2, ReadsVersion4LikeVersion3) {
  EXPECT_EQ(ReadTag(Id3v2Bytes(4).Text("TIT2", "Squats")).Title(), "Squats");
  // 200 bytes: the size is plain, where the version's own rule has seven bits a byte.
  EXPECT_EQ(ReadTag(Id3v2Bytes(4).Text("TIT2", std::string(199, 'x'))).Title().size(), 199U);
}

TEST(cMP3ID3v2, KeepsFourMebibytesOfFramesAndPassesOverMore) {
  const auto lengthWith = [](std::size_t size) {
    return ReadTag(Id3v2Bytes(3).Text("TIT2", "a").Frame("TPE1", std::string(size, 'x')))
        .Artist()
        .size();
  };
  constexpr std::size_t kRoom = std::size_t{4} * 1024 * 1024 - 2;
  EXPECT_EQ(lengthWith(kRoom), kRoom);
  EXPECT_EQ(lengthWith(kRoom + 1), 0U);
}

TEST(cMP3ID3v2, ReadsVersion2UnderTheIdentifiersOfVersion3) {
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes(2)
                                    .Text("TP1", "a")
                                    .Text("TT2", "b")
                                    .Text("TAL", "c")
                                    .Text("COM", "d")
                                    .Text("TRK", "e")
                                    .Text("TEN", "f")
                                    .Text("TYE", "g")
                                    .Text("TCO", "h"));
  EXPECT_EQ(tag.Frames().Identifiers(),
            (Names{"TPE1", "TIT2", "TALB", "COMM", "TRCK", "TENC", "TYER", "TCON"}));
  EXPECT_EQ(tag.Title(), "b");
  EXPECT_EQ(tag.Genre(), "h");
}

TEST(cMP3ID3v2, KeepsOtherIdentifiersOfVersion2) {
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes(2).Text("TCM", "Somebody"));
  EXPECT_EQ(tag.Frames().Identifiers(), Names{"TCM"});
  EXPECT_EQ(tag.Frames().Text("TCM", 1), "Somebody");
  EXPECT_EQ(tag.Composer(), "");
}

TEST(cMP3ID3v2, LeavesOtherVersionsUnread) {
  for (const int version : {0, 1, 5, 255}) {
    const cMP3ID3v2 tag = ReadTag(Id3v2Bytes(static_cast<Byte>(version)).Text("TIT2", "Squats"));
    EXPECT_TRUE(tag.HasTag()) << version;
    EXPECT_EQ(tag.Title(), "") << version;
    EXPECT_EQ(tag.Place().size, 0) << version;
  }
}

TEST(cMP3ID3v2, FillsItsFields) {
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes()
                                    .Text("TALB", "a")
                                    .Text("TYER", "b")
                                    .Text("TRCK", "c")
                                    .Text("TCOP", "d")
                                    .Text("TOPE", "e")
                                    .Text("TCOM", "f")
                                    .Text("TENC", "g")
                                    .Text("PCNT", "h")
                                    .Text("WXXX", "i")
                                    .Text("WOAF", "j")
                                    .Text("WOAR", "k")
                                    .Text("WCOM", "l")
                                    .Text("USLT", "m"));
  const std::string all = tag.Album() + tag.Year() + tag.Track() + tag.Copyright() +
                          tag.OriginalArtist() + tag.Composer() + tag.EncodedBy() +
                          tag.PlayCount() + tag.UserUrl() + tag.AudioFileUrl() + tag.ArtistUrl() +
                          tag.CommercialUrl() + tag.Lyrics();
  EXPECT_EQ(all, "abcdefghijklm");
}

TEST(cMP3ID3v2, DropsEveryZeroByteOfAFrame) {
  const std::string data("\0a\0\0b\0", 6);
  EXPECT_EQ(ReadTag(Id3v2Bytes().Frame("TIT2", data)).Title(), "ab");
}

TEST(cMP3ID3v2, ReadsTextsAsSingleBytes) {
  EXPECT_EQ(ReadTag(Id3v2Bytes().Text("TIT2", "Caf\xE9 \x80")).Title(), "Café €");
}

TEST(cMP3ID3v2, HoldsSeveralFramesOfAnIdentifier) {
  const cMP3ID3v2 tag =
      ReadTag(Id3v2Bytes().Text("WXXX", "one").Text("TIT2", "t").Text("WXXX", "two"));
  EXPECT_EQ(tag.Frames().Identifiers(), (Names{"WXXX", "TIT2"}));
  EXPECT_EQ(tag.Frames().Count("WXXX"), 2U);
  EXPECT_EQ(tag.Frames().Text("WXXX", 1), "one");
  EXPECT_EQ(tag.Frames().Text("WXXX", 2), "two");
  EXPECT_EQ(tag.UserUrl(), "two");
}

TEST(cMP3ID3v2, JoinsItsComments) {
  EXPECT_EQ(ReadTag(Id3v2Bytes().Text("COMM", "one")).Comment(), "one");
  EXPECT_EQ(
      ReadTag(Id3v2Bytes().Text("COMM", "one").Text("COMM", "two").Text("COMM", "")).Comment(),
      "one\r\ntwo\r\n");
}

struct Genre {
  const char* text;
  const char* name;
  int number;
};

TEST(cMP3ID3v2, ReadsGenres) {
  const Genre kGenres[] = {{"Polka", "Polka", 255},
                           {"(7)", "Hip Hop", 7},
                           {"(17)Hard stuff", "Hard stuff", 17},
                           {"(200)", "", 200},
                           {"(254)x", "x", 254},
                           {"(255)", "", 255},
                           {"(256)x", "x", 255},
                           {"()", "", 255},
                           {"(RX)Remix", "Remix", 255},
                           {"(4)(5)", "(5)", 4},
                           {"(4", "(4", 255},
                           {"4)", "4)", 255},
                           {")4(", ")4(", 255},
                           {"(99999999999)", "", 255},
                           {"(123)", "", 123},
                           {"", "", 255}};
  for (const Genre& genre : kGenres) {
    const cMP3ID3v2 tag = ReadTag(Id3v2Bytes().Text("TCON", genre.text));
    EXPECT_EQ(tag.Genre(), genre.name) << genre.text;
    EXPECT_EQ(tag.GenreNumber(), genre.number) << genre.text;
  }
}

TEST(cMP3ID3v2, StopsAtPadding) {
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes().Text("TIT2", "a").Padding(10).Text("TALB", "behind"));
  EXPECT_EQ(tag.Title(), "a");
  EXPECT_EQ(tag.Album(), "");
}

TEST(cMP3ID3v2, StopsAtAnIdentifierOfZerosOnly) {
  for (const Byte version : {Byte{3}, Byte{4}}) {
    const Id3v2Bytes one = Id3v2Bytes(version).Frame(std::string("\0\0\0X", 4), "a");
    EXPECT_EQ(ReadTag(Id3v2Bytes(one).Frame(std::string(4, '\0'), "b").Text("TALB", "c"))
                  .Frames()
                  .Identifiers(),
              Names{std::string("\0\0\0X", 4)});
  }
}

TEST(cMP3ID3v2, StopsInVersion2AtAnIdentifierOfThreeZeros) {
  const Id3v2Bytes one = Id3v2Bytes(2).Frame(std::string("\0\0X", 3), "a");
  EXPECT_EQ(ReadTag(Id3v2Bytes(one).Frame(std::string(3, '\0'), "b").Text("TAL", "c"))
                .Frames()
                .Identifiers(),
            Names{std::string("\0\0X", 3)});
}

TEST(cMP3ID3v2, StopsAtAFrameThatEndsPastTheTag) {
  const Id3v2Bytes frames = Id3v2Bytes().Text("TIT2", "a").Text("TALB", "0123456789");
  EXPECT_EQ(ReadTag(Id3v2Bytes(frames).ClaimSize(33)).Album(), "0123456789");
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes(frames).ClaimSize(32));
  EXPECT_EQ(tag.Title(), "a");
  EXPECT_EQ(tag.Album(), "");
}

TEST(cMP3ID3v2, ReadsAFrameThatEndsPastTheFileAsFarAsItGoes) {
  const Bytes whole =
      Id3v2Bytes().Text("TIT2", "a").Text("TALB", "0123456789").ClaimSize(5000).Build();
  EXPECT_EQ(Read(whole).Album(), "0123456789");
  const cMP3ID3v2 tag = Read(std::span(whole).first(whole.size() - 3));
  EXPECT_EQ(tag.Title(), "a");
  EXPECT_EQ(tag.Album(), "0123456");
}

TEST(cMP3ID3v2, HoldsAFrameOfWhichTheFileHasOnlyTheHeader) {
  const Bytes whole = Id3v2Bytes().Text("TIT2", "a").Build();
  const cMP3ID3v2 tag = Read(std::span(whole).first(20));
  EXPECT_EQ(tag.Frames().Identifiers(), Names{"TIT2"});
  EXPECT_EQ(tag.Title(), "");
}

TEST(cMP3ID3v2, ReadsATagCutOffAnywhere) {
  const Bytes whole = Id3v2Bytes().Text("TIT2", "a").Text("TALB", "b").Build();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const cMP3ID3v2 tag = Read(std::span(whole).first(size));
    EXPECT_EQ(tag.HasTag(), size >= 3) << size;
    EXPECT_EQ(tag.Title(), size >= 22 ? "a" : "") << size;
    EXPECT_EQ(tag.Album(), "") << size;
    const std::size_t headers = (size >= 20 ? 1 : 0) + (size >= 32 ? 1 : 0);
    EXPECT_EQ(tag.Frames().Identifiers().size(), headers) << size;
  }
}

TEST(cMP3ID3v2, ReadsNothingByANegativeSize) {
  const cMP3ID3v2 tag = ReadTag(Id3v2Bytes().Text("TIT2", "a").ClaimSize(0xFFFFFFFF));
  EXPECT_TRUE(tag.HasTag());
  EXPECT_EQ(tag.Place().size, -1);
  EXPECT_EQ(tag.Title(), "");
}

TEST(cMP3ID3v2, AllocatesNothingByASizeThatIsOnlyClaimed) {
  Bytes frame = Id3v2Bytes().Frame("TIT2", "x").ClaimSize(0x7FFFFFFF).Build();
  StoreBigEndian32(std::span(frame).subspan(14), 0x7FFFFFF0);
  EXPECT_EQ(Read(frame).Title(), "x");
  StoreBigEndian32(std::span(frame).subspan(14), 0xFFFFFFFF);
  EXPECT_EQ(Read(frame).Frames().Identifiers(), Names{});
}

TEST(cMP3ID3v2, PassesOverAFrameOfManyMegabytes) {
  TemporaryFolder folder;
  constexpr std::uint32_t kHuge = 1U << 30;
  Bytes tag = Id3v2Bytes().Text("TIT2", "a").Frame("APIC", "").ClaimSize(0x7FFFFFFF).Build();
  StoreBigEndian32(std::span(tag).subspan(26), kHuge);
  PutFile("song.mp3", tag);
  std::filesystem::resize_file("song.mp3", tag.size() + kHuge);
  PutFile("end", Id3v2Bytes().Text("TALB", "b").Build());
  File file = File::Open("song.mp3", File::Access::kReadWrite);
  file.WriteAt(tag.size() + kHuge, std::span<const Byte>(GetFile("end")).subspan(10));

  cMP3ID3v2 read;
  read.SetFileName("song.mp3");

  EXPECT_EQ(read.Frames().Identifiers(), (Names{"TIT2", "TALB"}));
}

TEST(cMP3ID3v2, StopsAfterThousandsOfFrames) {
  Id3v2Bytes tag;
  for (int i = 0; i < 20000; ++i) tag.Frame("A" + std::to_string(100 + i % 900), "");
  EXPECT_EQ(ReadTag(tag).Frames().Identifiers().size(), 900U);
  EXPECT_LT(ReadTag(tag).Frames().Count("A100"), 20U);
}

TEST(cMP3ID3v2, FindsATagBehindGarbage) {
  const cMP3ID3v2 tag = Read(Mp3Bytes().Garbage(100).Id3v2(Id3v2Bytes().Text("TIT2", "a")));
  EXPECT_EQ(tag.Place().position, 104);
  EXPECT_EQ(tag.Title(), "a");
}

TEST(cMP3ID3v2, FindsATagAcrossChunks) {
  for (const std::size_t before :
       {4092U, 4093U, 4094U, 4095U, 4096U, 8185U, 8186U, 8187U, 8188U, 8189U}) {
    const cMP3ID3v2 tag = Read(Mp3Bytes().Garbage(before).Id3v2(Id3v2Bytes().Text("TIT2", "a")));
    EXPECT_EQ(tag.Place().position, static_cast<std::int32_t>(before) + 4);
    EXPECT_EQ(tag.Title(), "a") << before;
  }
}

TEST(cMP3ID3v2, LooksForNoTagBehindTheStartOfTheAudio) {
  for (const std::size_t before : {0U, 100U, 4090U, 4092U, 4094U, 4095U, 4096U, 9000U}) {
    const Mp3Bytes file = Mp3Bytes()
                              .Garbage(before)
                              .Raw("\xFF\xFB")
                              .Garbage(5000)
                              .Id3v2(Id3v2Bytes().Text("TIT2", "a"));
    EXPECT_FALSE(Read(file).HasTag()) << before;
  }
}

TEST(cMP3ID3v2, TakesTheTagWhenItStandsBeforeTheAudio) {
  EXPECT_TRUE(Read(Mp3Bytes().Raw("ID3").Raw("\xFF\xFB")).HasTag());
  EXPECT_FALSE(Read(Mp3Bytes().Raw("\xFF\xFB").Raw("ID3")).HasTag());
}

TEST(cMP3ID3v2, TakesOtherAudioForNoEndOfTheSearch) {
  EXPECT_TRUE(Read(Mp3Bytes().Frame(kMpeg2Layer3).Raw("ID3")).HasTag());
}

TEST(cMP3ID3v2, StartsAnewWithEachFile) {
  TemporaryFolder folder;
  PutFile("a.mp3", Mp3Bytes().Id3v2(Id3v2Bytes().Text("TIT2", "a").Text("TCON", "(7)")).Frame());
  PutFile("b.mp3", Mp3Bytes().Frame());
  cMP3ID3v2 tag;
  tag.SetFileName("a.mp3");

  tag.SetFileName("b.mp3");

  EXPECT_FALSE(tag.HasTag());
  EXPECT_EQ(tag.Title(), "");
  EXPECT_EQ(tag.GenreNumber(), 255);
  EXPECT_EQ(tag.Frames().Identifiers(), Names{});
}

TEST(cMP3ID3v2, NamesItsSourceWhenItCannotRead) {
  TemporaryFolder folder;
  try {
    cMP3ID3v2().SetFileName("gone.mp3");
    FAIL() << "read";
  } catch (const TagError& error) {
    EXPECT_EQ(error.Source(), "tests_mp3.cMP3ID3v1");
    EXPECT_EQ(error.Error(), ENOENT);
    EXPECT_STREQ(error.what(), "gone.mp3 could not be read: No such file or directory");
  }
}

}  // namespace
}  // namespace repvolta
