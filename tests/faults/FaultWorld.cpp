#include "faults/FaultWorld.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

#include "app/RecordFormat.h"
#include "app/Settings.h"
#include "app/WorkoutFiles.h"

#include "support/ClipBytes.h"
#include "support/Mp3Bytes.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSpokenClip = "program/voice/exercise/Spoken.WAV";
constexpr const char* kOrigins = "program/voices/origins.txt";

/// A speech engine that says the same for every text.
constexpr const char* kEngine =
    "#!/bin/sh\n"
    "[ \"$1\" = -lv ] && exec echo rms\n"
    "for target; do :; done\n"
    "exec cp voice/set.wav \"$target\"\n";

constexpr const char* kClips[] = {"1",   "set",  "sets", "5",         "10",    "point",
                                  "for", "reps", "50",   "kilograms", "pounds"};

Entry LookAt(const fs::path& path) {
  struct stat status{};
  lstat(path.c_str(), &status);
  Entry entry{.content = {},
              .changed = status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec,
              .number = status.st_ino,
              .mode = status.st_mode};
  if (S_ISREG(status.st_mode)) entry.content = GetTextFile(path);
  if (S_ISLNK(status.st_mode)) entry.content = fs::read_symlink(path).string();
  // A folder's time changes with its entries, which are compared themselves.
  if (S_ISDIR(status.st_mode)) entry.changed = 0;
  return entry;
}

/// The workout without the fields that growth, the drawing of music and the day decide.
Bytes WithoutGrowth(const Bytes& file) {
  ExerciseSlots workout = DecodeWorkout(file);
  ExerciseRecord& drawn = workout[0];
  drawn.NextUpdate1[0] = 0;
  drawn.NumberOfMusicFiles = 0;
  drawn.TotalMusicTime = 0;
  for (int i = 0; i < MaxMusicFiles; ++i) {
    drawn.MusicFile[i] = {};
    drawn.MusicFilePlayTime[i] = 0;
  }
  return EncodeWorkout(workout);
}

bool IsBelow(const std::string& path, const std::string& folder) {
  return path == folder || path.starts_with(folder + "/");
}

bool IsVersion(const std::string& path) { return IsBelow(path, "program/versions"); }

}  // namespace

Entries Look(const std::string& root) {
  Entries entries;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    // Not fs::relative, which follows links.
    entries[entry.path().lexically_relative(root)] = LookAt(entry.path());
  }
  return entries;
}

std::string Fault::Text() const {
  return group + ":" + std::to_string(number) + (allBehind ? "+" : "") + ":" + failure;
}

bool IsSlow() {
#ifdef __SANITIZE_ADDRESS__
  return true;
#else
  return std::getenv("REPVOLTA_SLOW") != nullptr;
#endif
}

bool IsLongRun() { return std::getenv("REPVOLTA_LONG") != nullptr; }

int PointStep(int shortStep) {
  if (IsLongRun()) return 1;
  // 7 has no common divisor with the number of failures, which take turns.
  return IsSlow() ? 7 * shortStep : shortStep;
}

FaultWorld::FaultWorld() {
  PutFile("precious/diary.txt", "mine");
  // Long enough that the kernel copies it.
  PutFile("music/song.mp3",
          Mp3Bytes().Id3v2(Id3v2Bytes(3).Text("TIT2", "Old").Syncsafe()).Frames(400));
  PutFile("music/drawn.mp3", Mp3Bytes().Frames(3));
  fs::create_directory("player");
  fs::create_directory("tmp");
  BuildProgram();
  BuildWorkouts();
  before_ = Look(".");
}

