#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "backup/BackupReader.h"
#include "backup/ZipWriter.h"

#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"
#include "support/WavBytes.h"
#include "support/ZipBytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

const ZipItem kManifest = {kBackupManifest, "Repvolta backup\nformat=1\nprogram=1.0\n"};

/// Some file systems wait for the disk when a file is written over.
void PutNew(const std::string& path, std::span<const Byte> content) {
  std::filesystem::remove(path);
  PutFile(path, content);
}

/// What is wrong with a file that holds these bytes.
std::string WhyNot(std::span<const Byte> file, BackupLimits limits = {}) {
  PutNew("x.zip", file);
  return FailureOf([&] { const BackupReader reader("x.zip", {}, limits); });
}

/// What is wrong with a backup that also has this entry.
std::string WhyNotWith(const ZipItem& item) {
  return WhyNot(ZipBytes().Add(kManifest).Add(item).Get());
}

class BackupReaderTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(BackupReaderTest, UnpacksWhatItLists) {
  PutFile("x.zip", ZipBytes()
                       .Add(kManifest)
                       .Add({"workouts/", "", 040755})
                       .Add({"workouts/Läufe.RPV", "run"})
                       .Add({"exercise/Arms.lst", "Curl\n"})
                       .Get());
  const BackupReader reader("x.zip");
  EXPECT_EQ(reader.Origin().version, "1.0");
  std::map<std::string, std::string> files;
  reader.ForEachFile([&](const BackupEntry& entry, std::span<const Byte> content) {
    files[entry.path] = AsText(content);
    EXPECT_EQ(entry.size, content.size());
  });
  EXPECT_EQ(files, (std::map<std::string, std::string>{{"workouts/Läufe.RPV", "run"},
                                                       {"exercise/Arms.lst", "Curl\n"}}));
  ASSERT_EQ(reader.Entries().size(), 2U);
  EXPECT_EQ(reader.Entries()[0].kind, BackupKind::kWorkout);
  EXPECT_EQ(reader.Entries()[1].path, "exercise/Arms.lst");
}

TEST_F(BackupReaderTest, FindsTheManifestAnywhere) {
  PutFile("x.zip", ZipBytes().Add({"settings.dat", "s"}).Add(kManifest).Get());
  EXPECT_EQ(BackupReader("x.zip").Entries().size(), 1U);
}

TEST_F(BackupReaderTest, TellsHowFarItIs) {
  PutFile("x.zip", ZipBytes().Add(kManifest).Add({"settings.dat", "s"}).Get());
  std::vector<std::size_t> done;
  const BackupReader reader("x.zip", [&](std::size_t now, std::size_t all) {
    EXPECT_EQ(all, 2U);
    done.push_back(now);
  });
  EXPECT_THAT(done, ElementsAre(1, 2));
}

TEST_F(BackupReaderTest, RefusesPathsThatLeadElsewhere) {
  for (const char* path : {"../settings.dat", "/settings.dat", "workouts/../../x.RPV", "x.exe",
                           "workouts\\..\\x.RPV", "voice/a/b.wav"}) {
    EXPECT_THAT(WhyNotWith({path, "x"}), HasSubstr("which is no file of Repvolta's")) << path;
  }
}

TEST_F(BackupReaderTest, RefusesNamesThatAreNotUtf8) {
  const ZipItem item = {.name = "workouts/M\xFCnchen.RPV", .content = "x"};
  EXPECT_THAT(WhyNotWith(item), EndsWith("It is damaged"));
  EXPECT_THAT(WhyNotWith({.name = item.name, .content = "x", .flags = 0}),
              HasSubstr("which is no file of Repvolta's"));
}

TEST_F(BackupReaderTest, NamesWhatItRefuses) {
  EXPECT_EQ(WhyNotWith({"../.bashrc", "x"}),
            "x.zip is no backup that can be restored: It holds \"../.bashrc\", which is no file of "
            "Repvolta's");
}

TEST_F(BackupReaderTest, RefusesLinksAndDevices) {
  for (const std::uint32_t mode : {0120777U, 0020644U, 0060644U, 0140644U}) {
    EXPECT_THAT(WhyNotWith({"workouts/a.RPV", "/etc/passwd", mode}),
                HasSubstr("which is a link or a device"))
        << mode;
  }
}

