#include <QAccessible>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QShortcut>

#include "ui/MainMenu.h"

#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The line of the menus that stands for the object.
const MenuLine* LineOf(const QString& object) {
  static const std::vector<MenuLine> lines = MenuLines();
  const auto line = std::find_if(lines.begin(), lines.end(), [&](const MenuLine& one) {
    return QString(one.object) == object;
  });
  return line == lines.end() ? nullptr : &*line;
}

/// The window with two exercises, of which the first has two sets and two songs.
class MainMenuTest : public FormFixture {
 protected:
  MainMenuTest() {
    AddExercise("Squat").NumberOfSets = 2;
    state.Workout[0].NumberOfMusicFiles = 2;
    AddExercise("Row");
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  MainMenu& Bar() { return Get<MainMenu>("MainMenu"); }

  QList<QMenu*> Menus() {
    QList<QMenu*> menus;
    for (const QAction* title : Bar().actions()) menus.append(title->menu());
    return menus;
  }

  /// The action of the menu for that line, as it is when the menu opens.
  QAction& ActionOf(const QString& object) {
    const MenuLine* line = LineOf(object);
    if (line == nullptr) qFatal("There is no line %s", qPrintable(object));
    auto& menu = Get<QMenu>(qPrintable(QString(TitleOf(line->menu)) + "Menu"));
    Q_EMIT menu.aboutToShow();
    const std::vector<MenuLine> lines = MenuLines();
    qsizetype place = 0;
    for (const MenuLine& one : lines) {
      if (QString(one.object) == object) break;
      if (one.menu == line->menu) ++place;
    }
    return *menu.actions()[place];
  }

  QTabWidget& Tabs() { return Get<QTabWidget>("SSTab1"); }
};

TEST_F(MainMenuTest, FindsTheObjectOfEachLine) {
  EXPECT_THAT(Bar().Missing().join(' ').toStdString(), IsEmpty());
}

TEST_F(MainMenuTest, TellsALineWithoutAnObject) {
  QWidget window;
  const MainMenu menu(window, {{Menu::kMusic, "NobodysButton"}});
  EXPECT_EQ(menu.Missing(), QStringList("NobodysButton"));
}

TEST_F(MainMenuTest, HasEachButtonOfTheWindow) {
  for (const auto* button : form->findChildren<QAbstractButton*>()) {
    const QString name = button->objectName();
    if (name.isEmpty() || name.startsWith("qt_") ||
        qobject_cast<const QTabBar*>(button->parent()) != nullptr) {
      continue;
    }
    EXPECT_NE(LineOf(name), nullptr) << name.toStdString();
  }
}

TEST_F(MainMenuTest, HasEachActionOfTheWindow) {
  for (const QAction* action : form->actions()) {
    EXPECT_NE(LineOf(action->objectName()), nullptr) << action->text().toStdString();
  }
}

TEST_F(MainMenuTest, TitlesLeaveAllLettersToTheTabs) {
  QStringList titles;
  for (const QAction* title : Bar().actions()) titles.append(title->text());
  EXPECT_EQ(titles.join(' '), "File Workout Edit Exercise Music Voice Help");
}

TEST_F(MainMenuTest, EachLineHasAMnemonicOfItsOwn) {
  for (QMenu* menu : Menus()) {
    Q_EMIT menu->aboutToShow();
    QSet<QString> letters;
    for (const QAction* action : menu->actions()) {
      if (action->isSeparator()) continue;
      const QString letter = QKeySequence::mnemonic(action->text()).toString();
      EXPECT_FALSE(letter.isEmpty()) << action->text().toStdString();
      EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
      letters.insert(letter);
    }
  }
}

TEST_F(MainMenuTest, NamesTheKeyBesideTheCommand) {
  EXPECT_THAT(ActionOf("AddNewSetButton").text().toStdString(), HasSubstr("\tIns"));
  EXPECT_THAT(ActionOf("CreateNewWorkoutButton").text().toStdString(), HasSubstr("\tCtrl+N"));
  EXPECT_THAT(ActionOf("ExerciseList").text().toStdString(), HasSubstr("\tEnter"));
  EXPECT_EQ(ActionOf("NextTabAction").shortcut(), QKeySequence("Ctrl+PgDown"));
}

TEST_F(MainMenuTest, HasTheTextsOfTheButtonsAndLists) {
  const auto plain = [&](const char* object) {
    return ActionOf(object).text().remove('&').section('\t', 0, 0).toStdString();
  };
  EXPECT_EQ(plain("UpdateAllWorkoutsButton"), "Update ALL Workouts");
  EXPECT_EQ(plain("WorkoutDropBox"), "Choose Workout");
  EXPECT_EQ(plain("SettingsPage"), "Program Settings");
  EXPECT_EQ(plain("RateSldr"), "Speaking rate");
  OpenTab(1);
  EXPECT_EQ(plain("SetList1"), "Change First Value: Weight");
}

TEST_F(MainMenuTest, IsHeardAsABarOfMenusWithCommandsAndKeys) {
  const QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(&Bar());
  ASSERT_EQ(bar->role(), QAccessible::MenuBar);
  ASSERT_EQ(bar->childCount(), 7);
  EXPECT_EQ(bar->child(2)->role(), QAccessible::MenuItem);
  EXPECT_EQ(bar->child(2)->text(QAccessible::Name), "Edit");
  const QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(&Get<QMenu>("EditMenu"));
  EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
  EXPECT_EQ(menu->child(0)->role(), QAccessible::MenuItem);
  EXPECT_EQ(menu->child(3)->text(QAccessible::Name).replace('\t', ' '), "Add New Set Ins");
}

TEST_F(MainMenuTest, FollowsATextThatChanges) {
  Get<QAbstractButton>("ExitButton").setText("&Leave");
  EXPECT_EQ(ActionOf("ExitButton").text().remove('&'), "Leave\tCtrl+Q");
}

TEST_F(MainMenuTest, ShowsTheTabOfTheCommandFirst) {
  dialogs.answers = {"", ""};
  ActionOf("ExerciseTimeButton").trigger();
  EXPECT_EQ(Tabs().currentIndex(), 2);
  ActionOf("AddExerciseButton").trigger();
  EXPECT_EQ(Tabs().currentIndex(), 0);
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("Set Default Exercise Time"), "exercise"));
}

