#include <filesystem>
#include <fstream>
#include <iostream>

#include "app/RecordFormat.h"
#include "backup/BackupContents.h"
#include "backup/ZipWriter.h"

#include "support/ClipBytes.h"
#include "support/Mp3Bytes.h"
#include "support/WavBytes.h"
#include "support/ZipBytes.h"

// Writes the first inputs of the targets.

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

/// Writes numbered files into the folder of a target.
class Seeds {
 public:
  Seeds(const fs::path& root, std::string_view target) : folder_(root / target) {
    fs::create_directories(folder_);
  }

  Seeds& Add(std::span<const Byte> bytes) {
    std::ofstream file(folder_ / ("seed" + std::to_string(++count_)), std::ios::binary);
    file << AsText(bytes);
    if (!file.flush()) throw std::runtime_error("a seed could not be written");
    return *this;
  }
  Seeds& Add(std::string_view text) { return Add(AsBytes(text)); }
  Seeds& Add(std::string_view before, std::span<const Byte> bytes) {
    return Add(std::string(before) + AsText(bytes));
  }

 private:
  fs::path folder_;
  int count_ = 0;
};

Id3v2Bytes SmallTag(Byte version) {
  if (version == 2) return Id3v2Bytes(2).Text("TT2", "Title").Text("COM", "x").Text("XYZ", "y");
  return Id3v2Bytes(version)
      .Text("TIT2", "Title")
      .Text("COMM", "Comment")
      .Text("TCON", "(17)")
      .Text("WXXX", std::string(1, '\0') + "https://a.example/")
      .Padding(20);
}

/// Short MP3 files that together have everything that the program reads.
std::vector<Bytes> Mp3Files() {
  const Id3v2Bytes footed = Id3v2Bytes(4, 0x10).Syncsafe().Text("TIT2", "Title");
  std::vector<Bytes> files{
      Mp3Bytes().Frame({}, 60),
      Mp3Bytes().Garbage(3).Frame({.version = 2}, 60).Frame({}, 60),
      Mp3Bytes().Id3v2(SmallTag(3).Syncsafe()).Frame({}, 60).Xing(1, 2).Id3v1("Title", 7),
      Mp3Bytes().Id3v2(SmallTag(3)).Garbage(4).Frame({.layer = 3}, 60),
      Mp3Bytes().Id3v2(SmallTag(2)).Frame({.bitRate = 1}, 400),
      Mp3Bytes().Id3v2(SmallTag(4).ClaimSize(0x80000001)).Frame({}, 60),
      Mp3Bytes().Id3v2(SmallTag(4).ClaimSize(3000)).Frame({.version = 0, .layer = 2}, 400),
      Mp3Bytes()
          .Garbage(5)
          .Id3v2(SmallTag(3))
          .Frame({}, 60)
          .Id3v2(footed)
          .Footer(footed)
          .Id3v1("x"),
      Mp3Bytes().Frame({}, 60).Xing(0, 0).Raw("ID3"sv),
      Mp3Bytes().Frame({}, 60).Xing(1, 0xFFFFFFF0),
      Mp3Bytes().Frame({}, 60).Id3v1("Title"),
      Mp3Bytes().Zeros(10)};
  files.push_back(Mp3Bytes().Id3v2(footed).Raw(footed.Build("3DI")).Frame({.bitRate = 14}, 200));
  return files;
}

void AddMp3Seeds(const fs::path& root) {
  Seeds header(root, "mp3_header");
  Seeds read(root, "id3v2_read");
  Seeds write(root, "id3v2_write");
  Seeds cut(root, "cut_leading");
  for (const Bytes& file : Mp3Files()) {
    header.Add(file);
    read.Add(file);
    cut.Add(file);
    write.Add("\x05Title"sv, file);
  }
  // A large tag and a short song: its average bit rate is 0 as soon as the tag is cut off.
  cut.Add(Mp3Bytes()
              .Id3v2(Id3v2Bytes(3).Syncsafe().Text("TIT2", "T").Padding(3000))
              .Frame({}, 60)
              .Xing(1, 100));
  write.Add("\xFF" + std::string(255, 'T'), Mp3Bytes().Id3v2(SmallTag(3)).Frame({}, 60));
}

