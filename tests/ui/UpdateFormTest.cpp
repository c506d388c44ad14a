#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/ElidedLabel.h"
#include "ui/UpdateForm.h"

#include "fakes/FakeDisks.h"
#include "support/Accessibility.h"
#include "support/Modal.h"

namespace repvolta {
namespace {

/// Counts the paint events of a widget.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return QObject::eventFilter(watched, event);
  }

  int count = 0;
};

class UpdateWindow : public testing::Test {
 protected:
  UpdateWindow() { form.Show(); }

  UpdateForm form;
  QListWidget& list = Find<QListWidget>(form, "UpdateList");
};

TEST_F(UpdateWindow, HasItsCaption) {
  EXPECT_EQ(form.windowTitle(), "Repvolta Update Progress...");
}

TEST_F(UpdateWindow, DoesNotBlockTheOthers) {
  EXPECT_TRUE(form.isVisible());
  EXPECT_FALSE(form.isModal());
}

TEST_F(UpdateWindow, StaysAboveItsOwner) {
  QWidget owner;
  owner.show();
  form.SetOwner(&owner);
  form.Show();
  EXPECT_EQ(form.windowHandle()->transientParent(), owner.windowHandle());
}

TEST_F(UpdateWindow, ListsTheLinesInTheirOrder) {
  form.AddLine("Zulu");
  form.AddLine("");
  form.AddLine("ERROR: Ärger <b>");

  ASSERT_EQ(list.count(), 3);
  EXPECT_EQ(list.item(0)->text(), "Zulu");
  EXPECT_EQ(list.item(1)->text(), "");
  EXPECT_EQ(list.item(2)->text(), "ERROR: Ärger <b>");
}

TEST_F(UpdateWindow, PaintsEachLineBeforeTheNext) {
  Paints paints(*list.viewport());
  for (int line = 1; line <= 3; ++line) {
    form.AddLine("line");
    EXPECT_GE(paints.count, line);
  }
}

TEST_F(UpdateWindow, KeepsItsScrollPosition) {
  for (int line = 0; line < 500; ++line) form.AddLine("line");
  QApplication::processEvents();
  list.verticalScrollBar()->setValue(7);

  form.AddLine("last");
  QApplication::processEvents();

  EXPECT_EQ(list.verticalScrollBar()->value(), 7);
}

TEST_F(UpdateWindow, IsHiddenByItsButtonAndKeepsItsLines) {
  form.AddLine("line");
  Find<QPushButton>(form, "UpdateOKbutton").click();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(list.count(), 1);
}

TEST_F(UpdateWindow, IsHiddenByEnterAndEscape) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    form.Show();
    QTest::keyClick(&form, key);
    EXPECT_FALSE(form.isVisible());
  }
}

TEST_F(UpdateWindow, GoesOnListingWhileItIsHidden) {
  form.Hide();
  form.AddLine("line");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(list.count(), 1);
}

TEST_F(UpdateWindow, IsEmptyWhenItIsShownAgain) {
  form.AddLine("line");
  form.Hide();
  form.Show();
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(list.count(), 0);
}

TEST_F(UpdateWindow, IsHeardByDistinctNames) {
  EXPECT_EQ(HeardNames(form),
            (std::map<std::string, int>{{"OK", 1}, {"Stop", 1}, {"Update progress", 1}}));
}

TEST_F(UpdateWindow, ShowsHowFarTheUpdateIs) {
  form.ShowProgress({.percent = 45, .atHand = "Song.mp3", .left = std::chrono::seconds(100)});
  auto& bar = Find<QProgressBar>(form, "UpdateProgressBar");
  EXPECT_EQ(bar.value(), 45);
  EXPECT_EQ(bar.text(), "45 %");
  EXPECT_EQ(Find<ElidedLabel>(form, "FileLabel").WholeText(), "Song.mp3");
  EXPECT_EQ(Find<QLabel>(form, "TimeLeftLabel").text(), "about 2 minutes left");
}

TEST_F(UpdateWindow, ItsBarIsHeardWithNameAndValue) {
  form.ShowProgress({.percent = 45});
  QAccessibleInterface* heard =
      QAccessible::queryAccessibleInterface(&Find<QProgressBar>(form, "UpdateProgressBar"));
  EXPECT_EQ(heard->role(), QAccessible::ProgressBar);
  EXPECT_EQ(heard->text(QAccessible::Name), "Progress of the update");
  EXPECT_EQ(heard->valueInterface()->currentValue().toInt(), 45);
}

TEST_F(UpdateWindow, KeepsItsSizeForALongName) {
  QApplication::processEvents();
  const QSize size = form.size();
  form.ShowProgress({.percent = 45, .atHand = std::string(400, 'W')});
  QApplication::processEvents();
  EXPECT_EQ(form.size(), size);
}

TEST_F(UpdateWindow, StopsTheUpdateThatRunsOnce) {
  int stopped = 0;
  form.OnStop([&] { ++stopped; });
  auto& stop = Find<QPushButton>(form, "StopButton");
  form.Show();
  stop.click();
  stop.click();
  EXPECT_EQ(stopped, 1);
  EXPECT_FALSE(stop.isEnabled());
  EXPECT_EQ(Find<ElidedLabel>(form, "FileLabel").WholeText(), "Stopping ...");
  form.ShowProgress({.percent = 45, .atHand = "Song.mp3"});
  EXPECT_EQ(Find<ElidedLabel>(form, "FileLabel").WholeText(), "Stopping ...");
  form.Show();
  EXPECT_TRUE(stop.isEnabled());
}

