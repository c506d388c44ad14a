#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <filesystem>

#include "app/Options.h"
#include "ui/UpdateForm.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The progress window at the end of an update with an error and a warning.
class ProgressWindowAtTheEnd : public testing::Test {
 protected:
  ProgressWindowAtTheEnd() {
    form.Show();
    for (const char* line : {"Updating Workout Monday.RPV", "WARNING: a", "ERROR: b"}) {
      form.AddLine(line);
    }
    form.UpdateEnds();
  }

  void End(const std::string& hint = {}) {
    form.ShowOutcome({.text = "Monday: 2 files, 1 error", .folder = folder.Path(), .hint = hint});
  }

  QPushButton& Button(const char* name) { return Find<QPushButton>(form, name); }
  QLabel& Label(const char* name) { return Find<QLabel>(form, name); }

  TemporaryFolder folder;
  UpdateForm form;
};

TEST_F(ProgressWindowAtTheEnd, TellsWhatCameOut) {
  EXPECT_FALSE(Label("OutcomeLabel").isVisible());
  End();
  EXPECT_TRUE(Label("OutcomeLabel").isVisible());
  EXPECT_EQ(Label("OutcomeLabel").text(), "Monday: 2 files, 1 error");
  EXPECT_EQ(Label("OutcomeLabel").textFormat(), Qt::PlainText);
}

TEST_F(ProgressWindowAtTheEnd, LeadsToItsProblems) {
  End();
  auto& list = Find<QListWidget>(form, "UpdateList");
  Button("NextErrorButton").click();
  EXPECT_EQ(list.currentItem()->text(), "ERROR: b");
  Button("NextWarningButton").click();
  EXPECT_EQ(list.currentItem()->text(), "WARNING: a");
}

TEST_F(ProgressWindowAtTheEnd, OffersNoWayToProblemsThatAreNotThere) {
  form.Show();
  form.AddLine("ERROR: b");
  End();
  EXPECT_TRUE(Button("NextErrorButton").isVisible());
  EXPECT_FALSE(Button("NextWarningButton").isVisible());
}

TEST_F(ProgressWindowAtTheEnd, OpensTheFolder) {
  std::vector<std::string> opened;
  form.OnOpenFolder([&](const std::string& path) { opened.push_back(path); });
  End();
  EXPECT_TRUE(Button("OpenFolderButton").isEnabled());
  Button("OpenFolderButton").click();
  EXPECT_THAT(opened, ElementsAre(folder.Path()));
}

TEST_F(ProgressWindowAtTheEnd, OpensNoFolderThatIsGone) {
  form.ShowOutcome({.text = "Monday: no files", .folder = folder.Path() + "gone/", .hint = ""});
  EXPECT_TRUE(Button("OpenFolderButton").isVisible());
  EXPECT_FALSE(Button("OpenFolderButton").isEnabled());
}

TEST_F(ProgressWindowAtTheEnd, OpensNoFolderThatHasGoneMeanwhile) {
  std::vector<std::string> opened;
  form.OnOpenFolder([&](const std::string& path) { opened.push_back(path); });
  std::filesystem::create_directory("Monday");
  form.ShowOutcome({.text = "Monday", .folder = folder.Path() + "Monday", .hint = ""});
  std::filesystem::remove("Monday");
  Button("OpenFolderButton").click();
  EXPECT_THAT(opened, IsEmpty());
  EXPECT_FALSE(Button("OpenFolderButton").isEnabled());
}

TEST_F(ProgressWindowAtTheEnd, GivesAHintBelow) {
  End();
  EXPECT_FALSE(Label("PlayerHintLabel").isVisible());
  End("Copy it.");
  EXPECT_TRUE(Label("PlayerHintLabel").isVisible());
  EXPECT_EQ(Label("PlayerHintLabel").text(), "Copy it.");
}

TEST_F(ProgressWindowAtTheEnd, ForgetsItWhenAnotherUpdateBegins) {
  End("Copy it.");
  form.Show();
  for (const char* name : {"OutcomeLabel", "PlayerHintLabel", "NextErrorButton",
                           "NextWarningButton", "OpenFolderButton"}) {
    EXPECT_FALSE(Find<QWidget>(form, name).isVisible()) << name;
  }
}

TEST_F(ProgressWindowAtTheEnd, IsShownAgainAsItWas) {
  End();
  form.Hide();
  form.ShowAgain();
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(Label("OutcomeLabel").isVisible());
  EXPECT_EQ(Find<QListWidget>(form, "UpdateList").count(), 3);
}