void AddSoundSeeds(const fs::path& root) {
  const std::string clip = AsText(ClipBytes(Bytes(9, 's')));
  const std::string other = AsText(ClipBytes(Bytes(4, 'o')));
  const std::string split(1, static_cast<char>(clip.size()));
  const std::string none(1, '\0');
  Seeds(root, "clip_join")
      .Add(none + none + split + clip + other)
      .Add("\1" + none + split + clip + other)
      .Add("\2" + none + split + clip + other)
      .Add(none + none + "\12" + clip);
  Seeds(root, "wav_reader")
      .Add(WavBytes().Format(1, 16000, 16).Samples16({0, 16384, -32768}))
      .Add(WavBytes().Chunk("LIST", "abc").Format(2, 8000, 8).Chunk("data", "\x80\xC0\x00\x10"sv))
      .Add(WavBytes().Format(1, 8000, 24).Chunk("data", "\0\0\x40\0\0\x80"sv))
      .Add(WavBytes().Format(1, 8000, 64, 3).Chunk("data", "\0\0\0\0\0\0\xE0\xBF"sv))
      .Add(WavBytes().Format(1, 8000, 32, 3).Chunk("data", "\0\0\0\x3F\0\0\xC0\x7F"sv))
      .Add(WavBytes().ExtensibleFormat(1, 8000, 32).Chunk("data", "\0\0\0\xC0"sv))
      .Add(clip);
}

void AddRecordSeeds(const fs::path& root) {
  ExerciseSlots workout;
  workout[0].ExerciseName = "Développé";
  workout[0].MusicFile[0] = "/music/走れ.mp3";
  workout[0].MusicFile[1] = "/music/Ã©.mp3";
  workout[0].NumberOfSets = 1;
  workout[0].SetValue1[0] = 62.5F;
  workout[0].NextUpdate1[0] = 39166;
  workout[1].ExerciseName = " Squats ";
  const Bytes file = EncodeWorkout(workout);
  Seeds(root, "workout_file")
      .Add(std::span(file).first(kExerciseRecordSize))
      .Add(std::span(file).first(2 * kExerciseRecordSize))
      .Add(std::span(file).first(300));
  SettingsRecord settings;
  settings.MusicPath = "/music/Café";
  settings.OutputPath = "/player";
  settings.AudioFormat = "14";
  const Bytes saved = EncodeSettings(settings);
  Seeds(root, "settings_file").Add(saved).Add(std::span(saved).first(540)).Add("");
}

void AddTextSeeds(const fs::path& root) {
  Seeds(root, "music_list")
      .Add(
          "\0\0\x40\0\x80\0\xF0\0\x05\x10"
          "10.mp3\n20.mp3\r\n 10.mp3 \n\nno.mp3"sv)
      .Add("\0\0\x40\0\x80\0\xF0\0\x0C\x20\x01\x01\x01\x01\r\n20.mp3\n\x01"sv);
  Seeds(root, "music_listing")
      .Add("a.mp3\0b.MP3\0c.txt\0=folder\0d.mp3\0=\r\0e.mp3"sv)
      .Add("x\ny.mp3\0.mp3\0=.mp3\0\xFF.mp3\0-o.mp3\0$(a).mP3"sv);
  Seeds numbers(root, "numbers");
  for (const auto text : {"12abc"sv, " -62.5 "sv, "+.5e-3x"sv, "1e400"sv, "0.00012e5"sv, "1e"sv,
                          "0x10"sv, "nan"sv, "\x42\x7A\0\0\x01\x40"sv}) {
    numbers.Add(text);
  }
  Seeds(root, "code_page")
      .Add(
          "\x09"
          "D\xC3\xA9velopp\xC3\xA9"sv)
      .Add("\x05\xE8\xB5\xB0\xE3\x82\x8B"sv)
      .Add("\x10\x81\x8D\x80\xFF caf\xE9  "sv)
      .Add("\x04\xC3\x83\xC2\xA9\xF0\x9F\x8E\xB5"sv);
  Seeds(root, "clip_lists")
      .Add("# comment\n300 three hundred\r\nand and\n\nlevel  level\n"sv)
      .Add("Bench Press\nD\xE9velopp\xE9\n../up\n.\n"sv);
}

