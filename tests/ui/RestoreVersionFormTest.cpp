#include <QAction>
#include <QPlainTextEdit>
#include <QPushButton>

#include "keeping/Versions.h"
#include "ui/Mnemonics.h"
#include "ui/RestoreVersionForm.h"
#include "ui/RowTable.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

/// "Monday" has a version with "Squat" and a later one with "Squat" and "Row"; now it is empty.
/// "Old" was deleted.
class RestoreVersionWindow : public FormFixture {
 protected:
  RestoreVersionWindow() {
    Keep("Old", "Plank", 1);
    fs::remove("workouts/Old.RPV");
    Keep("Monday", "Squat", 2);
    Keep("Monday", "Row", 3);
    PutFile("workouts/Monday.RPV", EncodeWorkout({}));
  }

  static void Keep(const std::string& workout, const char* exercise, int hour) {
    const std::string path = "workouts/" + workout + ".RPV";
    ExerciseSlots content;
    content[0].ExerciseName = exercise;
    PutFile(path, EncodeWorkout(content));
    KeepVersion(path, BeforeWhat::kUpdate, kToday + hour / 24.0);
  }

  void Open() {
    versions.Refresh();
    window = std::make_unique<RestoreVersionForm>(versions);
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  RowTable& Versions() { return Find<RowTable>(*window, "VersionsTable"); }
  QComboBox& Workouts() { return Find<QComboBox>(*window, "WorkoutBox"); }
  QPushButton& Restore() { return Find<QPushButton>(*window, "RestoreButton"); }
  std::string Difference() {
    return Find<QPlainTextEdit>(*window, "DifferenceText").toPlainText().toStdString();
  }
  std::string Notice() { return Find<QLabel>(*window, "NoticeLabel").text().toStdString(); }
  static std::string PathOf(const char* workout, std::size_t version) {
    return VersionsOf(workout).at(version).path;
  }

  EarlierVersions versions{"Monday.RPV"};
  std::unique_ptr<RestoreVersionForm> window;
};

TEST_F(RestoreVersionWindow, BeginsAtTheNewestVersionOfThePresentWorkout) {
  Open();
  EXPECT_EQ(Workouts().currentText(), "Monday");
  EXPECT_EQ(Versions().SelectedRow(), 0);
  EXPECT_TRUE(Versions().hasFocus());
  EXPECT_EQ(Difference(), "Row: only then");
  EXPECT_TRUE(Restore().isEnabled());
}

TEST_F(RestoreVersionWindow, ShowsWhatWouldChangeWithTheSelectedVersion) {
  Open();
  QTest::keyClick(&Versions(), Qt::Key_Down);
  EXPECT_EQ(Difference(), "Squat: only then");
}

TEST_F(RestoreVersionWindow, DescribesADeletedWorkout) {
  Open();
  Workouts().setCurrentText("Old (deleted)");
  EXPECT_THAT(Difference(), HasSubstr("Plank: 00 sets"));
  EXPECT_EQ(HeardName(Find<QPlainTextEdit>(*window, "DifferenceText")), "What is in it");
}

TEST_F(RestoreVersionWindow, GivesTheSelectedVersion) {
  Open();
  Versions().SelectRow(1);
  const Bytes bytes = GetFile(PathOf("Monday.RPV", 0));
  Restore().click();
  EXPECT_FALSE(window->isVisible());
  ASSERT_TRUE(window->Chosen().has_value());
  EXPECT_EQ(window->Chosen()->bytes, bytes);
  EXPECT_EQ(window->Chosen()->fileName, "Monday.RPV");
}

TEST_F(RestoreVersionWindow, GivesNothingWhenItIsClosed) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Enter}) {
    Open();
    QTest::keyClick(window.get(), key);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->Chosen().has_value());
  }
}

TEST_F(RestoreVersionWindow, LeadsFromTheListToTheButtonAndRestoresNothingYet) {
  Open();
  QTest::keyClick(&Versions(), Qt::Key_Return);
  EXPECT_TRUE(Restore().hasFocus());
  EXPECT_TRUE(window->isVisible());
}

