#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

#include "app/RecordFormat.h"

#include "faults/FaultWorld.h"
#include "support/ProgramsBeside.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

struct Group {
  const char* name;
  std::vector<const char*> failures;
};

/// EINTR and SHORT are no failures: the program must repeat the call. A real system returns EINTR
/// only for these calls. UNTYPED is no failure either: some file systems do not report types.
const std::vector<Group> kGroups = {{"open", {"EIO", "ENOSPC", "EACCES", "EINTR"}},
                                    {"write", {"ENOSPC", "EIO", "SHORT", "EINTR"}},
                                    {"fsync", {"EIO", "ENOSPC", "EINTR"}},
                                    {"rename", {"EACCES", "ENOSPC", "EIO"}},
                                    {"mkdir", {"ENOSPC", "EACCES", "EIO"}},
                                    {"unlink", {"EIO", "EACCES"}},
                                    {"read", {"EIO", "SHORT", "EINTR"}},
                                    {"fork", {"EAGAIN"}},
                                    {"exec", {"EACCES", "EIO"}},
                                    {"list", {"EIO", "EACCES", "UNTYPED"}},
                                    {"mode", {"EIO", "EACCES"}},
                                    {"stat", {"EIO", "EACCES"}},
                                    {"close", {"EIO"}},
                                    {"lock", {"ENOLCK", "EINTR"}}};

constexpr const char* kReasons[] = {"Input/output error", "No space left on device",
                                    "Permission denied"};

bool IsToBeSurvived(const std::string& failure) {
  return failure == "EINTR" || failure == "SHORT" || failure == "UNTYPED" || failure == "ENOLCK";
}

/// The short form tries one failure of each call.
bool IsTried(int number, std::size_t kind, std::size_t kinds) {
  return IsLongRun() || static_cast<std::size_t>(number) % kinds == kind;
}

/// Calls `run` for the 1st, 2nd, 3rd ... call of the group, until there is no such call. The short
/// form tries only every `stride`th call, with one failure each, in turn. Returns the number of
/// tried points.
template <class Run>
int TryGroup(const Group& group, Run& run, int stride) {
  int points = 0;
  const std::size_t kinds = group.failures.size();
  std::vector<bool> isLeft(kinds, true);
  for (int number = 1; std::ranges::count(isLeft, true) > 0; number += stride) {
    for (std::size_t kind = 0; kind < kinds; ++kind) {
      if (!isLeft[kind] || !IsTried(number, kind, kinds)) continue;
      const bool hit = run(Fault{group.name, number, group.failures[kind]});
      points += static_cast<int>(hit);
      if (!hit && !IsLongRun()) isLeft.assign(kinds, false);
      isLeft[kind] = hit;
      if (testing::Test::HasFatalFailure()) return points;
    }
  }
  return points;
}

void PrintPoints(const std::string& title, int points) {
  std::printf("[  POINTS  ] %s: %d calls failed, one at a time\n", title.c_str(), points);
}

/// The same for each group. Prints the number of tried points.
template <class Run>
void ForEachFault(const char* title, Run run, int stride = 1) {
  int points = 0;
  for (const Group& group : kGroups) points += TryGroup(group, run, PointStep(stride));
  PrintPoints(title, points);
}

std::string Where(const Fault& fault, const FaultyRun& faulty) {
  for (const std::string& line : faulty.trace) {
    if (line.find(" failed ") != std::string::npos) return fault.Text() + ", " + line;
  }
  return fault.Text();
}

class Faults : public FaultWorld {
 protected:
  /// The failure was reported or had no effect.
  void ExpectTold(const Fault& fault, const FaultyRun& faulty) {
    const ProgramRun& run = faulty.run;
    const bool isTold = (run.status == 1 && run.output.find("ERROR") != std::string::npos) ||
                        (run.status == 2 && run.errors.starts_with("repvolta-update: "));
    const bool isRight = run.status == 0 && PlayerIsRight();
    EXPECT_TRUE(isRight || (isTold && !IsToBeSurvived(fault.failure)))
        << "status " << run.status << "\n"
        << run.output << run.errors;
  }

