#include <cstdio>
#include <filesystem>
#include <map>
#include <sys/stat.h>

#include "keeping/PendingRestore.h"

#include "faults/FaultWorld.h"
#include "support/ClipBytes.h"
#include "support/ProgramsBeside.h"
#include "support/ZipBytes.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

/// In turn, so that each call meets several of them.
const std::vector<const char*> kFailures = {"EIO", "ENOSPC", "EACCES"};

constexpr const char* kGroups[] = {"open", "write", "fsync", "rename", "mkdir", "unlink",
                                   "read", "list",  "mode",  "stat",   "close", "lock"};

/// "Kim" has a word and a name, "new.zip" another voice, and a recording is in use that no voice
/// has.
class VoiceFaults : public FaultWorld {
 protected:
  VoiceFaults() {
    fs::current_path(folder.Path());
    PutFile("start/voice/1.wav", ClipBytes(Bytes(40, 'a')));
    PutFile("start/voice/exercise/Hop.WAV", ClipBytes(Bytes(40, 'h')));
    PutFile("start/voices/Kim/1.wav", ClipBytes(Bytes(40, 'k')));
    PutFile("start/voices/Kim/exercise/Row.WAV", ClipBytes(Bytes(40, 'r')));
    PutFile("own/1.wav", ClipBytes(Bytes(40, 'a')));
    const std::string clip = AsText(ClipBytes(Bytes(40, 's')));
    PutFile("new.zip", ZipBytes()
                           .Add({.name = "Sam/1.wav", .content = clip})
                           .Add({.name = "Sam/exercise/Row.WAV", .content = clip})
                           .Get());
    Reset();
    fs::current_path(Full("program"));
  }

  void Reset() {
    for (const char* name : {"program/voice", "program/voices", "program/restore.pending",
                             "program/options.conf", "out"}) {
      fs::remove_all(Full(name));
    }
    for (const char* name : {"voice", "voices"}) {
      fs::copy(Full("start/") + name, Full("program/") + name, fs::copy_options::recursive);
    }
    fs::create_directory(Full("out"));
  }

  FaultyRun RunStep(const char* step, const Fault& fault) {
    Reset();
    FaultyRun faulty = RunWith(fault, ProgramBeside("voice_steps"), {step});
    EXPECT_TRUE(faulty.run.status == -1 || faulty.run.status == 0 ||
                (faulty.run.status == 1 && faulty.run.errors.starts_with("voice_steps: ")))
        << fault.Text() << faulty.run.status << faulty.run.errors;
    return faulty;
  }

  static int Again(const char* step) {
    return RunProgram(ProgramBeside("voice_steps"), {step}).status;
  }

  Files FilesBelow(const std::string& root) const {
    Files files;
    for (const auto& [path, entry] : Look(Full(root))) {
      if (S_ISREG(entry.mode)) files[path] = entry.content;
    }
    return files;
  }

  /// All clips, voices and the options.
  Files State() const {
    Files files;
    for (const auto& [path, content] : FilesBelow("program")) {
      if (path.starts_with("voice") || path == "options.conf") files[path] = content;
    }
    return files;
  }

  /// What the step does without a fault.
  Files StateAfter(const char* step) {
    EXPECT_EQ(RunStep(step, {"any", 1'000'000, "EIO"}).run.status, 0);
    return State();
  }

  /// Calls `expect` after each run with one fault; returns how many there were.
  template <class Expect>
  int TryEvery(const char* step, int distance, Expect expect) {
    std::size_t points = 0;
    for (const char* group : kGroups) {
      for (int number = 1;; number += distance) {
        const Fault fault{group, number, kFailures[points % kFailures.size()]};
        const FaultyRun faulty = RunStep(step, fault);
        SCOPED_TRACE(fault.Text());
        expect(faulty.run);
        if (!faulty.hit) break;
        ++points;
      }
    }
    return static_cast<int>(points);
  }

  /// The same for kills before a call of any kind.
  template <class Expect>
  int TryKills(const char* step, int distance, Expect expect) {
    int points = 0;
    for (int number = 1;; number += distance, ++points) {
      const Fault kill{"any", number, "KILL"};
      const FaultyRun faulty = RunStep(step, kill);
      SCOPED_TRACE(kill.Text());
      expect(faulty.run);
      if (!faulty.hit) return points;
    }
  }
};