TEST_F(MainMenuTest, IsGreyWhereTheButtonIs) {
  EXPECT_TRUE(ActionOf("DeleteSelectedWorkoutButton").isEnabled());
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  for (const char* name : {"DeleteSelectedWorkoutButton", "AddNewSetButton", "ExercisePage",
                           "UpdateSelectedWorkoutButton"}) {
    EXPECT_FALSE(ActionOf(name).isEnabled()) << name;
  }
}

TEST_F(MainMenuTest, GivesNoCommandToAnExerciseThatIsNotThere) {
  Load("Monday.RPV");
  state.NumberOfExercises = 0;
  SaveWorkout(state);
  ActionOf("AddNewSetButton").trigger();
  EXPECT_EQ(Tabs().currentIndex(), 1);
  EXPECT_THAT(dialogs.asked, IsEmpty());
  EXPECT_FALSE(ActionOf("AddNewSetButton").isEnabled());
}

TEST_F(MainMenuTest, ChangesTheValueOfTheSelectedRow) {
  OpenTab(1);
  EXPECT_FALSE(ActionOf("SetList1").isEnabled());
  ClickRow("SetList1", 1);
  dialogs.answers = {"42"};
  ActionOf("SetList1").trigger();
  EXPECT_EQ(state.Workout[0].SetValue1[1], 42);
}

TEST_F(MainMenuTest, OpensTheSelectedExercise) {
  ClickRow("ExerciseList", 1);
  ActionOf("ExerciseList").trigger();
  EXPECT_EQ(Tabs().currentIndex(), 1);
  EXPECT_EQ(state.CurrentExercise, 1);
}