  bool TryUpdate(const Fault& fault) {
    Reset();
    const FaultyRun faulty = RunWith(fault);
    SCOPED_TRACE(Where(fault, faulty));
    ExpectTold(fault, faulty);
    ExpectNothingLost();
    if (!fault.allBehind) ExpectNoTemporaryFiles();
    return faulty.hit;
  }
};

/// Each group of calls is a test of its own, so that they run side by side.
class FaultsOfOneCall : public Faults, public testing::WithParamInterface<Group> {};

TEST_P(FaultsOfOneCall, LoseNothingInAnUpdate) {
  LearnWhatIsRight();
  const auto run = [&](const Fault& fault) { return TryUpdate(fault); };
  PrintPoints(std::string("update, ") + GetParam().name, TryGroup(GetParam(), run, PointStep(1)));
}

INSTANTIATE_TEST_SUITE_P(Groups, FaultsOfOneCall, testing::ValuesIn(kGroups),
                         [](const auto& group) { return std::string(group.param.name); });

TEST_F(Faults, OfOneCallLoseNothingWhileANameIsSpoken) {
  MakeMondaySpeak();
  LearnWhatIsRight();
  ForEachFault("update that speaks", [&](const Fault& fault) { return TryUpdate(fault); }, 5);
}

TEST_F(Faults, OfAllFurtherCallsLoseNothingInAnUpdate) {
  LearnWhatIsRight();
  int points = 0;
  const int step = PointStep(5);
  for (const Group& group : kGroups) {
    for (const char* failure : group.failures) {
      if (IsToBeSurvived(failure)) continue;
      for (int number = 1; TryUpdate(
               {.group = group.name, .number = number, .failure = failure, .allBehind = true});
           number += step) {
        ++points;
      }
      if (!IsLongRun()) break;
    }
  }
  std::printf("[  POINTS  ] update, disk that stays broken: %d beginnings\n", points);
}

class EngineFaults : public FaultWorld {
 protected:
  EngineFaults() { fs::current_path(Full("program")); }

  FaultyRun RunStep(const std::string& step, const Fault& fault) {
    return RunWith(fault, ProgramBeside("engine_steps"), {step});
  }

  /// A failure must be reported by an exception; a fault that must be survived must not.
  static void ExpectTold(const Fault& fault, const FaultyRun& faulty) {
    const ProgramRun& run = faulty.run;
    if (IsToBeSurvived(fault.failure)) {
      EXPECT_EQ(run.status, 0) << run.errors;
    } else {
      EXPECT_TRUE(run.status == 0 || (run.status == 1 && run.errors.starts_with("engine_steps: ")))
          << run.status << run.errors;
    }
  }

  static void ExpectNoWorkingFiles(const std::string& root) {
    for (const auto& [path, entry] : Look(root)) EXPECT_FALSE(path.ends_with(".new")) << path;
  }
};

TEST_F(EngineFaults, LeaveTheOldOrTheNewFileWhenSaving) {
  constexpr fs::perms kPrivate{0600};
  const Bytes oldSettings = GetFile("settings.dat");
  ASSERT_EQ(RunProgram(ProgramBeside("engine_steps"), {"save"}).status, 0);
  const Bytes newSettings = GetFile("settings.dat");
  newWorkout = GetFile("workouts/Monday.RPV");
  ForEachFault("saving", [&](const Fault& fault) {
    PutFile("settings.dat", oldSettings);
    PutFile("workouts/Monday.RPV", oldWorkout);
    fs::permissions("settings.dat", kPrivate);
    const FaultyRun faulty = RunStep("save", fault);
    SCOPED_TRACE(fault.Text());
    ExpectTold(fault, faulty);
    const Bytes workout = GetFile("workouts/Monday.RPV");
    const Bytes settings = GetFile("settings.dat");
    EXPECT_TRUE(workout == newWorkout || workout == oldWorkout);
    EXPECT_TRUE(settings == newSettings || settings == oldSettings);
    EXPECT_EQ(fs::status("settings.dat").permissions(), kPrivate);
    if (faulty.run.status == 0) {
      EXPECT_TRUE(workout == newWorkout && settings == newSettings);
    }
    ExpectNoWorkingFiles(".");
    return faulty.hit;
  });
}

