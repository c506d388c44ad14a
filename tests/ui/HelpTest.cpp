#include <QLineEdit>
#include <QMenu>

#include "ui/InputBox.h"
#include "ui/MessageBox.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const AnswerHelp kNoHelp{"", [](std::string_view) { return std::string(); }};

class HelpTest : public FormFixture {
 protected:
  HelpTest() {
    AddExercise("Squat");
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  /// The pages that F1 opens in the box that `show` shows.
  std::vector<std::string> PagesOfBox(const std::function<void()>& show,
                                      Qt::KeyboardModifiers held = Qt::NoModifier) {
    dialogs.guide.clear();
    WhenModal([held](QWidget& box) {
      QWidget* focus = box.focusWidget();
      QTest::keyClick(focus ? focus : &box, Qt::Key_F1, held);
      box.close();
    });
    show();
    return dialogs.guide;
  }

  QAction& Action(const char* name) { return *form->findChild<QAction*>(name); }
};

TEST_F(HelpTest, OpensThePageOfTheOpenTab) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    QTest::keyClick(form->focusWidget(), Qt::Key_F1);
  }
  EXPECT_THAT(dialogs.guide,
              ElementsAre("first-workout.html#set-it-up", "first-workout.html#kinds-of-sets",
                          "first-start.html#two-questions"));
}

TEST_F(HelpTest, OpensThePageOfTheBox) {
  EXPECT_THAT(
      PagesOfBox([&] { InputBox::Ask(form.get(), "?", "Set Target Exercise Time", kNoHelp); }),
      ElementsAre("music.html#random-music"));
  EXPECT_THAT(PagesOfBox([&] { MessageBox::Show(form.get(), "!", "Repvolta"); }),
              ElementsAre("messages.html#messages-of-the-window"));
}

TEST_F(HelpTest, OpensThePageOfTheTabFromAMenu) {
  OpenTab(2);
  QTest::keyClick(form->focusWidget(), Qt::Key_F10);
  auto& menu = Get<QMenu>("FileMenu");
  ASSERT_TRUE(menu.isVisible());
  QTest::keyClick(&menu, Qt::Key_F1);
  EXPECT_THAT(dialogs.guide, ElementsAre("first-start.html#two-questions"));
}

TEST_F(HelpTest, IsNotMeantByF1WithAnotherKey) {
  EXPECT_THAT(
      PagesOfBox([&] { InputBox::Ask(form.get(), "?", "Weight", kNoHelp); }, Qt::ControlModifier),
      IsEmpty());
}

TEST_F(HelpTest, HasACommandForEachPage) {
  Action("GuideAction").trigger();
  Action("GuidePage-growth").trigger();
  Action("HelpAction").trigger();
  EXPECT_THAT(dialogs.guide,
              ElementsAre("index.html", "growth.html", "first-workout.html#set-it-up"));
}

}  // namespace
}  // namespace repvolta
