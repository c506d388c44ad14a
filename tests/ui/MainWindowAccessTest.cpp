#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSlider>
#include <QTabBar>
#include <QWheelEvent>

#include "ui/Keys.h"

#include "support/Accessibility.h"
#include "support/FormFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The window for a person who uses only the keyboard or a screen reader. One exercise with two
/// sets is loaded.
class MainWindowAccess : public FormFixture {
 protected:
  MainWindowAccess() {
    form->ShowVoices({"rms", "slt", "awb"});
    form->ShowAudioOutputs({"Loudspeaker", "Headphones"});
    form->ShowFormats();
    AddExercise("Squat").NumberOfSets = 2;
    AddExercise("Row");
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
  }

  void Press(const char* control, QKeyCombination key) {
    auto& widget = Get<QWidget>(control);
    widget.setFocus();
    QTest::keyClick(&widget, key.key(), key.keyboardModifiers());
  }

  /// The mnemonics of the open tab, of the tab bar and of the window's buttons.
  std::map<std::string, int> VisibleMnemonics() {
    std::map<std::string, int> letters;
    const auto count = [&](const QString& text) {
      const std::string letter = QKeySequence::mnemonic(text).toString().toStdString();
      if (!letter.empty()) ++letters[letter];
    };
    for (const auto* button : form->findChildren<QAbstractButton*>()) {
      if (button->isVisible()) count(button->text());
    }
    for (const auto* label : form->findChildren<QLabel*>()) {
      if (label->isVisible() && label->buddy() != nullptr) count(label->text());
    }
    for (int i = 0; i < 3; ++i) count(Get<QTabWidget>("SSTab1").tabText(i));
    return letters;
  }
};

TEST_F(MainWindowAccess, EachControlHasANameThatNoOtherInItsTabHas) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    for (const auto& [name, times] : HeardNames(*form)) {
      EXPECT_FALSE(name.empty()) << "tab " << tab;
      EXPECT_EQ(times, 1) << "tab " << tab << ": " << name;
    }
  }
}

TEST_F(MainWindowAccess, TheNamesStayDistinctWhenTheFieldsHaveTheSameName) {
  state.Workout[0].SetType = kUserDefined;
  state.Workout[0].UserField1Name = state.Workout[0].UserField2Name = "Tosses";
  OpenTab(1);
  for (const auto& [name, times] : HeardNames(*form)) EXPECT_EQ(times, 1) << name;
}

TEST_F(MainWindowAccess, NoNameIsTheObjectName) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    for (const auto& [name, times] : HeardNames(*form)) {
      EXPECT_EQ(form->findChild<QWidget*>(QString::fromStdString(name)), nullptr) << name;
    }
  }
}

TEST_F(MainWindowAccess, EachMnemonicStandsOnceInItsTab) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    for (const auto& [letter, times] : VisibleMnemonics()) {
      EXPECT_EQ(times, 1) << "tab " << tab << ": " << letter;
    }
  }
}

/// A button without a free letter has a key that works in the whole window, and says so.
bool HasAKeyThatIsTold(const QAbstractButton& button, const QWidget& window) {
  const QString key = button.property(kKeyProperty).toString();
  const auto shortcuts = window.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly);
  return !key.isEmpty() && button.toolTip().contains("(" + key + ")") &&
         std::any_of(shortcuts.begin(), shortcuts.end(), [&](const QShortcut* shortcut) {
           return shortcut->key().toString(QKeySequence::NativeText) == key;
         });
}

TEST_F(MainWindowAccess, EachButtonHasAMnemonicOrAKeyThatItTells) {
  for (const auto* button : form->findChildren<QAbstractButton*>()) {
    if (button->objectName().isEmpty() || button->objectName().startsWith("qt_") ||
        qobject_cast<const QTabBar*>(button->parent()) != nullptr) {
      continue;
    }
    if (button->text().isEmpty()) continue;
    EXPECT_TRUE(!QKeySequence::mnemonic(button->text()).isEmpty() ||
                HasAKeyThatIsTold(*button, *form))
        << button->objectName().toStdString();
  }
}