TEST_F(EngineFaults, OfACloseThatSaysNothingWasWrittenAreTold) {
  int told = 0;
  for (int number = 1;; ++number) {
    PutFile("workouts/Monday.RPV", oldWorkout);
    const Fault fault{.group = "close", .number = number, .failure = "EIO"};
    const FaultyRun faulty = RunStep("save", fault);
    if (!faulty.hit) break;
    if (!Where(fault, faulty).ends_with("/.Monday.RPV.new")) continue;
    ++told;
    EXPECT_EQ(faulty.run.errors,
              "engine_steps: workouts/Monday.RPV could not be written: Input/output error\n");
    EXPECT_TRUE(GetFile("workouts/Monday.RPV") == oldWorkout);
    ExpectNoWorkingFiles(".");
  }
  EXPECT_EQ(told, 1);
}

/// True when a message contains the system's reason.
bool IsReasonTold(const ProgramRun& run) {
  const std::string told = run.output + run.errors;
  return std::ranges::any_of(
      kReasons, [&](const char* reason) { return told.find(reason) != std::string::npos; });
}

/// The workout's first exercises are unchanged; the new one is there, or a message says why not.
void ExpectExercisesKept(const Bytes& file, const ProgramRun& run) {
  ASSERT_EQ(file.size(), kWorkoutFileSize);
  const ExerciseSlots workout = DecodeWorkout(file);
  EXPECT_EQ(workout[0].ExerciseName.Text(), "Squat");
  EXPECT_EQ(workout[1].ExerciseName.Text(), "Run");
  EXPECT_TRUE(workout[4].ExerciseName.Text() == "Added" || IsReasonTold(run)) << run.output;
}

TEST_F(EngineFaults, LoseNothingFromTheStartToTheExit) {
  const Bytes settings = GetFile("settings.dat");
  const std::string list = GetTextFile("musiclist.txt");
  ForEachFault("start, edit, exit", [&](const Fault& fault) {
    PutFile("settings.dat", settings);
    PutFile("musiclist.txt", list);
    PutFile("workouts/Monday.RPV", oldWorkout);
    const FaultyRun faulty = RunStep("start", fault);
    SCOPED_TRACE(Where(fault, faulty));
    ExpectTold(fault, faulty);
    ExpectExercisesKept(GetFile("workouts/Monday.RPV"), faulty.run);
    EXPECT_TRUE(GetFile("settings.dat") == settings);
    EXPECT_TRUE(GetTextFile("musiclist.txt") == list);
    ExpectNoWorkingFiles(".");
    return faulty.hit;
  });
}

TEST_F(EngineFaults, LeaveNoHalfSetUp) {
  SettingsRecord answers;
  answers.MusicPath = Full("music");
  answers.OutputPath = Full("player");
  ForEachFault("first set-up", [&](const Fault& fault) {
    fs::remove("settings.dat");
    PutFile("workouts/Monday.RPV", oldWorkout);
    const FaultyRun faulty = RunStep("start", fault);
    SCOPED_TRACE(Where(fault, faulty));
    ExpectTold(fault, faulty);
    ExpectExercisesKept(GetFile("workouts/Monday.RPV"), faulty.run);
    ExpectNoWorkingFiles(".");
    if (!fs::exists("settings.dat")) {
      EXPECT_TRUE(IsReasonTold(faulty.run)) << faulty.run.output;
      return faulty.hit;
    }
    const SettingsRecord saved = DecodeSettings(GetFile("settings.dat"));
    EXPECT_TRUE(saved.MusicPath == answers.MusicPath && saved.OutputPath == answers.OutputPath);
    return faulty.hit;
  });
}

