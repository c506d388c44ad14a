#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "backup/WriteBackup.h"

#include "support/BackedUp.h"
#include "support/FailureOf.h"
#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"
#include "support/WavBytes.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

/// What an independent program for ZIP files prints; fails the test when it fails.
std::string Python(const std::string& script) {
  const ProgramRun run = RunProgram("python3", {"-c", "import zipfile, tarfile, io\n" + script});
  EXPECT_EQ(run.status, 0) << run.errors;
  return run.output;
}

constexpr const char* kMakeManifest =
    "z.writestr('repvolta-backup.txt', 'Repvolta backup\\nformat=1\\n')\n";

class BackupJudged : public testing::Test {
 protected:
  TemporaryFolder folder_;
};

TEST_F(BackupJudged, IsReadByAnotherProgram) {
  PutFile("workouts/Läufe 走.RPV", "run");
  PutFile("voice/sets.wav", WavBytes().Format(1, 16000, 16).Samples16({1}));
  WriteBackup("b.zip", {});
  EXPECT_EQ(Python("z = zipfile.ZipFile('b.zip')\n"
                   "assert z.testzip() is None\n"
                   "for i in z.infolist(): print(i.filename, i.file_size, i.compress_type)\n"
                   "assert z.read('workouts/Läufe 走.RPV') == b'run'\n"),
            "repvolta-backup.txt 57 8\nworkouts/Läufe 走.RPV 3 8\nvoice/sets.wav 46 0\n");
}

TEST_F(BackupJudged, MayComeFromAnotherProgram) {
  Python(std::string("z = zipfile.ZipFile('b.zip', 'w', zipfile.ZIP_DEFLATED)\n") + kMakeManifest +
         "z.writestr('workouts/', '')\n"
         "z.writestr('workouts/Läufe.RPV', 'run' * 1000)\n"
         "with z.open('settings.dat', 'w', force_zip64=True) as f: f.write(b'zip64')\n"
         "z.comment = b'mine'\nz.close()\n");
  EXPECT_EQ(FilesIn("b.zip").at("settings.dat"), "zip64");
  EXPECT_EQ(FilesIn("b.zip").at("workouts/Läufe.RPV").size(), 3000U);
}

TEST_F(BackupJudged, IsNoOtherKindOfArchive) {
  Python(
      "z = tarfile.open('b.zip', 'w')\n"
      "z.addfile(tarfile.TarInfo('repvolta-backup.txt'), io.BytesIO())\nz.close()\n");
  EXPECT_THAT(FailureOf([] { const BackupReader reader("b.zip"); }),
              HasSubstr("It is no ZIP file"));
}

TEST_F(BackupJudged, HasNoOtherCompression) {
  Python(std::string("for method in zipfile.ZIP_LZMA, zipfile.ZIP_BZIP2:\n"
                     "  z = zipfile.ZipFile(f'{method}.zip', 'w', method)\n  ") +
         kMakeManifest + "  z.close()\n");
  for (const char* backup : {"14.zip", "12.zip"}) {
    EXPECT_THAT(FailureOf([&] { const BackupReader reader(backup); }),
                HasSubstr("compressed in a way that Repvolta does not know"));
  }
}

}  // namespace
}  // namespace repvolta