void FaultWorld::BuildProgram() {
  for (const char* clip : kClips) {
    PutFile(std::string("program/voice/") + clip + ".wav", ClipBytes(Bytes(40, 's')));
  }
  for (const char* name : {"Squat", "Run"}) {
    PutFile(std::string("program/voice/exercise/") + name + ".WAV", ClipBytes(Bytes(40, 'n')));
  }
  fs::copy_file(REPVOLTA_BIN "/repvolta-update", "program/repvolta-update");
  fs::copy_file(ProgramBeside("fake_encoder"), "program/lame.exe");
  PutFile("program/update.lock", "");
  PutFile("bin/flite", kEngine);
  // It has no voices, so that it does not speak when the other engine fails.
  PutFile("bin/espeak-ng", "#!/bin/sh\nexit 1\n");
  for (const char* engine : {"bin/flite", "bin/espeak-ng"}) {
    fs::permissions(engine, fs::perms(0755));
  }
  // Only the tools that the tests' scripts use: the system's folder also has speech engines.
  for (const char* tool : {"cp", "echo", "head", "ln", "ls", "mkdir", "rm", "sleep", "touch"}) {
    fs::create_symlink(std::string("/bin/") + tool, std::string("bin/") + tool);
  }
  state.ProgramDirectory = Full("program/");
  state.Settings.MusicPath = Full("music");
  state.Settings.OutputPath = Full("player");
  state.Settings.IncludeWeightValues = kTrue;
  SaveSettings(state);
  PutFile("musiclist.txt", Full("music/drawn.mp3") + "\n");
}

void FaultWorld::BuildWorkouts() {
  state.WorkoutFileName = "Tuesday.RPV";
  state.Workout[0].ExerciseName = "Run";
  SaveWorkout(state);
  state.WorkoutFileName = "Monday.RPV";
  ExerciseRecord& grows = state.Workout[0];
  grows.ExerciseName = "Squat";
  grows.NumberOfSets = 1;
  grows.SetValue1[0] = 50;
  grows.SetValue2[0] = 5;
  grows.SetIncrement1[0] = 5;
  grows.SetFrequency1[0] = 1;
  grows.RandomMusic = kTrue;
  ExerciseRecord& plays = state.Workout[1];
  plays.ExerciseName = "Run";
  plays.NumberOfMusicFiles = 1;
  plays.MusicFile[0] = Full("music/song.mp3");
  SaveWorkout(state);
  oldWorkout = GetFile("workouts/Monday.RPV");
  fs::current_path(folder.Path());
}

void FaultWorld::MakeMondaySpeak() {
  state.Workout[0].ExerciseName = "Spoken";
  ReplaceWorkoutFile(state);
  SaveWorkout(state);
  fs::current_path(folder.Path());
  oldWorkout = GetFile("program/workouts/Monday.RPV");
}

void FaultWorld::Reset() {
  fs::remove(kSpokenClip);
  fs::remove_all("program/voices");
  fs::remove_all("player");
  // The folder of an older update, with links to "precious" that somebody has put there.
  PutFile("player/Monday/deep/old.mp3", "old");
  fs::create_symlink(Full("music/song.mp3"), "player/Monday/RV004-song.mp3");
  fs::create_hard_link("precious/diary.txt", "player/Monday/RV001-Instructions.mp3");
  fs::create_directory_symlink(Full("precious"), "player/Monday/folder");
  const std::string workout = "program/workouts/Monday.RPV";
  PutFile(workout, oldWorkout);
  for (const char* name : {"temp.wav", "temp.mp3", "options.conf"}) {
    fs::remove(std::string("program/") + name);
  }
}

FaultyRun FaultWorld::RunWith(const Fault& fault, const std::string& program,
                              const std::vector<std::string>& operands) {
  const std::string trace = Full("trace");
  fs::remove(trace);
  FaultyRun result;
  Environment environment = Surroundings();
  for (const std::string& setting :
       {"LD_PRELOAD=" + ProgramBeside("libfault_shim.so"), "REPVOLTA_FAULT=" + fault.Text(),
        "REPVOLTA_TRACE=" + trace, std::string("ASAN_OPTIONS=verify_asan_link_order=0")}) {
    environment.push_back(setting);
  }
  if (fault.hidesTypes) environment.push_back("REPVOLTA_UNTYPED=1");
  result.run = RunProgram(program, operands, environment);
  if (!fs::exists(trace)) {
    ADD_FAILURE() << program << " did not start: " << result.run.errors;
    return result;
  }
  result.trace = Lines(GetTextFile(trace));
  fs::remove(trace);
  for (const std::string& line : result.trace) {
    if (line.find(" failed ") != std::string::npos) result.hit = true;
  }
  return result;
}

Environment FaultWorld::Surroundings() const {
  return {"TMPDIR=" + Full("tmp"), "PATH=" + Full("bin")};
}

