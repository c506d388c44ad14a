#include <QAccessible>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/PreviewRows.h"
#include "ui/PreviewForm.h"
#include "ui/RowTable.h"

#include "support/Accessibility.h"
#include "support/Modal.h"
#include "support/SamplePlan.h"

namespace repvolta {
namespace {

using testing::Each;
using testing::Pair;

class PreviewWindow : public testing::Test {
 protected:
  void Open() {
    form = std::make_unique<PreviewForm>(PreviewOf(plan, SampleWorkout()));
    form->show();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  void OpenWithProblems() {
    plan.problems = {
        ProblemOf(PlannedProblem::Kind::kNoEncoder, "No encoder."),
        ProblemOf(PlannedProblem::Kind::kSongGone, "Squat: /music/<b>Gone</b>.mp3 is gone.", 0, 0)};
    Open();
  }

  RowTable& Files() { return Find<RowTable>(*form, "FilesTable"); }
  RowTable& Growth() { return Find<RowTable>(*form, "GrowthTable"); }
  std::string Details() {
    return Find<QPlainTextEdit>(*form, "DetailsText").toPlainText().toStdString();
  }
  std::string Text(const char* label) { return Find<QLabel>(*form, label).text().toStdString(); }

  UpdatePlan plan = SamplePlan();
  std::unique_ptr<PreviewForm> form;
};

TEST_F(PreviewWindow, ShowsTheTextsOfThePlan) {
  Open();
  const Preview preview = PreviewOf(plan, SampleWorkout());
  EXPECT_EQ(form->windowTitle(), "Preview Update");
  EXPECT_EQ(Text("HeadlineLabel"), preview.headline);
  EXPECT_EQ(Text("OutlookLabel"), preview.outlook);
  EXPECT_EQ(Text("TotalsLabel"), preview.totals);
}

TEST_F(PreviewWindow, HasARowForEachFile) {
  Open();
  ASSERT_EQ(Files().model()->rowCount(), 4);
  EXPECT_EQ(Files().model()->index(1, kPreviewName).data().toString(), "RV002-Run.mp3");
  EXPECT_EQ(Files().model()->index(1, kPreviewSize).data().toString(), "3.2 MB");
}

TEST_F(PreviewWindow, KeepsWhatGrowsInSightHoweverManyFilesThereAre) {
  const std::vector<PlannedFile> few = plan.exercises[0].files;
  for (int i = 0; i < 25; ++i) {
    plan.exercises[0].files.insert(plan.exercises[0].files.end(), few.begin(), few.end());
  }
  Open();
  ASSERT_GE(Files().model()->rowCount(), 50);
  const int bottom = Growth().mapTo(form.get(), QPoint(0, Growth().height())).y();
  EXPECT_LT(bottom, form->height());
}

TEST_F(PreviewWindow, BeginsAtTheFirstFile) {
  Open();
  EXPECT_TRUE(Files().hasFocus());
  EXPECT_EQ(Details(), PreviewOf(plan, SampleWorkout()).files[0].details);
}

TEST_F(PreviewWindow, TellsMoreOfTheFileThatIsSelectedByKeyboard) {
  Open();
  QTest::keyClick(&Files(), Qt::Key_Down);
  EXPECT_EQ(Details(), PreviewOf(plan, SampleWorkout()).files[1].details);
  QTest::keyClick(&Files(), Qt::Key_Up);
  EXPECT_EQ(Details(), PreviewOf(plan, SampleWorkout()).files[0].details);
}

TEST_F(PreviewWindow, ShowsTheSongThatIsChosenByEnter) {
  Open();
  QTest::keyClick(&Files(), Qt::Key_Down);
  QTest::keyClick(&Files(), Qt::Key_Return);
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(form->Outcome().after, AfterPreview::kShowPlace);
  EXPECT_EQ(form->Outcome().place,
            (PreviewPlace{.kind = PreviewPlace::Kind::kSong, .exercise = 0, .row = 1}));
}

TEST_F(PreviewWindow, WantsNothingWhenItIsClosed) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Enter}) {
    Open();
    QTest::keyClick(form.get(), key);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(form->Outcome().after, AfterPreview::kNothing);
  }
}

TEST_F(PreviewWindow, LeadsToTheUpdate) {
  Open();
  Find<QPushButton>(*form, "UpdateButton").click();
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(form->Outcome().after, AfterPreview::kUpdate);
}

