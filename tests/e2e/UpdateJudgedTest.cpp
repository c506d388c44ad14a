#include <cmath>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <taglib/mpegfile.h>
#include <taglib/tag.h>
#include <unistd.h>

#include "app/RecordFormat.h"
#include "sound/WavFormat.h"

#include "e2e/PortableProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::HasSubstr;

/// The output of an independent program; fails the test when the program fails.
std::string Judge(const std::string& program, const std::vector<std::string>& arguments) {
  const ProgramRun run = RunProgram(program, arguments);
  EXPECT_EQ(run.status, 0) << program << ": " << run.errors;
  return run.output;
}

double SecondsByFfprobe(const std::string& path) {
  return std::stod(Judge(
      "ffprobe", {"-v", "error", "-show_entries", "format=duration", "-of", "csv=p=0", path}));
}

/// The raw samples that a decoder gets from the file.
std::string Decoded(const std::string& path) { return Judge("mpg123", {"-q", "-s", path}); }

/// Two seconds of a tone as an MP3 file, encoded by the system's encoder with these options.
Bytes Tone(const std::vector<std::string>& options) {
  constexpr int kRate = 44100;
  Bytes samples;
  for (int i = 0; i < 2 * kRate; ++i) {
    const auto sample = static_cast<std::int16_t>(8000 * std::sin(i * 0.06));
    samples.push_back(static_cast<Byte>(sample));
    samples.push_back(static_cast<Byte>(sample >> 8));
  }
  Bytes wav = WavHeader({.rate = kRate, .bits = 16, .channels = 1},
                        static_cast<std::uint32_t>(samples.size()));
  wav.insert(wav.end(), samples.begin(), samples.end());
  PutFile("tone.wav", wav);
  std::vector<std::string> arguments = {"--silent", "-b", "128"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  arguments.insert(arguments.end(), {"tone.wav", "tone.mp3"});
  Judge("lame", arguments);
  return GetFile("tone.mp3");
}

class UpdateJudged : public PortableProgram {
 protected:
  void AddMusic(const std::string& name, const Bytes& content) {
    PutFile("music/" + name, content);
    if (state.NumberOfExercises == 0) AddExercise("Bench Press");
    ExerciseRecord* exercise = &state.Workout[state.NumberOfExercises - 1];
    if (exercise->NumberOfMusicFiles == MaxMusicFiles) exercise = &AddExercise("Squat");
    exercise->MusicFile[exercise->NumberOfMusicFiles++] = Full("music/" + name);
  }

  /// Runs the program in a new namespace, in which `mount` mounts a file system over the player.
  static ProgramRun UpdateOn(const std::string& mount) {
    return RunOnDevice("player", mount, {"program/repvolta-update"});
  }

  /// Runs it without root's rights to read and write everything.
  ProgramRun UpdateWithoutPrivileges() {
    if (geteuid() != 0) return Update();
    return RunProgram("setpriv",
                      {"--bounding-set=-all", "--inh-caps=-all", "program/repvolta-update"});
  }
};

TEST_F(UpdateJudged, TagsAreReadByAnotherProgram) {
  Begin("Monday");
  AddMusic("plain.mp3", Tone({}));
  AddMusic("tagged.mp3", Tone({"--add-id3v2", "--tt", "Old", "--ta", "Band", "--tl", "Record"}));
  AddMusic("old tag.mp3", Tone({"--id3v1-only", "--tt", "Old"}));
  ExerciseRecord& exercise = state.Workout[0];
  exercise.NumberOfSets = 1;
  exercise.SetValue1[0] = 50;
  exercise.SetValue2[0] = 10;
  SaveBegun();

  ASSERT_EQ(Update().status, 0);

  for (const char* name :
       {"RV001-Instructions.mp3", "RV002-plain.mp3", "RV003-tagged.mp3", "RV004-old tag.mp3"}) {
    TagLib::MPEG::File file((Full("player/Monday/") + name).c_str());
    ASSERT_TRUE(file.isValid()) << name;
    EXPECT_EQ(file.tag()->title().to8Bit(true),
              std::string(name, 6) + " Bench Press - 1 set, 50kg for 10reps");
    EXPECT_EQ(file.tag()->artist().to8Bit(true), "Repvolta") << name;
    EXPECT_EQ(file.tag()->album().to8Bit(true), "Monday.RPV") << name;
  }
}

TEST_F(UpdateJudged, MusicOfEveryKindSoundsAsBefore) {
  const Bytes plain = Tone({});
  Begin("Monday");
  AddMusic("plain.mp3", plain);
  AddMusic("garbage.mp3", Mp3Bytes().Garbage(1700).Raw(plain));
  AddMusic("v22.mp3", Mp3Bytes().Id3v2(Id3v2Bytes(2).Text("TT2", "Old").Syncsafe()).Raw(plain));
  AddMusic("v23.mp3", Mp3Bytes().Id3v2(Id3v2Bytes(3).Text("TIT2", "Old").Syncsafe()).Raw(plain));
  AddMusic("v24.mp3", Mp3Bytes().Id3v2(Id3v2Bytes(4).Text("TIT2", "Old").Syncsafe()).Raw(plain));
  AddMusic("picture.mp3",
           Mp3Bytes()
               .Id3v2(Id3v2Bytes(3).Frame("APIC", std::string(300 * 1024, 'p')).Syncsafe())
               .Raw(plain));
  AddMusic("v1.mp3", Mp3Bytes().Raw(plain).Id3v1("Old", 7));
  SaveBegun();

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0) << run.output;
  const std::string sound = Decoded("music/plain.mp3");
  ASSERT_GT(sound.size(), 100000U);
  for (const auto& entry : fs::directory_iterator("player/Monday")) {
    const std::string name = entry.path().filename();
    if (!name.ends_with(".mp3") || name.ends_with("-Instructions.mp3")) continue;
    EXPECT_EQ(Decoded(entry.path()), sound) << name;
    EXPECT_NEAR(SecondsByFfprobe(entry.path()), SecondsByFfprobe("music/plain.mp3"), 0.1) << name;
  }
}

