#include <QLabel>
#include <QLineEdit>
#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/InputBox.h"

#include "support/Accessibility.h"
#include "support/Modal.h"

namespace repvolta {
namespace {

/// The result of Ask() when `answer` is typed and `key` pressed.
QString AskAndType(const QString& answer, Qt::Key key, const QString& initial = {}) {
  WhenModal([&](QWidget& box) {
    QTest::keyClicks(box.focusWidget(), answer);
    QTest::keyClick(&box, key);
  });
  return InputBox::Ask(nullptr, "Enter new Value:", "Change Exercise Value", initial);
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
  InputBox box("Enter the <b>Reps & Sets</b> required:\rNow", "Reps", "");
  EXPECT_EQ(box.windowTitle(), "Reps");
  const auto& prompt = Find<QLabel>(box, "PromptLabel");
  EXPECT_EQ(prompt.textFormat(), Qt::PlainText);
  EXPECT_EQ(prompt.buddy(), nullptr) << "an ampersand would vanish";
  EXPECT_EQ(prompt.text(), "Enter the <b>Reps & Sets</b> required:\nNow");
}

TEST(InputBox, IsHeardByDistinctNames) {
  const InputBox box("Enter new Value:", "Change Exercise Value", "");
  EXPECT_EQ(HeardNames(box),
            (std::map<std::string, int>{{"Cancel", 1}, {"Enter new Value:", 1}, {"OK", 1}}));
}

}  // namespace
}  // namespace repvolta
