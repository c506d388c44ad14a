#include <QProcess>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2header.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>

#include "mp3/GetPlayTime.h"
#include "mp3/Id3v2Format.h"
#include "mp3/RepvoltaMP3v2.h"
#include "update/ProcessMP3tag.h"

#include "fakes/RecordingLog.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

/// The program's standard output; fails the test when the program fails.
QByteArray Output(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(program, arguments);
  const bool ended = process.waitForFinished(60000);
  EXPECT_TRUE(ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
      << program.toStdString() << ": " << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

struct Sound {
  std::uint32_t rate;  // Hz
  std::uint16_t channels;
  std::uint32_t seconds;
};
constexpr Sound kInstruction{16000, 1, 7};
constexpr Sound kMusic{44100, 2, 12};

Bytes WavOf(const Sound& sound) {
  const std::uint32_t samples = sound.rate * sound.seconds;
  const std::uint32_t size = samples * sound.channels * 2;
  Bytes wav(44 + size);
  const std::span all(wav);
  std::copy_n("RIFF", 4, wav.begin());
  StoreLittleEndian(all.subspan(4), 36 + size);
  std::copy_n("WAVEfmt ", 8, wav.begin() + 8);
  StoreLittleEndian(all.subspan(16), std::uint32_t{16});
  StoreLittleEndian(all.subspan(20), std::uint16_t{1});
  StoreLittleEndian(all.subspan(22), sound.channels);
  StoreLittleEndian(all.subspan(24), sound.rate);
  StoreLittleEndian(all.subspan(28), sound.rate * sound.channels * 2);
  StoreLittleEndian(all.subspan(32), static_cast<std::uint16_t>(sound.channels * 2));
  StoreLittleEndian(all.subspan(34), std::uint16_t{16});
  std::copy_n("data", 4, wav.begin() + 36);
  StoreLittleEndian(all.subspan(40), size);
  for (std::uint32_t i = 0; i < samples * sound.channels; ++i) {
    const std::uint32_t moment = i / sound.channels;
    const double turn = 440.0 * moment / sound.rate;
    const double value = 9000 * std::sin(2 * std::numbers::pi * turn * (1 + turn / 4000));
    StoreLittleEndian(all.subspan(44 + 2 * std::size_t{i}),
                      static_cast<std::uint16_t>(static_cast<std::int16_t>(value)));
  }
  return wav;
}

/// Makes RV001-Instructions.mp3 with the encoder's own options.
void Encode(const Sound& sound, const QStringList& options = {"-V4"}) {
  PutFile("temp.wav", WavOf(sound));
  Output("lame",
         QStringList{"--quiet"} + options + QStringList{"temp.wav", "RV001-Instructions.mp3"});
}

constexpr const char* kSong = "RV001-Instructions.mp3";

void Tag(std::string_view title = "Squats, 3 sets") {
  RecordingLog log;
  ProcessMP3tag(kSong, title, "Monday.RPV", log);
}

double Duration() {
  return Output("ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of",
                            "default=noprint_wrappers=1:nokey=1", kSong})
      .toDouble();
}

/// The frames that another program finds in the file.
int Packets() {
  return Output("ffprobe",
                {"-v", "error", "-count_packets", "-show_entries", "stream=nb_read_packets", "-of",
                 "default=noprint_wrappers=1:nokey=1", kSong})
      .trimmed()
      .toInt();
}

QByteArray Samples() { return Output("mpg123", {"-q", "-s", kSong}); }

std::string TextOf(const TagLib::String& text) { return text.to8Bit(true); }

TEST(TaggedFileJudged, ShowsTitleArtistAlbumTrackAndAddress) {
  TemporaryFolder folder;
  Encode(kInstruction);

  Tag();

  TagLib::MPEG::File file(kSong);
  ASSERT_TRUE(file.hasID3v2Tag());
  EXPECT_EQ(TextOf(file.ID3v2Tag()->title()), "RV001- Squats, 3 sets");
  EXPECT_EQ(TextOf(file.ID3v2Tag()->artist()), "Repvolta");
  EXPECT_EQ(TextOf(file.ID3v2Tag()->album()), "Monday.RPV");
  EXPECT_EQ(TextOf(file.ID3v2Tag()->frameList("TRCK").front()->toString()), "0");
  EXPECT_NE(TextOf(file.ID3v2Tag()->frameList("WXXX").front()->toString())
                .find("https://repvolta.example/"),
            std::string::npos);
}

TEST(TaggedFileJudged, ShowsAReaderOfSevenBitSizesHalfOfTheTagsArea) {
  TemporaryFolder folder;
  Encode(kInstruction);

  Tag();

  // 2048 as a plain number is 00 00 08 00, which a standard reader takes for 8 * 128.
  EXPECT_EQ(TagLib::MPEG::File(kSong).ID3v2Tag()->header()->tagSize(), 1024U);
  EXPECT_EQ(GetFile(kSong)[kId3v2SizeOffset + 2], 8);
}

TEST(TaggedFileJudged, ShowsAccents) {
  TemporaryFolder folder;
  Encode(kInstruction);
  Tag("Développé couché – 5 €");
  EXPECT_EQ(TextOf(TagLib::MPEG::File(kSong).ID3v2Tag()->artist()), "Repvolta");
  // The code page's characters between 80 and 9F are control characters in Latin-1.
  EXPECT_TRUE(
      TextOf(TagLib::MPEG::File(kSong).ID3v2Tag()->title()).starts_with("RV001- Développé couché"));
}

class TaggedSoundJudged : public testing::TestWithParam<Sound> {};

TEST_P(TaggedSoundJudged, DecodesToTheSameSamples) {
  TemporaryFolder folder;
  Encode(GetParam());
  const QByteArray before = Samples();
  ASSERT_GT(before.size(), 100000);

  Tag();

  EXPECT_TRUE(Samples() == before);
}

TEST_P(TaggedSoundJudged, LastsAsLongAsBefore) {
  TemporaryFolder folder;
  Encode(GetParam());
  const int before = Packets();

  Tag();

  // The judging program may or may not count the frame of the Xing header as a packet.
  EXPECT_NEAR(Packets(), before, 1);
  const double samples = static_cast<double>(Samples().size()) / 2 / GetParam().channels;
  EXPECT_NEAR(samples / GetParam().rate, GetParam().seconds, 0.2);
}

TEST_P(TaggedSoundJudged, LosesTheEncodersTagAndNoSamples) {
  TemporaryFolder folder;
  Encode(GetParam(), {"-V4", "--id3v2-only", "--tt", "Old", "--tc", "Old comment"});
  const QByteArray before = Samples();

  Tag();

  EXPECT_TRUE(Samples() == before);
  TagLib::MPEG::File file(kSong);
  EXPECT_EQ(TextOf(file.ID3v2Tag()->title()), "RV001- Squats, 3 sets");
  EXPECT_EQ(TextOf(file.ID3v2Tag()->comment()), "");
}

INSTANTIATE_TEST_SUITE_P(Kinds, TaggedSoundJudged, testing::Values(kInstruction, kMusic));

TEST(TaggedFileJudged, KeepsItsID3v1Tag) {
  TemporaryFolder folder;
  Encode(kMusic, {"-V4", "--id3v1-only", "--tt", "Old", "--tn", "7"});

  Tag();

  TagLib::MPEG::File file(kSong);
  ASSERT_TRUE(file.hasID3v1Tag());
  EXPECT_EQ(TextOf(file.ID3v1Tag()->title()), "Old");
  EXPECT_EQ(file.ID3v1Tag()->track(), 7U);
}

TEST(PlayTimeJudged, IsThatOfOtherPrograms) {
  const QStringList kOptions[] = {
      {"-V4"}, {"-V7", "--resample", "44.1"}, {"-b", "128"}, {"-b", "320"}, {"--abr", "150"}};
  for (const QStringList& options : kOptions) {
    TemporaryFolder folder;
    Encode(kMusic, options);
    EXPECT_NEAR(GetPlayTime(kSong), Duration(), 1.0) << options.join(' ').toStdString();
  }
}

class ForeignTagJudged : public testing::TestWithParam<TagLib::ID3v2::Version> {};

TEST_P(ForeignTagJudged, IsReadAndCutOff) {
  TemporaryFolder folder;
  Encode(kMusic);
  {
    TagLib::MPEG::File file(kSong);
    file.ID3v2Tag(true)->setTitle(TagLib::String("Étude", TagLib::String::UTF8));
    file.ID3v2Tag()->setAlbum("Album");
    file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone, GetParam());
  }
  cMP3ID3v2 tag;
  tag.SetFileName(kSong);
  EXPECT_EQ(tag.Album(), "Album");
  EXPECT_EQ(tag.Title(), "Étude");

  Tag("new");

  tag.SetFileName(kSong);
  EXPECT_EQ(tag.Title(), "RV001- new");
}

INSTANTIATE_TEST_SUITE_P(Versions, ForeignTagJudged,
                         testing::Values(TagLib::ID3v2::v3, TagLib::ID3v2::v4));

}  // namespace
}  // namespace repvolta
