#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RecordFormat.h"
#include "editing/StartUp.h"
#include "keeping/PendingRestore.h"
#include "update/RestoreAtStart.h"

#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

class NoOutputs : public AudioOutputs {
 public:
  std::vector<std::string> Names() override { return {}; }
};

/// The start where a backup is restored by half: "settings.dat" is still to be put in place.
class StartAfterRestore : public WindowlessFixture {
 protected:
  StartAfterRestore() {
    SettingsRecord restored;
    restored.DefaultExerciseTime = 9;
    RestoreStage stage("");
    stage.Add("settings.dat", EncodeSettings(restored));
    stage.Commit();
  }

  void Load() { Form_Load(editor, outputs); }

  NoOutputs outputs;
};

TEST_F(StartAfterRestore, FinishesItBeforeAnythingIsRead) {
  Load();
  EXPECT_EQ(state.Settings.DefaultExerciseTime, 9);
  EXPECT_THAT(window.calls, Not(Contains("select directory")));
}

TEST_F(StartAfterRestore, ReadsNothingWhenItCannotBeFinished) {
  PutFile("settings.dat/in the way", "");
  PutFile("workouts/Monday.RPV", EncodeWorkout({}));
  EXPECT_THROW(Load(), RestoreUnfinished);
  EXPECT_THAT(window.calls, IsEmpty());
}

}  // namespace
}  // namespace repvolta
