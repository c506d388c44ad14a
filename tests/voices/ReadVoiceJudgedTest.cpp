#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "voices/ReadVoice.h"

#include "support/FailureOf.h"
#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"
#include "support/ZipBytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

/// What another program for ZIP files makes as "v.zip". Fails the test when it fails.
void Python(const std::string& script) {
  const ProgramRun run =
      RunProgram("python3", {"-c",
                             "import zipfile, tarfile, io\n"
                             "z = zipfile.ZipFile('v.zip', 'w', zipfile.ZIP_DEFLATED)\n" +
                                 script + "\nz.close()\n"});
  ASSERT_EQ(run.status, 0) << run.errors;
}

class ReadVoiceJudged : public testing::Test {
 protected:
  using Clips = std::map<std::string, std::string>;

  void Read(const VoiceLimits& limits = {}) {
    clips_.clear();
    leftOut_ = ReadVoiceArchive("v.zip", {.take = TakeInto(clips_), .limits = limits});
  }

  /// Why "v.zip" is refused. Nothing of it may have been taken before.
  std::string Refusal(const VoiceLimits& limits = {}) {
    std::string failure = FailureOf([&] { Read(limits); });
    EXPECT_THAT(failure, HasSubstr("v.zip is no voice that can be taken in: "));
    return failure;
  }

  static TakeVoiceClip TakeInto(Clips& clips) {
    return [&clips](const std::string& clip, std::span<const Byte> content) {
      clips[clip] = AsText(content);
    };
  }

  TemporaryFolder folder_;
  Clips clips_;
  std::vector<std::string> leftOut_;
};