/// A backup as the program writes it.
std::string WrittenBackup() {
  std::string file;
  ZipWriter zip([&](std::span<const Byte> bytes) { file += AsText(bytes); });
  zip.Add({kBackupManifest, 0}, AsBytes("Repvolta backup\nformat=1\n"),
          ZipWriter::Packing::kDeflated);
  zip.Add({"workouts/L\xC3\xA4ufe.RPV", 0}, Bytes(3000), ZipWriter::Packing::kDeflated);
  zip.Finish();
  return file;
}

void AddBackupSeeds(const fs::path& root) {
  const ZipItem manifest = {kBackupManifest, "Repvolta backup\nformat=1\nhome=/h\n"};
  const auto with = [&](const ZipItem& item) { return ZipBytes().Add(manifest).Add(item).Get(); };
  Seeds(root, "backup_reader")
      .Add(WrittenBackup())
      .Add(with({"versions/A/2026-11-22 05.32.06 before update.RPV", "x"}))
      .Add(with({"voice/exercise/a.WAV", AsText(ClipBytes(Bytes(9, 's')))}))
      .Add(with({"../settings.dat", "x"}))
      .Add(with({"settings.dat", "/etc/passwd", 0120777}))
      .Add(with({.name = "exercise/a.lst", .content = "0123456789ab", .flags = 0x801}))
      .Add(with({.name = "options.conf", .content = "x", .method = 14}))
      .Add(with({"voices/origins.txt", "300.wav\t0\town\t\t0\t\t\n"}))
      .Add(with({"voices/K/exercise/a.WAV", AsText(ClipBytes(Bytes(9, 's')))}))
      .Add(with({"voices/level.txt", "level\t-12.00\n0\t-18.00\tas-made\t300.wav\n"}))
      .Add(with({"voices/.originals/1.wav", AsText(ClipBytes(Bytes(9, 's')))}))
      .Add(with({"voices/.taken in/1.wav", AsText(ClipBytes(Bytes(9, 's')))}))
      .Add(ZipBytes().Add({kBackupManifest, "Repvolta backup\nformat=3\n"}).Get())
      .Add(with({"workouts/", "", 040755}));
}

void AddVoiceSeeds(const fs::path& root) {
  const std::string sum = "f5c9477a85fc9f46f91f1e3e3b30aa270b06020ba7497d3c5338ac111d35fa05";
  Seeds(root, "voice_files")
      .Add("# Whose the clips are\nexercise/A.WAV\t" + sum +
           "\tcomputer\t2026-11-22\t-2\tflite\tA\r\n300.wav\t" + sum +
           "\town\t\t0\t\t\tmore\nodd\n")
      .Add("level\t-12.00\n" + sum + "\t-18.00\tas-made\texercise/A.WAV\n" + sum +
           "\t-11.98\traised\t300.wav\n" + sum + "\t1\traised\t../../x\n")
      .Add("-9.02\t1000:1.2\t/music/a\tb.mp3\n-9.00\t1:2.3\tsong.mp3\n1e300\tx\ty\n");
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: fuzz_seeds FOLDER\n";
    return 2;
  }
  repvolta::AddMp3Seeds(argv[1]);
  repvolta::AddSoundSeeds(argv[1]);
  repvolta::AddRecordSeeds(argv[1]);
  repvolta::AddTextSeeds(argv[1]);
  repvolta::AddBackupSeeds(argv[1]);
  repvolta::AddVoiceSeeds(argv[1]);
}