/// The controls of each tab, and those of the window, as the Tab key reaches them.
const std::vector<std::vector<std::string>> kTabOrders = {
    {"WorkoutDropBox", "CreateNewWorkoutButton", "DeleteSelectedWorkoutButton", "ExerciseList",
     "ExerciseSummaryList", "AddExerciseButton", "EditExerciseNameButton", "RemoveExerciseButton",
     "MoveUpExerciseListButton", "UpdateSelectedWorkoutButton", "UpdateAllWorkoutsButton",
     "AboutButton", "ExitButton"},
    {"NextExerciseButton",
     "ListenButton",
     "ListenNextButton",
     "SetButton_0",
     "UnitsSelection_0",
     "SetExerciseTimeButton",
     "SetList1",
     "SetList2",
     "SetListInc1",
     "SetListInc2",
     "FreqList1",
     "FreqList2",
     "NextUpdateList",
     "AddNewSetButton",
     "RemoveSelectedSetButton",
     "MoveSetUpListButton",
     "ManualDateResetButton",
     "MusicList",
     "RandomMusicCheckBox",
     "AddMusicFileButton",
     "RemoveMusicFileButton",
     "MoveMusicFileUpListButton",
     "UpdateSelectedWorkoutButton",
     "UpdateAllWorkoutsButton",
     "AboutButton",
     "ExitButton"},
    {"MusicPathTextBox",
     "MusicPathButton",
     "RandomMusicTextBox",
     "CompileMusicList",
     "OutputPathTextBox",
     "OutputPathButton",
     "AutoLoadPLaylistCheckbox",
     "PlayerPlayListCheck",
     "ExerciseTimeTextBox",
     "ExerciseTimeButton",
     "IncludeWeightValuesCheck",
     "VoiceCB",
     "RateSldr",
     "FormatCB",
     "VolumeSldr",
     "AudioOutputCB",
     "UpdateSelectedWorkoutButton",
     "UpdateAllWorkoutsButton",
     "AboutButton",
     "ExitButton"}};

TEST_F(MainWindowAccess, TheTabKeyFollowsTheEye) {
  for (int tab = 0; tab < 3; ++tab) {
    OpenTab(tab);
    Get<QTabWidget>("SSTab1").tabBar()->setFocus();
    for (const std::string& control : kTabOrders[static_cast<std::size_t>(tab)]) {
      QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
      EXPECT_EQ(form->focusWidget()->objectName().toStdString(), control);
    }
  }
}

TEST_F(MainWindowAccess, KeysOfTheExerciseListDoWhatItsButtonsDo) {
  ClickRow("ExerciseList", 1);
  dialogs.answers = {"", "", "Cancel", "Cancel"};
  Press("ExerciseList", Qt::Key_Insert);
  Press("ExerciseList", Qt::Key_F2);
  Press("ExerciseList", Qt::Key_Delete);
  Press("ExerciseList", Qt::ALT | Qt::Key_Up);
  EXPECT_THAT(dialogs.asked, ElementsAre("exercise", HasSubstr("Edit Exercise Name"),
                                         HasSubstr("Remove Exercise"), HasSubstr("Move Exercise")));
}

TEST_F(MainWindowAccess, KeysOfTheSetListsDoWhatTheirButtonsDo) {
  OpenTab(1);
  for (const char* list : {"SetList1", "NextUpdateList"}) {
    ClickRow(list, 1);
    dialogs.asked.clear();
    dialogs.answers = {"Cancel", "Cancel"};
    Press(list, Qt::Key_Delete);
    Press(list, Qt::ALT | Qt::Key_Up);
    EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("Remove Set"), HasSubstr("Move Set")));
  }
  dialogs.answers = {"1", "2"};
  Press("FreqList1", Qt::Key_Insert);
  EXPECT_EQ(state.Workout[0].NumberOfSets, 3);
}