TEST_F(UpdateJudged, MusicThatIsHardlyMusicIsCopiedAllTheSame) {
  Begin("Monday");
  for (const std::size_t size : {0U, 3U, 128U, 129U}) {
    AddMusic(std::to_string(size) + ".mp3", Bytes(size, 'x'));
  }
  AddMusic("no frame.mp3", Bytes(5000, 0));
  AddMusic("sync only.mp3", Bytes(5000, 0xFF));
  AddMusic("footer.mp3", Mp3Bytes().Frames(20).Footer(Id3v2Bytes(4, 0x10)));
  SaveBegun();

  const ProgramRun run = Update();

  EXPECT_EQ(run.status, 0) << run.output;
  for (const char* name : {"RV002-0", "RV003-3", "RV004-128", "RV005-129", "RV006-no frame",
                           "RV007-sync only", "RV008-footer"}) {
    TagLib::MPEG::File file((Full("player/Monday/") + name + ".mp3").c_str());
    EXPECT_EQ(file.tag()->artist().to8Bit(true), "Repvolta") << name;
  }
}

TEST_F(UpdateJudged, TheUsersMusicIsNotTouched) {
  Begin("Monday");
  AddMusic("tagged.mp3", Tone({"--add-id3v2", "--tt", "Old"}));
  SaveBegun();
  struct stat before{};
  ASSERT_EQ(stat("music/tagged.mp3", &before), 0);
  const Bytes content = GetFile("music/tagged.mp3");

  ASSERT_EQ(Update().status, 0);

  struct stat after{};
  ASSERT_EQ(stat("music/tagged.mp3", &after), 0);
  EXPECT_EQ(GetFile("music/tagged.mp3"), content);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  EXPECT_EQ(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);
  EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(UpdateJudged, TheInstructionIsTheSoundOfItsClips) {
  fs::remove("program/lame.exe");
  Begin("Monday");
  ExerciseRecord& exercise = AddExercise("Bench Press");
  exercise.NumberOfSets = 1;
  exercise.SetValue1[0] = 52.5F;
  exercise.SetValue2[0] = 10;
  SaveBegun();
  ASSERT_EQ(Update().status, 0);

  std::size_t samples = 0;
  for (const char* clip :
       {"exercise/Bench Press.WAV", "1.wav", "set.wav", "50.wav", "2.wav", "point.wav", "5.wav",
        "kilograms.wav", "for.wav", "10.wav", "reps.wav"}) {
    samples += (fs::file_size("program/voice/" + std::string(clip)) - 46) / 2;
  }
  const std::string wav = "player/Monday/RV001-Instructions.WAV";
  EXPECT_EQ(std::stoul(Judge("soxi", {"-r", wav})), 16000U);
  EXPECT_EQ(std::stoul(Judge("soxi", {"-b", wav})), 16U);
  EXPECT_EQ(std::stoul(Judge("soxi", {"-c", wav})), 1U);
  // The data size in the header is one byte short, so the last sample is not read.
  EXPECT_EQ(std::stoul(Judge("soxi", {"-s", wav})), samples - 1);
}

TEST_F(UpdateJudged, TheEncodedInstructionIsAsLongAsItsClips) {
  AddWorkout("Monday", "Bench Press");
  ASSERT_EQ(Update().status, 0);
  const double clips = static_cast<double>(fs::file_size("program/voice/exercise/Bench Press.WAV") +
                                           fs::file_size("program/voice/sets.wav") - 92) /
                       32000;
  const double seconds =
      static_cast<double>(Decoded("player/Monday/RV001-Instructions.mp3").size()) / 32000;
  EXPECT_NEAR(seconds, clips, 0.2);
}

TEST_F(UpdateJudged, AFullPlayerLosesNothingAndSaysSo) {
  Begin("Monday");
  AddMusic("big.mp3", SongBytes(100));
  SaveBegun();
  const Bytes workout = GetFile("program/workouts/Monday.RPV");

  const ProgramRun run = UpdateOn("size=200k");

  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(Lines(run.output),
              Contains("ERROR: big.mp3 could not be copied: No space left on device"));
  EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
  EXPECT_EQ(GetFile("program/workouts/Monday.RPV"), workout);
  EXPECT_EQ(GetFile("music/big.mp3"), SongBytes(100));
}

TEST_F(UpdateJudged, ATooSmallPlayerIsToldBeforeTheUpdate) {
  Begin("Monday");
  AddMusic("big.mp3", SongBytes(1000));
  SaveBegun();

  const ProgramRun run = UpdateOn("size=1500k");

  const std::vector<std::string> lines = Lines(run.output);
  ASSERT_GE(lines.size(), 2U);
  EXPECT_EQ(lines[0], "WARNING: Monday.RPV needs 5 MB, there is room for 1 MB.");
  EXPECT_EQ(lines[1], "Updating Workout Monday.RPV");
  EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
}

TEST_F(UpdateJudged, APlayerThatIsJustLargeEnoughIsNotTold) {
  Begin("Monday");
  AddMusic("big.mp3", SongBytes(1000));
  SaveBegun();
  const ProgramRun run = UpdateOn("size=4200k");
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_THAT(run.output, testing::Not(HasSubstr("WARNING")));
}

TEST_F(UpdateJudged, AReadOnlyPlayerLosesNothingAndSaysSo) {
  Begin("Monday");
  AddMusic("song.mp3", SongBytes(1));
  SaveBegun();

  const ProgramRun run = UpdateOn("ro");

  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.output, HasSubstr("Monday/ could not be created: Read-only file system"));
  EXPECT_EQ(LastLine(run.output), "UPDATE COMPLETE.");
}

TEST_F(UpdateJudged, MusicThatMayNotBeReadIsLeftOut) {
  Begin("Monday");
  AddMusic("secret.mp3", SongBytes(1));
  AddMusic("song.mp3", SongBytes(1));
  SaveBegun();
  fs::permissions("music/secret.mp3", fs::perms::none);

  const ProgramRun run = UpdateWithoutPrivileges();

  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(Lines(run.output),
              Contains("ERROR: secret.mp3 could not be copied: Permission denied"));
  EXPECT_TRUE(fs::exists("player/Monday/RV002-song.mp3"));
}

TEST_F(UpdateJudged, ReadOnlyMusicBecomesAWritableCopy) {
  Begin("Monday");
  AddMusic("song.mp3", SongBytes(1));
  SaveBegun();
  fs::permissions("music/song.mp3", fs::perms::owner_read);

  EXPECT_EQ(UpdateWithoutPrivileges().status, 0);

  fs::permissions("player/Monday", fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(UpdateWithoutPrivileges().status, 0);
}

}  // namespace
}  // namespace repvolta
