#include <QAccessible>
#include <QAccessibleInterface>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/InputBox.h"

#include "support/Accessibility.h"
#include "support/Modal.h"

namespace repvolta {
namespace {

const AnswerHelp kHelp = {.now = "50 now.", .kept = [](std::string_view answer) {
                            return "Kept: " + std::string(answer);
                          }};

/// The result of Ask() when `answer` is typed and `key` pressed.
QString AskAndType(const QString& answer, Qt::Key key, const QString& initial = {}) {
  WhenModal([&](QWidget& box) {
    QTest::keyClicks(box.focusWidget(), answer);
    QTest::keyClick(&box, key);
  });
  return InputBox::Ask(nullptr, "Enter new Value:", "Change Exercise Value", kHelp, initial);
}

TEST(InputBox, GivesTheTypedAnswer) { EXPECT_EQ(AskAndType(" 12.5 ", Qt::Key_Return), " 12.5 "); }

TEST(InputBox, GivesNothingWhenItIsCancelled) {
  EXPECT_EQ(AskAndType("12.5", Qt::Key_Escape, "7"), "");
}

TEST(InputBox, OpensWithTheInitialAnswer) {
  EXPECT_EQ(AskAndType("", Qt::Key_Return, "Squat"), "Squat");
}

TEST(InputBox, ReplacesTheInitialAnswerByWhatIsTyped) {
  EXPECT_EQ(AskAndType("Press", Qt::Key_Return, "Squat"), "Press");
}

TEST(InputBox, TakesVeryLongAnswers) {
  EXPECT_EQ(AskAndType("", Qt::Key_Return, QString(30000, 'x')).size(), 30000);
}

TEST(InputBox, ShowsItsTitleAndPromptAsTheyAre) {
  InputBox box("Enter the <b>Reps & Sets</b> required:\rNow", "Reps", kHelp);
  EXPECT_EQ(box.windowTitle(), "Reps");
  const auto& prompt = Find<QLabel>(box, "PromptLabel");
  EXPECT_EQ(prompt.textFormat(), Qt::PlainText);
  EXPECT_EQ(prompt.buddy(), nullptr) << "an ampersand would vanish";
  EXPECT_EQ(prompt.text(), "Enter the <b>Reps & Sets</b> required:\nNow");
}

TEST(InputBox, SaysBelowTheFieldWhatIsThereAndWhatWillBeKept) {
  InputBox box("Enter new Value:", "Change Exercise Value", kHelp, "5");
  box.show();
  EXPECT_EQ(Find<QLabel>(box, "NowLabel").text(), "50 now.");
  EXPECT_EQ(Find<QLabel>(box, "KeptLabel").text(), "Kept: 5");

  QTest::keyClicks(box.focusWidget(), "57");

  EXPECT_EQ(Find<QLabel>(box, "KeptLabel").text(), "Kept: 57");
  const int field = Find<QLineEdit>(box, "AnswerBox").geometry().bottom();
  EXPECT_GT(Find<QLabel>(box, "NowLabel").y(), field);
  EXPECT_GT(Find<QLabel>(box, "KeptLabel").y(), Find<QLabel>(box, "NowLabel").y());
}

TEST(InputBox, IsDescribedToScreenReadersByWhatStandsBelowTheField) {
  InputBox box("Enter new Value:", "Change Exercise Value", kHelp, "5");
  box.show();
  const auto heard = [&] {
    return QAccessible::queryAccessibleInterface(&Find<QLineEdit>(box, "AnswerBox"))
        ->text(QAccessible::Description);
  };
  EXPECT_EQ(heard(), "50 now. Kept: 5");
  QTest::keyClicks(box.focusWidget(), "57");
  EXPECT_EQ(heard(), "50 now. Kept: 57");
}

TEST(InputBox, FitsOnASmallScreenAtDoubleSize) {
  InputBox box("Enter the Target Exercise time in minutes", "Set Target Exercise Time",
               {.now = std::string(200, 'n'),
                .kept = [](std::string_view) { return std::string(200, 'k'); }});
  box.show();
  // 1024 x 768 at 200 %, without the frame of the window.
  EXPECT_LE(box.width(), 496);
  EXPECT_LE(box.height(), 344);
}

TEST(InputBox, DoesNotGrowWhileItIsTypedIn) {
  const std::string kLong =
      "This is one of the longest lines that can stand below a field: it has "
      "about as many letters as two lines of the box can hold.";
  InputBox box("Enter new Value:", "Change Exercise Value",
               {.now = "50 now.", .kept = [&](std::string_view answer) {
                  return answer.empty() ? std::string() : kLong;
                }});
  box.show();
  const QSize before = box.size();
  QTest::keyClicks(box.focusWidget(), "57");
  QCoreApplication::processEvents();
  EXPECT_EQ(box.size(), before);
}

TEST(InputBox, IsHeardByDistinctNames) {
  const InputBox box("Enter new Value:", "Change Exercise Value", kHelp);
  EXPECT_EQ(HeardNames(box),
            (std::map<std::string, int>{{"Cancel", 1}, {"Enter new Value:", 1}, {"OK", 1}}));
}

}  // namespace
}  // namespace repvolta