TEST_F(ReadVoiceJudged, MayComeFromAnotherProgram) {
  Python(
      "z.writestr('Kim/', '')\n"
      "z.writestr('Kim/300.WAV', 'three hundred' * 1000)\n"
      "z.writestr('Kim/Exercise/Läufe.wav', 'run', zipfile.ZIP_STORED)\n"
      "z.writestr('Kim/notes.txt', 'notes')\n"
      "with z.open('Kim/sets.wav', 'w', force_zip64=True) as f: f.write(b'zip64')\n"
      "z.comment = b'mine'");
  Read();
  EXPECT_EQ(clips_.at("300.wav").size(), 13'000U);
  EXPECT_EQ(clips_.at("exercise/Läufe.WAV"), "run");
  EXPECT_EQ(clips_.at("sets.wav"), "zip64");
  EXPECT_THAT(leftOut_, ElementsAre("Kim/notes.txt"));
}

TEST_F(ReadVoiceJudged, LeadsNowhereElse) {
  for (const char* path : {"../1.wav", "/1.wav", "a/../../1.wav", ".."}) {
    PutFile("v.zip", ZipBytes()
                         .Add({.name = "1.wav", .content = "x"})
                         .Add({.name = path, .content = "x"})
                         .Get());
    EXPECT_THAT(Refusal(), HasSubstr("which would lie outside of it")) << path;
    EXPECT_THAT(clips_, IsEmpty());
  }
}

TEST_F(ReadVoiceJudged, LeavesOutNamesInOldCodePages) {
  PutFile("v.zip", ZipBytes()
                       .Add({.name = "1.wav", .content = "1", .flags = 0})
                       .Add({.name = "exercise/L\x84ufe.WAV", .content = "x", .flags = 0})
                       .Get());
  Read();
  EXPECT_THAT(clips_, ElementsAre(Pair("1.wav", "1")));
  EXPECT_EQ(leftOut_.size(), 1U);
}

TEST_F(ReadVoiceJudged, MayHaveFoldersWithBackslashes) {
  PutFile("v.zip", ZipBytes()
                       .Add({.name = "1.wav", .content = "1"})
                       .Add({.name = "exercise\\Squat.WAV", .content = "x"})
                       .Get());
  Read();
  EXPECT_EQ(clips_.at("1.wav"), "1");
}

TEST_F(ReadVoiceJudged, HasNoLinks) {
  PutFile("v.zip", ZipBytes()
                       .Add({.name = "1.wav", .content = "x"})
                       .Add({.name = "2.wav", .content = "/etc/passwd", .mode = 0120777})
                       .Get());
  EXPECT_THAT(Refusal(), HasSubstr("\"2.wav\", which is a link or a device"));
  EXPECT_THAT(clips_, IsEmpty());
}

TEST_F(ReadVoiceJudged, HasNoFileTwice) {
  for (const char* second : {"1.wav", "1.WAV"}) {
    PutFile("v.zip", ZipBytes()
                         .Add({.name = "1.wav", .content = "x"})
                         .Add({.name = second, .content = "y"})
                         .Get());
    EXPECT_THAT(Refusal(), HasSubstr("and more than once"));
  }
  EXPECT_THAT(clips_, IsEmpty());
}

TEST_F(ReadVoiceJudged, IsNoBomb) {
  Python("for i in range(1, 21): z.writestr(f'{i}.wav', b'\\0' * 100000)");
  EXPECT_THAT(Refusal({.bytes = 1'000'000}), HasSubstr("Its clips are too large"));
  EXPECT_THAT(Refusal({.clip = 99'999}), HasSubstr("which is too large"));
  EXPECT_THAT(Refusal({.files = 19}), HasSubstr("It holds too many files"));
  Read({.files = 20, .clip = 100'000, .bytes = 2'000'000});
  EXPECT_EQ(clips_.size(), 20U);
}

TEST_F(ReadVoiceJudged, HasNoOtherCompressionOrPassword) {
  for (const char* method : {"LZMA", "BZIP2"}) {
    Python("z.writestr('1.wav', 'x' * 1000, zipfile.ZIP_" + std::string(method) + ")");
    EXPECT_THAT(Refusal(), HasSubstr("compressed in a way that Repvolta does not know"));
  }
  PutFile("v.zip", ZipBytes().Add({.name = "1.wav", .content = "x", .flags = 0x0801}).Get());
  EXPECT_THAT(Refusal(), HasSubstr("which is encrypted"));
}

TEST_F(ReadVoiceJudged, IsRefusedWhenItIsDamagedOrNoZip) {
  Python("for i in range(1, 21): z.writestr(f'{i}.wav', bytes(range(256)) * 40)");
  const Bytes whole = GetFile("v.zip");
  for (const std::size_t size : {whole.size() - 1, whole.size() / 2, std::size_t{1}}) {
    PutFile("v.zip", std::span(whole).first(size));
    EXPECT_NE(Refusal(), "") << size;
  }
  Bytes wrong = whole;
  for (std::size_t i = 40; i < 60; ++i) wrong[i] = static_cast<Byte>(wrong[i] ^ 0xFFU);
  PutFile("v.zip", wrong);
  EXPECT_NE(Refusal(), "");
  PutFile("v.zip", "");
  EXPECT_THAT(Refusal(), HasSubstr("no ZIP file"));
}

TEST_F(ReadVoiceJudged, LiesWithoutSayingSo) {
  PutFile("v.zip", ZipBytes().Add({.name = "1.wav", .content = "x", .checksumXor = 1}).Get());
  EXPECT_THAT(Refusal(), HasSubstr("It is damaged"));
}

/// Folders come from a person's own disk; the same is judged.
class VoiceInFolder : public ReadVoiceJudged {
 protected:
  void ReadIt(const VoiceLimits& limits = {}) {
    leftOut_ = ReadVoiceFolder("v", {.take = TakeInto(clips_), .limits = limits});
  }
};

TEST_F(VoiceInFolder, IsReadWithItsNames) {
  PutFile("v/Kim/300.WAV", "300");
  PutFile("v/Kim/exercise/Squat.wav", "squat");
  PutFile("v/Kim/.hidden/1.wav", "1");
  PutFile("v/notes.txt", "notes");
  ReadIt();
  EXPECT_THAT(clips_, ElementsAre(Pair("300.wav", "300"), Pair("exercise/Squat.WAV", "squat")));
  EXPECT_THAT(leftOut_, ElementsAre("notes.txt"));
}

TEST_F(VoiceInFolder, HasNoLinks) {
  PutFile("v/1.wav", "1");
  PutFile("secret", "secret");
  ASSERT_EQ(RunProgram("ln", {"-s", "../secret", "v/2.wav"}).status, 0);
  ASSERT_EQ(RunProgram("ln", {"-s", "/", "v/all"}).status, 0);
  ReadIt();
  EXPECT_THAT(clips_, ElementsAre(Pair("1.wav", "1")));
  EXPECT_THAT(leftOut_, ElementsAre("2.wav (a link or a device)", "all (a link or a device)"));
}

TEST_F(VoiceInFolder, HasLimits) {
  PutFile("v/1.wav", "12345");
  PutFile("v/2.wav", "12345");
  EXPECT_THAT(FailureOf([&] { ReadIt({.clip = 4}); }), HasSubstr("which is too large"));
  EXPECT_THAT(FailureOf([&] { ReadIt({.bytes = 9}); }), HasSubstr("Its clips are too large"));
  EXPECT_THAT(FailureOf([&] { ReadIt({.files = 1}); }), HasSubstr("It holds too many files"));
}

TEST_F(VoiceInFolder, IsRefusedWhenItCannotBeRead) {
  EXPECT_THAT(FailureOf([&] { ReadIt(); }), HasSubstr("could not be read"));
}

}  // namespace
}  // namespace repvolta