TEST_F(RestoreVersionWindow, RestoresNothingThatWouldChangeNothing) {
  fs::copy_file(PathOf("Monday.RPV", 1), "workouts/Monday.RPV",
                fs::copy_options::overwrite_existing);
  Open();
  EXPECT_EQ(Difference(), "There is no difference.");
  EXPECT_FALSE(Restore().isEnabled());
}

TEST_F(RestoreVersionWindow, RestoresNoDamagedVersion) {
  PutFile(PathOf("Monday.RPV", 1), "");
  Open();
  EXPECT_THAT(Difference(), HasSubstr("This version is damaged"));
  EXPECT_FALSE(Restore().isEnabled());
}

TEST_F(RestoreVersionWindow, SaysThatASelectedVersionIsGoneAndListsTheOthers) {
  Open();
  fs::remove(PathOf("Monday.RPV", 0));
  QTest::keyClick(&Versions(), Qt::Key_Down);
  QApplication::processEvents();
  EXPECT_EQ(Notice(), "This version is no longer there. The list is new.");
  EXPECT_EQ(Versions().model()->rowCount(), 1);
  EXPECT_EQ(Difference(), "Row: only then");
  EXPECT_TRUE(window->isVisible());
}

TEST_F(RestoreVersionWindow, SaysThatAVersionWentAwayBeforeItWasRestored) {
  Open();
  fs::remove(PathOf("Monday.RPV", 1));
  Restore().click();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Notice(), "This version can no longer be read. The list is new.");
  EXPECT_EQ(Difference(), "Squat: only then");
}

TEST_F(RestoreVersionWindow, StaysWhenTheLastVersionIsGone) {
  Open();
  Workouts().setCurrentText("Old (deleted)");
  fs::remove_all("versions/Old");
  Restore().click();
  EXPECT_EQ(Workouts().count(), 1);
  EXPECT_EQ(Workouts().currentText(), "Monday");
  EXPECT_EQ(Versions().model()->rowCount(), 2);
}

TEST_F(RestoreVersionWindow, StaysWhenNothingIsLeft) {
  versions = EarlierVersions("");
  Open();
  fs::remove_all("versions");
  Restore().click();
  EXPECT_EQ(Workouts().count(), 0);
  EXPECT_EQ(Versions().model()->rowCount(), 0);
  EXPECT_EQ(Difference(), "");
  EXPECT_FALSE(Restore().isEnabled());
}

TEST_F(RestoreVersionWindow, SaysThatThePresentWorkoutHasNoVersion) {
  fs::remove_all("versions/Monday");
  Open();
  EXPECT_EQ(Notice(), "No version of Monday is kept.");
  EXPECT_FALSE(Restore().isEnabled());
  Workouts().setCurrentText("Old (deleted)");
  EXPECT_EQ(Notice(), "");
}

TEST_F(RestoreVersionWindow, CanBeUsedByKeyboardAndHeard) {
  Open();
  EXPECT_THAT(HeardNames(*window), Each(Pair(testing::Not(""), 1)));
  EXPECT_THAT(Mnemonics(*window), Each(Pair(testing::_, 1)));
}

TEST_F(RestoreVersionWindow, FitsALargeFont) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSize(14);
  QApplication::setFont(large);
  Open();
  EXPECT_LE(window->minimumSizeHint().height(), 600);
  EXPECT_LE(window->minimumSizeHint().width(), 800);
  QApplication::setFont(before);
}

TEST_F(RestoreVersionWindow, IsOpenedFromTheMenuAlsoWithoutAWorkout) {
  state.WorkoutFileName.clear();
  form->EnableWorkoutControls();
  auto& action = Get<QAction>("RestoreVersionAction");
  EXPECT_TRUE(action.isEnabled());
  EXPECT_EQ(WithoutMnemonic(action.text()).toStdString(), "Restore an Earlier Version ...");
  action.trigger();
  EXPECT_THAT(dialogs.asked, ElementsAre("version"));
}

}  // namespace
}  // namespace repvolta