TEST_F(EngineFaults, ChangeNothingWhenLoading) {
  const Entries before = Look(folder.Path());
  const std::string right = RunProgram(ProgramBeside("engine_steps"), {"load"}).output;
  ASSERT_EQ(right, Full("music") + " 2 1\n");
  ForEachFault("loading", [&](const Fault& fault) {
    const FaultyRun faulty = RunStep("load", fault);
    SCOPED_TRACE(fault.Text());
    ExpectTold(fault, faulty);
    if (faulty.run.status == 0) {
      EXPECT_EQ(faulty.run.output, right);
    }
    EXPECT_TRUE(Look(folder.Path()) == before);
    return faulty.hit;
  });
}

TEST_F(EngineFaults, AreToldWhenListingWorkouts) {
  for (const bool hidesTypes : {false, true}) {
    ForEachFault("listing workouts", [&](Fault fault) {
      fault.hidesTypes = hidesTypes;
      const FaultyRun faulty = RunStep("list", fault);
      SCOPED_TRACE(fault.Text());
      ExpectTold(fault, faulty);
      if (faulty.run.status == 0) {
        EXPECT_EQ(faulty.run.output, "Monday.RPV\nTuesday.RPV\n");
      }
      return faulty.hit;
    });
  }
}

TEST_F(EngineFaults, LeaveAWholeMusicList) {
  const std::string old = GetTextFile("musiclist.txt");
  ForEachFault("listing music", [&](const Fault& fault) {
    PutFile("musiclist.txt", old);
    const FaultyRun faulty = RunStep("compile", fault);
    SCOPED_TRACE(fault.Text());
    ExpectTold(fault, faulty);
    const std::vector<std::string> lines = Lines(GetTextFile("musiclist.txt"));
    // An unreadable folder is skipped, so the list may be shorter.
    if (IsToBeSurvived(fault.failure)) {
      EXPECT_EQ(lines.size(), 2U);
    }
    for (const std::string& line : lines) {
      EXPECT_TRUE(line == Full("music/song.mp3") || line == Full("music/drawn.mp3")) << line;
    }
    ExpectNoWorkingFiles(".");
    return faulty.hit;
  });
}

TEST_F(EngineFaults, LeaveNoHalfClipAtTheFirstStart) {
  fs::create_directories("../usr/bin");
  PutFile("../usr/share/repvolta/voice/set.wav", std::string(5000, 's'));
  PutFile("../usr/share/repvolta/voice/exercise/Own.WAV", std::string(500, 's'));
  ForEachFault("first start", [&](const Fault& fault) {
    fs::remove_all("../home");
    PutFile("../home/repvolta/voice/exercise/Own.WAV", "own");
    const FaultyRun faulty = RunStep("fill", fault);
    SCOPED_TRACE(fault.Text());
    ExpectTold(fault, faulty);
    EXPECT_EQ(GetTextFile("../home/repvolta/voice/exercise/Own.WAV"), "own");
    const std::string clip = "../home/repvolta/voice/set.wav";
    if (faulty.run.status == 0 || fs::exists(clip)) {
      EXPECT_EQ(fs::file_size(clip), 5000U);
    }
    ExpectNoWorkingFiles("../home");
    return faulty.hit;
  });
}

/// The calls of a save that change something, in order, as "group what".
std::vector<std::string> CallsOn(const std::vector<std::string>& trace, const std::string& part) {
  std::vector<std::string> calls;
  for (const std::string& line : trace) {
    if (line.find(part) == std::string::npos) continue;
    const std::string group = line.substr(0, line.find(' '));
    if (group == "stat" || group == "close" || group == "lock") continue;
    const std::string call = group + line.substr(line.rfind('/'));
    if (calls.empty() || calls.back() != call) calls.push_back(call);
  }
  return calls;
}

TEST_F(EngineFaults, AreMetByTheOrderWriteFlushRenameFlushTheFolder) {
  const FaultyRun run = RunStep("save", {.group = "open", .number = 1'000'000, .failure = "EIO"});
  EXPECT_THAT(CallsOn(run.trace, "workouts"),
              testing::ElementsAre("mkdir/", "open/.Monday.RPV.new", "write/.Monday.RPV.new",
                                   "mode/.Monday.RPV.new", "fsync/.Monday.RPV.new",
                                   "rename/Monday.RPV", "open/", "fsync/workouts"));
}

}  // namespace
}  // namespace repvolta