TEST_F(MainMenuTest, TicksAndUnticksTheBox) {
  ActionOf("PlayerPlayListCheck").trigger();
  EXPECT_TRUE(Get<QAbstractButton>("PlayerPlayListCheck").isChecked());
  EXPECT_TRUE(ActionOf("PlayerPlayListCheck").isChecked());
}

TEST_F(MainMenuTest, KeepsTheMarkOfTheKindThatIsChosenAgain) {
  OpenTab(1);
  QAction& kind = ActionOf("SetButton_0");
  ASSERT_TRUE(kind.isChecked());
  kind.trigger();
  EXPECT_TRUE(kind.isChecked());
}

TEST_F(MainMenuTest, LeadsToAFieldThatHasNoButton) {
  ActionOf("RateSldr").trigger();
  EXPECT_EQ(Tabs().currentIndex(), 2);
  EXPECT_EQ(form->focusWidget()->objectName(), "RateSldr");
}

TEST_F(MainMenuTest, OpensAtF10AndClosesAtEscape) {
  Get<QWidget>("ExerciseList").setFocus();
  QTest::keyClick(form->focusWidget(), Qt::Key_F10);
  auto& menu = Get<QMenu>("FileMenu");
  ASSERT_TRUE(menu.isVisible());
  ASSERT_NE(menu.activeAction(), nullptr);
  EXPECT_EQ(menu.activeAction(), menu.actions().first());
  QTest::keyClick(&menu, Qt::Key_Escape);
  EXPECT_FALSE(menu.isVisible());
  QTest::keyClick(&Bar(), Qt::Key_Escape);
  EXPECT_EQ(form->focusWidget()->objectName(), "ExerciseList");
  EXPECT_TRUE(form->isVisible());
}

TEST_F(MainMenuTest, RestsWhileACommandRuns) {
  bool wasEnabled = true;
  dialogs.answers = {"Cancel"};
  dialogs.whenAsked = [&] {
    form->AddLineToUpdateList("");
    wasEnabled = Bar().isEnabled();
    Bar().actions().first()->menu()->hide();
  };
  Click("DeleteSelectedWorkoutButton");
  EXPECT_FALSE(wasEnabled);
  EXPECT_TRUE(Bar().isEnabled());
}

TEST_F(MainMenuTest, TheWindowStillFitsASmallScreenAtTwiceTheSize) {
  const QSize least = form->minimumSizeHint();
  EXPECT_LE(least.width(), 1024 / 2);
  EXPECT_LE(least.height(), 768 / 2);
}

/// Where a key works: in a part of the window.
struct KeyPlace {
  QKeySequence key;
  const QWidget* place;
};

/// A key of the window only works while the tab that it belongs to is open.
const QWidget* RegionOf(QWidget* scope, Qt::ShortcutContext context, const QTabWidget& tabs) {
  if (context != Qt::WindowShortcut) return scope;
  for (QWidget* page = scope; page != nullptr; page = page->parentWidget()) {
    if (tabs.indexOf(page) >= 0) return page;
  }
  return scope->window();
}

TEST_F(MainMenuTest, NoKeyHasTwoCommandsInOnePlace) {
  std::vector<KeyPlace> keys;
  for (const auto* shortcut : form->findChildren<QShortcut*>()) {
    auto* scope = qobject_cast<QWidget*>(shortcut->parent());
    keys.push_back({shortcut->key(), RegionOf(scope, shortcut->context(), Tabs())});
  }
  for (const auto* action : form->findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) keys.push_back({action->shortcut(), form.get()});
  }
  ASSERT_GT(keys.size(), 20U);
  for (std::size_t i = 0; i < keys.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (keys[i].key != keys[j].key) continue;
      const bool overlap = keys[i].place == keys[j].place ||
                           keys[i].place->isAncestorOf(keys[j].place) ||
                           keys[j].place->isAncestorOf(keys[i].place);
      EXPECT_FALSE(overlap) << keys[i].key.toString().toStdString();
    }
  }
}

}  // namespace
}  // namespace repvolta
