#include <filesystem>
#include <gtest/gtest.h>

#include "app/ClipOrigins.h"
#include "base/FileError.h"

#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kNotes = "voices/origins.txt";
constexpr const char* kChecksum =
    "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";  // of "abc"

const ClipOrigin kSpoken{.owner = ClipOwner::kComputer,
                         .day = "2026-11-22",
                         .text = "Überkopf / drücken",
                         .voice = "German - espeak-ng",
                         .rate = -10};

std::span<const Byte> Abc() { return AsBytes("abc"); }

class ClipOriginsTest : public testing::Test {
 protected:
  static void Save(const ClipOrigins& origins) { PutFile(kNotes, origins.Encode()); }

  TemporaryFolder folder_;
};

TEST_F(ClipOriginsTest, AreReadAsTheyWereWritten) {
  ClipOrigins origins("");
  origins.Set("exercise/OHP.WAV", Abc(), kSpoken);
  origins.Set("300.wav", Abc(), {.owner = ClipOwner::kProgram});
  Save(origins);
  EXPECT_EQ(ClipOrigins("").Of("exercise/OHP.WAV", Abc()), kSpoken);
  EXPECT_EQ(ClipOrigins("").Of("300.wav", Abc()).owner, ClipOwner::kProgram);
  EXPECT_EQ(ClipOrigins("").Encode(), origins.Encode());
}

TEST_F(ClipOriginsTest, AreFoundWithoutRegardToCase) {
  ClipOrigins origins("");
  origins.Set("exercise/Überzug.WAV", Abc(), kSpoken);
  EXPECT_EQ(origins.Of("exercise/ÜBERZUG.wav", Abc()), kSpoken);
  origins.Set("exercise/ÜBERZUG.wav", Abc(), {.owner = ClipOwner::kOwn});
  EXPECT_EQ(origins.Of("exercise/Überzug.WAV", Abc()).owner, ClipOwner::kOwn);
}

TEST_F(ClipOriginsTest, CountOnlyForTheClipThatWasNoted) {
  ClipOrigins origins("");
  origins.Set("exercise/OHP.WAV", Abc(), kSpoken);
  EXPECT_EQ(origins.Of("exercise/OHP.WAV", AsBytes("abd")), ClipOrigin{});
}

TEST_F(ClipOriginsTest, WithoutANoteAreOwnForWordsAndUnknownForNames) {
  const ClipOrigins origins("");
  EXPECT_EQ(origins.Of("300.wav", Abc()).owner, ClipOwner::kOwn);
  EXPECT_EQ(origins.Of("exercise/OHP.WAV", Abc()).owner, ClipOwner::kUnknown);
}

TEST_F(ClipOriginsTest, WithoutANoteAreTheProgramsForWhatItBrought) {
  PutFile("brought.sha256", std::string(kChecksum) + "  voice/300.wav\n");
  const ClipOrigins origins("");
  EXPECT_EQ(origins.Of("300.wav", Abc()).owner, ClipOwner::kProgram);
  EXPECT_EQ(origins.Of("300.wav", AsBytes("abd")).owner, ClipOwner::kOwn);
}

TEST_F(ClipOriginsTest, IgnoreDamagedLinesAndKeepThem) {
  const std::string good = std::string("300.wav\t") + kChecksum + "\town\t\t0\t\t";
  const std::string damaged[] = {
      "300.wav",
      "300.wav\tabc\town\t\t0\t\t",
      "300.wav\t" + std::string(kChecksum) + "\tnobody\t\t0\t\t",
      "300.wav\t" + std::string(kChecksum) + "\town\t22.11.2026\t0\t\t",
      "300.wav\t" + std::string(kChecksum) + "\town\t\t11\t\t",
      "300.wav\t" + std::string(kChecksum) + "\town\t\tfast\t\t",
      "300.wav\t" + std::string(kChecksum) + "\town\t\t0\t\t\xFF",
      "../300.wav\t" + std::string(kChecksum) + "\town\t\t0\t\t",
      "exercise/\t" + std::string(kChecksum) + "\town\t\t0\t\t",
  };
  for (const std::string& line : damaged) {
    PutFile(kNotes, line + "\r\n" + good);
    const ClipOrigins origins("");
    EXPECT_EQ(origins.Of("300.wav", Abc()).owner, ClipOwner::kOwn) << line;
    EXPECT_NE(origins.Encode().find("\n" + line + "\n"), std::string::npos) << line;
  }
}

TEST_F(ClipOriginsTest, HaveNoFieldThatEndsItsLine) {
  ClipOrigins origins("");
  origins.Set("300.wav", Abc(), {.owner = ClipOwner::kComputer, .text = "three\thundred\n0"});
  Save(origins);
  EXPECT_EQ(ClipOrigins("").Of("300.wav", Abc()).text, "three hundred 0");
}