TEST_F(UpdateWindow, IsStoppedByItsMnemonic) {
  int stopped = 0;
  form.OnStop([&] { ++stopped; });
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QTest::keyClick(&form, Qt::Key_S, Qt::AltModifier);
  // The button is seen to be pressed for a moment.
  EXPECT_TRUE(QTest::qWaitFor([&] { return stopped == 1; }));
  EXPECT_TRUE(form.isVisible());
}

TEST_F(UpdateWindow, HasNothingToStopOnceTheUpdateHasEnded) {
  form.ShowProgress({.percent = 45, .atHand = "Song.mp3", .left = std::chrono::seconds(100)});
  form.UpdateEnds();
  EXPECT_FALSE(Find<QPushButton>(form, "StopButton").isEnabled());
  EXPECT_EQ(Find<ElidedLabel>(form, "FileLabel").WholeText(), "");
  EXPECT_EQ(Find<QLabel>(form, "TimeLeftLabel").text(), "");
  EXPECT_EQ(Find<QProgressBar>(form, "UpdateProgressBar").value(), 45);
}

TEST(UpdateForm, HasNothingToStopBeforeTheFirstUpdate) {
  const UpdateForm form;
  EXPECT_FALSE(form.findChild<QPushButton*>("StopButton")->isEnabled());
}

TEST_F(UpdateWindow, CountsTheLinesThatTellOfProblems) {
  auto& problems = Find<QLabel>(form, "ProblemsLabel");
  form.AddLine("Updating Workout Monday.RPV");
  EXPECT_FALSE(problems.isVisible());
  form.AddLine("WARNING: a");
  form.AddLine("ERROR: b");
  form.AddLine("ERROR:c");
  EXPECT_TRUE(problems.isVisible());
  EXPECT_EQ(problems.text(), "2 errors, 1 warning");
  form.Show();
  EXPECT_FALSE(problems.isVisible());
  form.AddLine("ERROR: b");
  EXPECT_EQ(problems.text(), "1 error");
}

TEST_F(UpdateWindow, MakesTheLinesThatTellOfProblemsStandOut) {
  form.AddLine("Updating Workout Monday.RPV");
  form.AddLine("ERROR: a");
  EXPECT_TRUE(list.item(0)->icon().isNull());
  EXPECT_FALSE(list.item(1)->icon().isNull());
  EXPECT_EQ(list.visualItemRect(list.item(0)).height(), list.visualItemRect(list.item(1)).height());
}

/// The window of an update to a player.
class UpdateWindowWithPlayer : public testing::Test {
 protected:
  UpdateWindowWithPlayer() {
    form.OfferEject(disks, [] { return std::string("/media/WALKMAN"); });
    form.Show();
    disks.answer(possible);
  }
  void FinishUpdate() {
    form.AddLine("UPDATE COMPLETE.");
    form.UpdateEnds();
    disks.answer(possible);
  }

  const Ejection possible{Ejection::State::kPossible, "WALKMAN", ""};
  FakeDisks disks;
  UpdateForm form;
  QPushButton& eject = Find<QPushButton>(form, "EjectButton");
  QLabel& line = Find<QLabel>(form, "EjectLabel");
};

TEST_F(UpdateWindowWithPlayer, OffersToEjectItOnceTheUpdateIsComplete) {
  form.AddLine("Created directory /media/WALKMAN/Monday/");
  EXPECT_FALSE(eject.isEnabled());
  FinishUpdate();
  EXPECT_TRUE(eject.isVisible());
  EXPECT_TRUE(eject.isEnabled());
  EXPECT_EQ(eject.text(), "&Eject");
}

TEST_F(UpdateWindowWithPlayer, SaysBelowTheListWhenItCanBeUnplugged) {
  FinishUpdate();
  EXPECT_FALSE(line.isVisible());
  eject.click();
  disks.end("");
  EXPECT_TRUE(line.isVisible());
  EXPECT_EQ(line.text(), "WALKMAN can be unplugged now.");
  EXPECT_EQ(Find<QListWidget>(form, "UpdateList").count(), 1);
}

TEST_F(UpdateWindowWithPlayer, ForgetsTheLastEjectionWhenItIsShownAgain) {
  FinishUpdate();
  eject.click();
  disks.end("");
  form.Show();
  EXPECT_FALSE(line.isVisible());
  EXPECT_FALSE(eject.isEnabled());
}

TEST_F(UpdateWindowWithPlayer, IsStillClosedByEnter) {
  FinishUpdate();
  QTest::keyClick(&form, Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(disks.ejected.empty());
}

TEST_F(UpdateWindowWithPlayer, EjectsItByKeyboard) {
  FinishUpdate();
  QTest::keyClick(&eject, Qt::Key_Space);
  EXPECT_EQ(disks.ejected.size(), 1);
}

TEST_F(UpdateWindowWithPlayer, IsHeardByDistinctNames) {
  FinishUpdate();
  EXPECT_EQ(HeardNames(form), (std::map<std::string, int>{
                                  {"Eject", 1}, {"OK", 1}, {"Stop", 1}, {"Update progress", 1}}));
}

TEST_F(UpdateWindow, OffersNoEjectionWithoutAPlayer) {
  form.UpdateEnds();
  EXPECT_TRUE(Find<QPushButton>(form, "EjectButton").isHidden());
}

}  // namespace
}  // namespace repvolta