TEST_F(VoiceFaults, AFullDiskIsToldWithTheNameOfTheClipAndChangesNothing) {
  const std::string list = "$(find . -type f ! -name '*.lock' | sort)";
  const std::string lines = "cp -r ../start/. . && before=" + list + "\n" +
                            ProgramBeside("voice_steps") + " keep && exit 1\n" +
                            "cmp voice/1.wav ../start/voice/1.wav && test \"" + list +
                            "\" = \"$before\" && echo unchanged\n";
  const std::string disk = Full("out");
  const ProgramRun run = RunWithMounts(
      "mount -t tmpfs -o size=512k tmpfs " + disk + " && cd " + disk, {"/bin/sh", "-c", lines});
  EXPECT_EQ(run.output, "unchanged\n");
  EXPECT_EQ(run.errors,
            "voice_steps: voice/1.wav could not be changed: No space left on device. Nothing was "
            "changed\n");
}

TEST_F(VoiceFaults, WhileAVoiceIsTakenInLeaveAllOrNothingOfIt) {
  const Files after = StateAfter("take-in");
  Reset();
  const Files before = State();
  ASSERT_EQ(after.size(), before.size() + 2);
  const auto expectWhole = [&](const ProgramRun& run) {
    EXPECT_TRUE(State() == (run.status == 0 ? after : before)) << run.errors;
  };
  EXPECT_GE(TryEvery("take-in", PointStep(5), expectWhole) * PointStep(5), 20);
}

TEST_F(VoiceFaults, OfAKillWhileAVoiceIsTakenInLeaveNothingInTheWay) {
  const Files after = StateAfter("take-in");
  const auto expectWhole = [&](const ProgramRun& /*run*/) {
    if (State() == after) return;
    EXPECT_FALSE(fs::exists("voices/Sam"));
    EXPECT_EQ(Again("take-in"), 0);
    EXPECT_TRUE(State() == after);
  };
  EXPECT_GE(TryKills("take-in", PointStep(11), expectWhole) * PointStep(11), 20);
}

TEST_F(VoiceFaults, AndKillsWhileAVoiceIsChosenLeaveTheOldOrTheNewOne) {
  const Files after = StateAfter("use");
  Reset();
  const Files before = State();
  EXPECT_TRUE(after.contains("voices/My recordings/exercise/Hop.WAV"));
  const auto expectOneOfBoth = [&](const ProgramRun& run) {
    const bool wasPending = IsRestorePending("");
    EXPECT_EQ(Again("finish"), 0);
    const Files now = State();
    EXPECT_TRUE(now == after || (now == before && !wasPending)) << run.errors;
    EXPECT_TRUE(run.status != 0 || now == after);
    EXPECT_FALSE(fs::exists("restore.pending"));
  };
  const int faults = TryEvery("use", PointStep(19), expectOneOfBoth);
  EXPECT_GE(faults * PointStep(19), 60);
  EXPECT_GE(TryKills("use", PointStep(41), expectOneOfBoth) * PointStep(41), 60);
}

TEST_F(VoiceFaults, WhileAVoiceIsWrittenOutLeaveAllOrNothing) {
  for (const char* step : {"write-archive", "write-folder"}) {
    StateAfter(step);
    const std::size_t whole = FilesBelow("out").size();
    ASSERT_GE(whole, 1U);
    const auto expectWhole = [&](const ProgramRun& run) {
      EXPECT_EQ(FilesBelow("out").size(), run.status == 0 ? whole : 0) << run.errors;
    };
    EXPECT_GE(TryEvery(step, PointStep(5), expectWhole) * PointStep(5), 20) << step;
  }
}

TEST_F(VoiceFaults, OfAKillWhileAVoiceIsWrittenOutLeaveNothingHalf) {
  for (const char* step : {"write-archive", "write-folder"}) {
    StateAfter(step);
    const Files whole = FilesBelow("out");
    const auto expectWhole = [&](const ProgramRun& /*run*/) {
      const bool isWritten = fs::exists("../out/k") || fs::exists("../out/k.zip");
      EXPECT_TRUE(isWritten || Again(step) == 0);
      EXPECT_EQ(FilesBelow("out").size(), whole.size());
    };
    EXPECT_GE(TryKills(step, PointStep(11), expectWhole) * PointStep(11), 20) << step;
  }
}

}  // namespace
}  // namespace repvolta