TEST_F(MainWindowAccess, KeysOfTheMusicListDoWhatItsButtonsDo) {
  state.Workout[0].NumberOfMusicFiles = 2;
  OpenTab(1);
  ClickRow("MusicList", 1);
  dialogs.answers = {"", "Cancel", "Cancel"};
  Press("MusicList", Qt::Key_Insert);
  Press("MusicList", Qt::Key_Delete);
  Press("MusicList", Qt::ALT | Qt::Key_Up);
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("music|"), HasSubstr("Remove Music File"),
                                         HasSubstr("Move Music File")));
}

TEST_F(MainWindowAccess, KeysOfTheWindowWork) {
  auto& tabs = Get<QTabWidget>("SSTab1");
  Press("WorkoutDropBox", Qt::CTRL | Qt::Key_PageDown);
  EXPECT_EQ(tabs.currentIndex(), 1);
  Press("MusicList", Qt::CTRL | Qt::Key_PageDown);
  EXPECT_EQ(tabs.currentIndex(), 2);
  Press("RateSldr", Qt::CTRL | Qt::Key_PageDown);
  EXPECT_EQ(tabs.currentIndex(), 2);
  Press("RateSldr", Qt::CTRL | Qt::Key_PageUp);
  EXPECT_EQ(tabs.currentIndex(), 1);
  Press("SetList1", Qt::SHIFT | Qt::Key_F1);
  EXPECT_THAT(dialogs.asked, ElementsAre("about"));
  Press("SetList1", Qt::CTRL | Qt::Key_Q);
  EXPECT_FALSE(form->isVisible());
}