TEST_F(ClipOriginsTest, DoNotChangeWhenTheyAreReadAndWrittenAgain) {
  PutFile(kNotes, "odd\r\r\n");
  const std::string once = ClipOrigins("").Encode();
  PutFile(kNotes, once);
  EXPECT_EQ(ClipOrigins("").Encode(), once);
}

TEST_F(ClipOriginsTest, IgnoreWhatALaterVersionAddsToALine) {
  PutFile(kNotes, std::string("300.wav\t") + kChecksum + "\town\t\t0\t\tsaid\tmore\n");
  EXPECT_EQ(ClipOrigins("").Of("300.wav", Abc()).text, "said");
}

TEST_F(ClipOriginsTest, OfAnotherDirectoryAreAddedToThoseHere) {
  ClipOrigins here("");
  here.Set("exercise/OHP.WAV", Abc(), kSpoken);
  ClipOrigins there("");
  there.Set("exercise/ohp.WAV", AsBytes("other"), {.owner = ClipOwner::kOwn});
  there.Set("300.wav", Abc(), {.owner = ClipOwner::kProgram});
  here.AddNotesOf(there.Encode() + "odd\r\nodd\n");
  Save(here);
  const ClipOrigins both("");
  EXPECT_EQ(both.Of("exercise/OHP.WAV", Abc()), kSpoken);
  EXPECT_EQ(both.Of("exercise/OHP.WAV", AsBytes("other")).owner, ClipOwner::kOwn);
  EXPECT_EQ(both.Of("300.wav", Abc()).owner, ClipOwner::kProgram);
  EXPECT_TRUE(both.Encode().ends_with("\nodd\n"));
}

TEST_F(ClipOriginsTest, OfOtherContentsAreForgottenWhenTheClipChanges) {
  ClipOrigins origins("");
  origins.Set("300.wav", Abc(), kSpoken);
  origins.Set("300.wav", AsBytes("other"), {.owner = ClipOwner::kOwn});
  EXPECT_EQ(origins.Of("300.wav", Abc()).owner, ClipOwner::kOwn);
  EXPECT_EQ(origins.Of("300.wav", Abc()).text, "");
}

TEST_F(ClipOriginsTest, KnowWhatTheComputerSpokeLastAlsoWithoutItsClip) {
  ClipOrigins origins("");
  origins.Set("exercise/OHP.WAV", Abc(), kSpoken);
  EXPECT_EQ(origins.LastSpoken("exercise/ohp.wav"), kSpoken);
  EXPECT_EQ(origins.LastSpoken("exercise/RDL.WAV"), std::nullopt);
  origins.Set("exercise/OHP.WAV", Abc(), {.owner = ClipOwner::kOwn});
  EXPECT_EQ(origins.LastSpoken("exercise/OHP.WAV"), std::nullopt);
}

TEST_F(ClipOriginsTest, AreAnErrorWhenTheyCannotBeRead) {
  fs::create_directories(kNotes);
  EXPECT_THROW(ClipOrigins(""), FileError);
}

TEST_F(ClipOriginsTest, AreUnknownWhereAFaultIsMissedAndNeverWrittenThen) {
  PutFile("brought.sha256", std::string(kChecksum) + "  voice/300.wav\n");
  fs::create_directories(kNotes);
  const ClipOrigins origins("", UnreadNotes::kAreMissed);
  ASSERT_TRUE(origins.Fault());
  EXPECT_STREQ(origins.Fault()->what(), "voices/origins.txt could not be read: It is not a file");
  EXPECT_EQ(origins.Of("300.wav", Abc()).owner, ClipOwner::kProgram);
  EXPECT_EQ(origins.Of("300.wav", AsBytes("abd")).owner, ClipOwner::kUnknown);
  EXPECT_THROW(origins.Encode(), FileError);
}

TEST_F(ClipOriginsTest, AreNotedForAClipOfTheProgramDirectory) {
  PutFile("voice/exercise/OHP.WAV", "abc");
  NoteClipOrigin("exercise/OHP.WAV", kSpoken);
  EXPECT_EQ(ClipOrigins("").Of("exercise/OHP.WAV", Abc()), kSpoken);
}

TEST_F(ClipOriginsTest, ThatCannotBeNotedAreIgnored) {
  NoteClipOrigin("exercise/missing.WAV", kSpoken);
  PutFile("voice/exercise/OHP.WAV", "abc");
  fs::create_directories(kNotes);
  NoteClipOrigin("exercise/OHP.WAV", kSpoken);
  EXPECT_TRUE(fs::is_directory(kNotes));
}

}  // namespace
}  // namespace repvolta
