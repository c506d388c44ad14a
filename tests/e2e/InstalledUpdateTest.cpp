#include "e2e/PortableProgram.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;

/// The program in "usr/bin", with what it shares in "usr/share" and the program directory in the
/// user's data folder "home/data". The program directory has settings and no clips.
class InstalledUpdate : public PortableProgram {
 protected:
  /// Moves the portable program, with all that was made in it.
  void Install() {
    fs::create_directories("usr/bin");
    fs::create_directories("usr/share/repvolta");
    fs::create_directories("home/data");
    fs::rename("program/repvolta-update", "usr/bin/repvolta-update");
    fs::rename("program/voice", "usr/share/repvolta/voice");
    fs::rename("program", "home/data/repvolta");
  }

  ProgramRun UpdateInstalled(const std::vector<std::string>& operands = {}) {
    return RunProgram("usr/bin/repvolta-update", operands, {"XDG_DATA_HOME=" + Full("home/data")});
  }
};

TEST_F(InstalledUpdate, UsesTheUsersDataFolder) {
  AddWorkout("Monday", "Squat");
  Install();

  const ProgramRun run = UpdateInstalled();

  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_TRUE(fs::exists("player/Monday/RV001-Instructions.mp3"));
  EXPECT_TRUE(fs::exists("home/data/repvolta/voice/sets.wav"));
}

TEST_F(InstalledUpdate, KeepsTheClipsThatTheUserHas) {
  Install();
  PutFile("home/data/repvolta/voice/sets.wav", "own");

  EXPECT_EQ(UpdateInstalled().status, 0);

  EXPECT_EQ(GetTextFile("home/data/repvolta/voice/sets.wav"), "own");
  EXPECT_TRUE(fs::exists("home/data/repvolta/voice/and.wav"));
}

TEST_F(InstalledUpdate, CopiesNoClipsWhenItDoesNotStart) {
  Install();

  EXPECT_EQ(UpdateInstalled({"Someday"}).status, 2);

  EXPECT_FALSE(fs::exists("home/data/repvolta/voice"));
}

}  // namespace
}  // namespace repvolta