ProgramRun FaultWorld::Update(const std::vector<std::string>& operands) {
  return RunProgram("program/repvolta-update", operands, Surroundings());
}

void FaultWorld::LearnWhatIsRight() {
  Reset();
  const ProgramRun run = Update();
  ASSERT_EQ(run.status, 0) << run.output << run.errors;
  newWorkout = GetFile("program/workouts/Monday.RPV");
  rightClip_ = fs::exists(kSpokenClip) ? GetTextFile(kSpokenClip) : "";
  rightOrigins_ = fs::exists(kOrigins) ? GetTextFile(kOrigins) : "";
  ASSERT_NE(WithoutGrowth(newWorkout), WithoutGrowth(oldWorkout));
  rightPlayer_.clear();
  for (const auto& [path, entry] : Look("player")) rightPlayer_[path] = entry.content;
  ASSERT_GE(rightPlayer_.size(), 6U);
}

bool FaultWorld::PlayerIsRight() const {
  std::map<std::string, std::string> player;
  for (const auto& [path, entry] : Look("player")) player[path] = entry.content;
  return player == rightPlayer_;
}

void FaultWorld::ExpectNothingLost() {
  const Entries now = Look(".");
  for (const auto& [path, entry] : before_) {
    if (IsBelow(path, "player") || path == "program/workouts/Monday.RPV") continue;
    const auto found = now.find(path);
    if (found == now.end()) {
      ADD_FAILURE() << path << " is gone";
    } else {
      EXPECT_TRUE(found->second == entry) << path << " has been changed";
    }
  }
  ExpectOnlyAllowedPaths(now);
  ExpectWorkoutIsWhole();
  ExpectClipIsWhole();
  ExpectVersionsAreWhole(now);
}

/// A version is the workout as it was before an update.
void FaultWorld::ExpectVersionsAreWhole(const Entries& now) {
  for (const auto& [path, entry] : now) {
    if (!IsVersion(path) || !path.ends_with(".RPV")) continue;
    const Bytes version = GetFile(path);
    EXPECT_TRUE(version == oldWorkout || WithoutGrowth(version) == WithoutGrowth(newWorkout))
        << path << " is damaged";
  }
}

void FaultWorld::ExpectClipIsWhole() {
  if (!fs::exists(kSpokenClip)) return;
  EXPECT_TRUE(GetTextFile(kSpokenClip) == rightClip_) << kSpokenClip << " is damaged";
  // The day may be another, but is as long.
  EXPECT_TRUE(!fs::exists(kOrigins) || GetTextFile(kOrigins).size() == rightOrigins_.size())
      << kOrigins << " is damaged";
}

void FaultWorld::ExpectOnlyAllowedPaths(const Entries& now) {
  for (const auto& [path, entry] : now) {
    const bool isAllowed = before_.contains(path) || path == "program/temp.wav" ||
                           path == "program/temp.mp3" || path == "program/options.conf" ||
                           path == kSpokenClip || path == "program/voices" || path == kOrigins ||
                           IsBelow(path, "player") || IsVersion(path) || path.ends_with(".new") ||
                           IsBelow(path, "tmp");
    EXPECT_TRUE(isAllowed) << path << " was made";
    EXPECT_TRUE(!IsBelow(path, "player") || path == "player" || IsBelow(path, "player/Monday"))
        << path << " was made";
  }
}

void FaultWorld::ExpectWorkoutIsWhole() {
  const Bytes now = GetFile("program/workouts/Monday.RPV");
  if (now == oldWorkout || now == newWorkout) return;
  // It may differ because music could not be drawn or midnight has passed.
  EXPECT_EQ(now.size(), kWorkoutFileSize);
  EXPECT_TRUE(WithoutGrowth(now) == WithoutGrowth(newWorkout)) << "the workout is damaged";
}

void FaultWorld::ExpectNoTemporaryFiles() {
  for (const auto& [path, entry] : Look(".")) {
    EXPECT_FALSE(path == "program/temp.wav" || path == "program/temp.mp3" ||
                 path.ends_with(".new") || path.starts_with("tmp/"))
        << path << " is left";
  }
}

}  // namespace repvolta