TEST_F(PreviewWindow, ShowsNoProblemsWhereThereAreNone) {
  Open();
  EXPECT_FALSE(Find<QScrollArea>(*form, "ProblemsArea").isVisible());
}

TEST_F(PreviewWindow, ShowsAFewProblemsWholeInALargeFont) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSize(14);
  QApplication::setFont(large);
  OpenWithProblems();
  EXPECT_EQ(Find<QScrollArea>(*form, "ProblemsArea").verticalScrollBar()->maximum(), 0);
  QApplication::setFont(before);
}

TEST_F(PreviewWindow, HasAButtonThatLeadsToWhereAProblemIsMended) {
  OpenWithProblems();
  auto& button = Find<QPushButton>(*form, "PlaceButton_1");
  EXPECT_EQ(button.text(), "Show Song");
  button.click();
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(form->Outcome().place,
            (PreviewPlace{.kind = PreviewPlace::Kind::kSong, .exercise = 0, .row = 0}));
}

TEST_F(PreviewWindow, OffersTheGuideForWhatIsMendedElsewhere) {
  OpenWithProblems();
  EXPECT_EQ(Find<QPushButton>(*form, "PlaceButton_0").text(), "Show Help");
}

TEST_F(PreviewWindow, ShowsNamesWithMarkupAsTheyAre) {
  OpenWithProblems();
  const auto labels = Find<QWidget>(*form, "ProblemsFrame").findChildren<QLabel*>();
  EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
    return label->text() == "Error: Squat: /music/<b>Gone</b>.mp3 is gone." &&
           label->textFormat() == Qt::PlainText;
  }));
}

TEST_F(PreviewWindow, ListsWhatGrows) {
  Open();
  ASSERT_EQ(Growth().model()->rowCount(), 1);
  EXPECT_EQ(Growth().model()->index(0, kGrowthAfter).data().toString(), "22.5");
  EXPECT_FALSE(Find<QLabel>(*form, "NoGrowthLabel").isVisible());
}

TEST_F(PreviewWindow, SaysThatNothingGrows) {
  plan.exercises[0].growth.clear();
  Open();
  EXPECT_FALSE(Growth().isVisible());
  EXPECT_TRUE(Find<QLabel>(*form, "NoGrowthLabel").isVisible());
}

TEST_F(PreviewWindow, ShowsAWorkoutWithoutFiles) {
  plan.exercises.clear();
  Open();
  QTest::keyClick(&Files(), Qt::Key_Return);
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(Details(), "");
}

TEST_F(PreviewWindow, IsReachedByTabInItsOrder) {
  OpenWithProblems();
  std::vector<std::string> order;
  for (int i = 0; i < 7; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order,
              testing::ElementsAre("FilesTable", "DetailsText", "GrowthTable", "UpdateButton",
                                   "CloseButton", "PlaceButton_0", "PlaceButton_1"));
}

TEST_F(PreviewWindow, IsHeardByDistinctNames) {
  OpenWithProblems();
  const auto names = HeardNames(*form);
  EXPECT_EQ(names.size(), 7);
  EXPECT_THAT(names, Each(Pair(testing::Not(""), 1)));
}

TEST_F(PreviewWindow, UsesEachMnemonicOnce) {
  OpenWithProblems();
  EXPECT_THAT(Mnemonics(*form), Each(Pair(testing::_, 1)));
}

TEST_F(PreviewWindow, TellsAScreenReaderWhatWillGoWrong) {
  OpenWithProblems();
  EXPECT_TRUE(form->accessibleDescription().contains("What will go wrong: 2 errors"));
  EXPECT_EQ(Find<QPushButton>(*form, "PlaceButton_1").accessibleDescription(),
            "Error: Squat: /music/<b>Gone</b>.mp3 is gone.");
}

TEST_F(PreviewWindow, KeepsItsButtonsInSightOnASmallScreen) {
  for (int i = 0; i < 30; ++i) {
    plan.problems.push_back(ProblemOf(PlannedProblem::Kind::kSongGone, "gone", 0, 0));
  }
  Open();
  form->resize(512, 350);
  QApplication::processEvents();
  EXPECT_EQ(form->size(), QSize(512, 350));
  for (const char* name : {"UpdateButton", "CloseButton"}) {
    const auto& button = Find<QPushButton>(*form, name);
    const QRect place(button.mapTo(form.get(), QPoint()), button.size());
    EXPECT_TRUE(form->rect().contains(place)) << name;
  }
}

}  // namespace
}  // namespace repvolta