TEST_F(MainWindowAccess, TheKeyForANewWorkoutWorksAnywhereOnItsTab) {
  dialogs.answers = {""};
  Press("ExitButton", Qt::CTRL | Qt::Key_N);
  ASSERT_EQ(dialogs.asked.size(), 1U);
  EXPECT_THAT(dialogs.asked[0], HasSubstr("ask|"));
  OpenTab(1);
  dialogs.asked.clear();
  Press("SetList1", Qt::CTRL | Qt::Key_N);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(MainWindowAccess, AKeyThatIsHeldDownGivesItsCommandOnce) {
  for (const auto* shortcut : form->findChildren<QShortcut*>()) {
    const QString key = shortcut->key().toString();
    EXPECT_EQ(shortcut->autoRepeat(), key.contains("Pg")) << key.toStdString();
  }
}

TEST_F(MainWindowAccess, KeysOfAListAreNotThoseOfTheWindow) {
  OpenTab(1);
  ClickRow("SetList1", 1);
  dialogs.asked.clear();
  Press("SetButton_0", Qt::Key_Delete);
  Press("ExitButton", Qt::ALT | Qt::Key_Up);
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(MainWindowAccess, TheTabKeysPassADisabledTabOver) {
  state.WorkoutFileName = "";
  form->EnableWorkoutControls();
  Press("WorkoutDropBox", Qt::CTRL | Qt::Key_PageDown);
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 2);
}

TEST_F(MainWindowAccess, TheToolTipsNameTheKeys) {
  const std::vector<std::pair<const char*, const char*>> keys = {
      {"AddExerciseButton", "(Ins)"},         {"EditExerciseNameButton", "(F2)"},
      {"RemoveExerciseButton", "(Del)"},      {"MoveUpExerciseListButton", "(Alt+Up)"},
      {"AddNewSetButton", "(Ins)"},           {"RemoveSelectedSetButton", "(Del)"},
      {"MoveSetUpListButton", "(Alt+Up)"},    {"AddMusicFileButton", "(Ins)"},
      {"RemoveMusicFileButton", "(Del)"},     {"MoveMusicFileUpListButton", "(Alt+Up)"},
      {"CreateNewWorkoutButton", "(Ctrl+N)"}, {"UpdateAllWorkoutsButton", "(Ctrl+Shift+U)"},
      {"AboutButton", "(Shift+F1)"},          {"ExitButton", "(Ctrl+Q)"}};
  for (const auto& [button, key] : keys) {
    EXPECT_THAT(Get<QWidget>(button).toolTip().toStdString(), HasSubstr(key)) << button;
  }
  for (int tab = 0; tab < 3; ++tab) {
    const std::string text = Get<QTabWidget>("SSTab1").tabToolTip(tab).toStdString();
    EXPECT_THAT(text, HasSubstr("(Ctrl+PgUp)")) << tab;
    EXPECT_THAT(text, HasSubstr("(Ctrl+PgDn)")) << tab;
  }
}

TEST_F(MainWindowAccess, TheSideKeysGoFromColumnToColumn) {
  OpenTab(1);
  Press("SetList1", Qt::Key_Left);
  EXPECT_EQ(form->focusWidget()->objectName(), "SetList1");
  Press("SetList1", Qt::Key_Right);
  EXPECT_EQ(form->focusWidget()->objectName(), "SetList2");
  Press("NextUpdateList", Qt::Key_Right);
  EXPECT_EQ(form->focusWidget()->objectName(), "NextUpdateList");
  Press("NextUpdateList", Qt::Key_Left);
  EXPECT_EQ(form->focusWidget()->objectName(), "FreqList2");
}

TEST_F(MainWindowAccess, TheSetListsScrollTogether) {
  state.Workout[0].NumberOfSets = 17;
  OpenTab(1);
  auto* bar = List("SetList1").verticalScrollBar();
  ASSERT_GT(bar->maximum(), 0);
  bar->setValue(bar->maximum());
  EXPECT_EQ(List("NextUpdateList").verticalScrollBar()->value(), bar->maximum());
  List("FreqList1").verticalScrollBar()->setValue(0);
  EXPECT_EQ(bar->value(), 0);
}

TEST_F(MainWindowAccess, TheWheelChangesOnlyWhatHasTheFocus) {
  const auto roll = [](QWidget& widget) {
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
  };
  OpenTab(2);
  auto& slider = Get<QSlider>("RateSldr");
  auto& voices = Get<QComboBox>("VoiceCB");
  Get<QWidget>("ExitButton").setFocus();
  roll(slider);
  roll(voices);
  roll(*Get<QTabWidget>("SSTab1").tabBar());
  EXPECT_EQ(slider.value(), 0);
  EXPECT_EQ(voices.currentIndex(), 0);
  EXPECT_EQ(Get<QTabWidget>("SSTab1").currentIndex(), 2);
  voices.setFocus();
  roll(voices);
  EXPECT_EQ(voices.currentIndex(), 1);
}

TEST_F(MainWindowAccess, TheWheelGivesNoFocus) {
  for (const auto* box : form->findChildren<QComboBox*>()) {
    EXPECT_EQ(box->focusPolicy(), Qt::StrongFocus) << box->objectName().toStdString();
  }
  for (const auto* slider : form->findChildren<QSlider*>()) {
    EXPECT_EQ(slider->focusPolicy(), Qt::StrongFocus) << slider->objectName().toStdString();
  }
}

TEST_F(MainWindowAccess, TheExerciseListsScrollTogether) {
  for (int i = 2; i < 50; ++i) state.Workout[i].ExerciseName = "E" + std::to_string(i);
  state.NumberOfExercises = 50;
  form->UpdateWorkoutScreen();
  auto* bar = List("ExerciseList").verticalScrollBar();
  auto* other = List("ExerciseSummaryList").verticalScrollBar();
  ASSERT_GT(bar->maximum(), 20);
  bar->setValue(20);
  EXPECT_EQ(other->value(), 20);
  other->setValue(3);
  EXPECT_EQ(bar->value(), 3);
}

TEST_F(MainWindowAccess, ALargerFontMakesTheWindowLarger) {
  const QSize before = form->sizeHint();
  QFont font = form->font();
  font.setPointSizeF(font.pointSizeF() * 2);
  form->setFont(font);
  EXPECT_GT(form->sizeHint().width(), before.width() * 3 / 2);
  EXPECT_GT(form->sizeHint().height(), before.height() * 5 / 4);
}

}  // namespace
}  // namespace repvolta