TEST_F(ProgressWindowAtTheEnd, IsStillClosedByEnter) {
  End();
  QTest::keyClick(&form, Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(ProgressWindowAtTheEnd, IsHeardByDistinctNamesAndLetters) {
  End();
  EXPECT_EQ(HeardNames(form), (std::map<std::string, int>{{"Next Error", 1},
                                                          {"Next Warning", 1},
                                                          {"OK", 1},
                                                          {"Open Folder", 1},
                                                          {"Stop", 1},
                                                          {"Update progress", 1}}));
  for (const auto& [letter, times] : Mnemonics(form)) EXPECT_EQ(times, 1) << letter;
}

/// Updates from the main window.
class OutcomeOfUpdates : public FormFixture {
 protected:
  OutcomeOfUpdates() {
    ListWorkouts({"Monday", "Tuesday"});
    Load("Monday.RPV");
    AddExercise("Squat");
  }
};

TEST_F(OutcomeOfUpdates, IsToldInTheProgressWindow) {
  Click("UpdateSelectedWorkoutButton");
  ASSERT_THAT(progress.outcomes, SizeIs(1));
  EXPECT_THAT(progress.outcomes[0].text, HasSubstr("Monday: "));
  EXPECT_EQ(progress.outcomes[0].folder, folder.Path() + "player/Monday/");
  EXPECT_FALSE(Get<QLabel>("LastUpdateLabel").isVisible());
}

TEST_F(OutcomeOfUpdates, CountsTheProblemsOfEachUpdateAnew) {
  PutFile("voice/exercise/Squat.WAV", "");
  Click("UpdateSelectedWorkoutButton");
  Click("UpdateSelectedWorkoutButton");
  ASSERT_THAT(progress.outcomes, SizeIs(2));
  EXPECT_EQ(progress.outcomes[0].text, progress.outcomes[1].text);
  EXPECT_THAT(progress.outcomes[1].text, HasSubstr(" error"));
}

TEST_F(OutcomeOfUpdates, OfSeveralWorkoutsIsTheirSumInTheMainWindow) {
  Click("UpdateAllWorkoutsButton");
  ASSERT_THAT(progress.outcomes, SizeIs(1));
  EXPECT_THAT(progress.outcomes[0].text, HasSubstr("2 workouts: "));
  EXPECT_EQ(progress.outcomes[0].folder, folder.Path() + "player/");
  EXPECT_TRUE(Get<QLabel>("LastUpdateLabel").isVisible());
  EXPECT_EQ(Text("LastUpdateLabel"), "Last update: " + progress.outcomes[0].text);
}

TEST_F(OutcomeOfUpdates, IsNotToldByOtherCommands) {
  Click("UpdateSelectedWorkoutButton");
  dialogs.answers = {""};
  Click("EditExerciseNameButton");
  EXPECT_THAT(progress.outcomes, SizeIs(1));
}

TEST_F(OutcomeOfUpdates, CanBeSeenAgain) {
  auto* action = form->findChild<QAction*>("ShowLastUpdateAction");
  ASSERT_NE(action, nullptr);
  EXPECT_FALSE(action->isEnabled());
  Click("UpdateAllWorkoutsButton");
  EXPECT_FALSE(progress.visible);
  EXPECT_TRUE(action->isEnabled());
  action->trigger();
  EXPECT_TRUE(progress.visible);
}

TEST_F(OutcomeOfUpdates, ComesTheFirstTimeWithAHintHowItGetsIntoThePlayer) {
  Click("UpdateAllWorkoutsButton");
  EXPECT_EQ(progress.outcomes.back().hint, "");
  Load("Monday.RPV");
  Click("UpdateSelectedWorkoutButton");
  EXPECT_THAT(progress.outcomes.back().hint, HasSubstr("into the player"));
  Click("UpdateSelectedWorkoutButton");
  EXPECT_EQ(progress.outcomes.back().hint, "");
}

TEST_F(OutcomeOfUpdates, OpensItsFolder) {
  Click("UpdateSelectedWorkoutButton");
  progress.openFolder(progress.outcomes[0].folder);
  EXPECT_THAT(dialogs.opened, ElementsAre(folder.Path() + "player/Monday/"));
}

}  // namespace
}  // namespace repvolta