TEST_F(BackupReaderTest, RefusesFoldersThatAreNotOurs) {
  for (const char* path : {"../", "/tmp/", "other/", "workouts/deep/"}) {
    EXPECT_THAT(WhyNotWith({path, "", 040755}), HasSubstr("which is no folder")) << path;
  }
}

TEST_F(BackupReaderTest, RefusesNamesThatDifferOnlyInCase) {
  for (const char* path : {"workouts/a.RPV", "workouts/A.RPV"}) {
    EXPECT_THAT(
        WhyNot(ZipBytes().Add(kManifest).Add({"workouts/a.RPV", "1"}).Add({path, "2"}).Get()),
        EndsWith("\"" + std::string(path) + "\", and more than once"));
  }
  EXPECT_THAT(WhyNot(ZipBytes().Add(kManifest).Add(kManifest).Get()), EndsWith("more than once"));
}

TEST_F(BackupReaderTest, RefusesAWrongChecksumOrSize) {
  EXPECT_THAT(WhyNotWith({.name = "settings.dat", .content = "abc", .checksumXor = 1}),
              EndsWith("It is damaged"));
  EXPECT_THAT(WhyNotWith({.name = "settings.dat", .content = "abc", .claimed = 1}),
              EndsWith("It is damaged"));
}

TEST_F(BackupReaderTest, RefusesEncryptedFiles) {
  EXPECT_THAT(WhyNotWith({.name = "settings.dat", .content = "abcdefghijklmnop", .flags = 0x801}),
              EndsWith("which is encrypted"));
}

TEST_F(BackupReaderTest, RefusesUnusualCompression) {
  for (const std::uint16_t method : {std::uint16_t{14}, std::uint16_t{93}, std::uint16_t{98}}) {
    EXPECT_THAT(WhyNotWith({.name = "settings.dat", .content = "abc", .method = method}),
                EndsWith("compressed in a way that Repvolta does not know"));
  }
}

TEST_F(BackupReaderTest, RefusesWhatIsNoBackup) {
  EXPECT_THAT(WhyNot(AsBytes("")), EndsWith("It is no ZIP file, or its end is missing"));
  EXPECT_THAT(WhyNot(AsBytes("7z\xBC\xAF\x27\x1C")), HasSubstr("It is no ZIP file"));
  EXPECT_THAT(WhyNot(ZipBytes().Get()), HasSubstr("It is no ZIP file"));
  EXPECT_THAT(WhyNot(ZipBytes().Add({"settings.dat", "x"}).Get()),
              EndsWith("Repvolta did not make it"));
}

TEST_F(BackupReaderTest, SaysThatANewerProgramMadeIt) {
  EXPECT_EQ(WhyNot(ZipBytes()
                       .Add({"future/thing", "x"})
                       .Add({kBackupManifest, "Repvolta backup\nformat=3\nprogram=7.5\n"})
                       .Get()),
            "x.zip is no backup that can be restored: A newer Repvolta made it (version 7.5)");
}

TEST_F(BackupReaderTest, RefusesContentsThatCannotBeTheirs) {
  EXPECT_THAT(WhyNotWith({"voice/a.wav", "no sound"}),
              EndsWith("\"voice/a.wav\" in it: It is no WAV file"));
  EXPECT_THAT(WhyNotWith({"musiclist.txt", std::string("a\0", 2)}), EndsWith("It is no text"));
}

/// A ZIP file of a manifest and workouts of zeros, each of `size` bytes.
void PutZeros(const std::string& path, std::size_t size, int count) {
  std::string file;
  ZipWriter zip([&](std::span<const Byte> bytes) { file += AsText(bytes); });
  zip.Add({kBackupManifest, 0}, AsBytes(kManifest.content), ZipWriter::Packing::kDeflated);
  const Bytes zeros(size);
  for (int i = 0; i < count; ++i) {
    zip.Add({"workouts/" + std::to_string(i) + ".RPV", 0}, zeros, ZipWriter::Packing::kDeflated);
  }
  zip.Finish();
  PutFile(path, AsBytes(file));
}

TEST_F(BackupReaderTest, RefusesAFileThatUnpacksToTooMuch) {
  PutZeros("x.zip", LargestInBackup(BackupKind::kWorkout) + 1, 1);
  EXPECT_LT(std::filesystem::file_size("x.zip"), 10'000U);
  EXPECT_THAT(FailureOf([] { const BackupReader reader("x.zip"); }),
              EndsWith("\"workouts/0.RPV\", which is too large"));
}

TEST_F(BackupReaderTest, RefusesFilesThatTogetherUnpackToTooMuch) {
  PutZeros("x.zip", 50'000, 4);
  EXPECT_THAT(FailureOf([] { const BackupReader reader("x.zip", {}, {.bytes = 200'000}); }),
              EndsWith("It holds too much"));
  EXPECT_EQ(BackupReader("x.zip", {}, {.bytes = 201'000}).Entries().size(), 4U);
}

TEST_F(BackupReaderTest, RefusesTooManyFiles) {
  PutZeros("x.zip", 1, 4);
  EXPECT_THAT(FailureOf([] { const BackupReader reader("x.zip", {}, {.entries = 4}); }),
              EndsWith("It holds too many files"));
  EXPECT_EQ(BackupReader("x.zip", {}, {.entries = 5}).Entries().size(), 4U);
}

TEST_F(BackupReaderTest, RefusesADirectoryThatIsTooLong) {
  ZipBytes zip;
  zip.Add(kManifest);
  const std::string name = std::string(60'000, 'x');
  for (int i = 0; i < 300; ++i) zip.Add({name, ""});
  EXPECT_THAT(WhyNot(zip.Get()), EndsWith("It holds too many files"));
}

TEST_F(BackupReaderTest, RefusesABackupThatIsCutOffAnywhere) {
  ZipBytes zip;
  zip.Add(kManifest);
  for (int i = 0; i < 8; ++i) {
    zip.Add({"workouts/" + std::to_string(i) + ".RPV", std::string(3000, 'x')});
  }
  const Bytes file = zip.Get();
  for (std::size_t size = 0; size < file.size(); size += 1024) {
    EXPECT_NE(WhyNot(std::span(file).first(size)), "") << size;
  }
  EXPECT_NE(WhyNot(std::span(file).first(file.size() - 1)), "");
}

TEST_F(BackupReaderTest, NeverGivesADamagedFile) {
  const Bytes file = ZipBytes().Add(kManifest).Add({"workouts/a.RPV", std::string(300, 'x')}).Get();
  for (std::size_t i = 0; i < file.size(); ++i) {
    Bytes damaged = file;
    damaged[i] ^= 0x10;
    PutNew("x.zip", damaged);
    static_cast<void>(FailureOf([&] {
      BackupReader("x.zip").ForEachFile([&](const BackupEntry&, std::span<const Byte> content) {
        EXPECT_EQ(AsText(content), std::string(300, 'x')) << i;
      });
    }));
  }
}

TEST_F(BackupReaderTest, RefusesABackupThatWasChangedMeanwhile) {
  PutFile("x.zip", ZipBytes().Add(kManifest).Add({"settings.dat", "1"}).Get());
  const BackupReader reader("x.zip");
  PutFile("x.zip", ZipBytes().Add(kManifest).Add({"settings.dat", "12"}).Get());
  EXPECT_THAT(FailureOf([&] { reader.ForEachFile([](const auto&, auto) {}); }),
              EndsWith("Another program has changed it"));
}

TEST_F(BackupReaderTest, PassesOnWhatItsUserThrows) {
  PutFile("x.zip", ZipBytes().Add(kManifest).Add({"settings.dat", "1"}).Get());
  const BackupReader reader("x.zip");
  EXPECT_THROW(reader.ForEachFile([](const auto&, auto) { throw 7; }), int);
}

TEST_F(BackupReaderTest, ReadsNamesInEveryLocale) {
  PutFile("x.zip", ZipBytes().Add(kManifest).Add({"workouts/走る.RPV", "1"}).Get());
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "C");
  EXPECT_EQ(BackupReader("x.zip").Entries().at(0).path, "workouts/走る.RPV");
  std::setlocale(LC_ALL, before.c_str());
}

TEST_F(BackupReaderTest, SaysThatThereIsNoFile) {
  EXPECT_EQ(FailureOf([] { const BackupReader reader("x.zip"); }),
            "x.zip could not be read: No such file or directory");
}

}  // namespace
}  // namespace repvolta
