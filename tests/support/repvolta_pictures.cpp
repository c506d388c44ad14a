#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QFont>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

#include "app/Settings.h"
#include "app/WorkoutFiles.h"
#include "base/Days.h"
#include "base/FileNames.h"
#include "base/Numbers.h"
#include "editing/AnswerLines.h"
#include "editing/FolderQuestions.h"
#include "editing/Listening.h"
#include "editing/PreviewRows.h"
#include "editing/StartUp.h"
#include "platform/Clock.h"
#include "ui/AboutForm.h"
#include "ui/ClearIndicators.h"
#include "ui/InputBox.h"
#include "ui/MessageBox.h"
#include "ui/MusicFileDialog.h"
#include "ui/PreviewForm.h"
#include "ui/QtDialogs.h"
#include "ui/RandomMusicMessage.h"
#include "ui/RepvoltaForm.h"
#include "ui/RestoreBackupForm.h"
#include "ui/RowList.h"
#include "ui/SelectDirectory.h"
#include "ui/SelectExerciseDialog.h"
#include "ui/UpdateForm.h"

#include "fakes/FakeDisks.h"
#include "fakes/FakeServices.h"
#include "fakes/FakeSound.h"
#include "fakes/FakeVolumes.h"
#include "support/ClipBytes.h"
#include "support/Pictures.h"
#include "support/PlannedSample.h"
#include "support/TemporaryFolder.h"
#include "support/VoicePictures.h"

// Takes pictures of the windows: repvolta_pictures FOLDER light|dark|contrast|touch [FONT SIZE].

namespace repvolta {
namespace {

class SampleOutputs : public AudioOutputs {
 public:
  std::vector<std::string> Names() override { return {"Built-in Audio Analog Stereo"}; }
};

class SampleVoices : public FakeSpeech {
 public:
  std::vector<std::string> VoiceNames() override {
    return {"English (rms) - flite", "English (slt) - flite"};
  }
};

/// A fixed morning, because the pictures show how many days are left.
const FakeClock& SampleClock() {
  static const FakeClock clock(DateOf(2026, 6, 1) + 0.25);
  return clock;
}

QPalette DarkPalette() {
  QPalette dark(QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::Disabled, QPalette::Text, Qt::gray);
  dark.setColor(QPalette::Disabled, QPalette::PlaceholderText, Qt::gray);
  return dark;
}

QPalette HighContrastPalette() {
  QPalette contrast(Qt::white, Qt::black, Qt::white, Qt::black, Qt::gray, Qt::white, Qt::white,
                    Qt::black, Qt::black);
  contrast.setColor(QPalette::Highlight, Qt::yellow);
  contrast.setColor(QPalette::HighlightedText, Qt::black);
  return contrast;
}

ExerciseRecord SampleExercise(const char* name, float value) {
  ExerciseRecord exercise;
  exercise.ExerciseName = name;
  exercise.TargetExerciseTime = 320;
  exercise.TotalMusicTime = 375;
  exercise.NumberOfSets = 3;
  for (int set = 0; set < 3; ++set) {
    exercise.SetValue1[set] = value + 2.5F * static_cast<float>(set);
    exercise.SetValue2[set] = 12;
    exercise.SetIncrement1[set] = 2.5F;
    exercise.SetFrequency1[set] = 7;
    exercise.NextUpdate1[set] = SampleClock().Today() - 2;
    exercise.NextUpdate2[set] = SampleClock().Today();
  }
  exercise.NumberOfMusicFiles = 2;
  exercise.MusicFile[0] = "/home/kim/Music/Café au lait.mp3";
  exercise.MusicFile[1] = "/home/kim/Music/Long Run.mp3";
  return exercise;
}

void MakeProgramDirectory(ProgramState& state) {
  state.WorkoutFileName = "Monday.RPV";
  state.Workout[0] = SampleExercise("Goblet Squat", 20);
  state.Workout[1] = SampleExercise("Bench Press", 40);
  state.Workout[2] = SampleExercise("Overhead Triceps Extension", 5);
  state.Workout[2].RandomMusic = kTrue;
  SaveWorkout(state);
  state.Settings.MusicPath = "/home/kim/Music";
  state.Settings.OutputPath = "/home/kim/Player";
  state.Settings.DefaultExerciseTime = 5;
  state.Settings.IncludeWeightValues = kTrue;
  SaveSettings(state);
}

/// Waits for what the picker finds out in the background.
void AwaitFigure(const SelectDirectory& directory) {
  constexpr int kLimit = 2000;  // milliseconds
  const auto& figure = *directory.findChild<QLabel*>("FigureLabel");
  const QDeadlineTimer limit(kLimit);
  while (figure.text().isEmpty() && !limit.hasExpired()) {
    QApplication::processEvents(QEventLoop::AllEvents, 20);
  }
}

void TakePicker(const Pictures& pictures) {
  const std::string home = QDir::homePath().toStdString();
  const TemporaryFolder player;
  FakeVolumes volumes({{.root = "/"},
                       {.root = home},
                       {.root = "/mnt/nas", .state = Volume::State::kSilent},
                       {.root = WithoutSeparator(player.Path()),
                        .label = "WALKMAN",
                        .kind = Volume::Kind::kRemovable,
                        .freeBytes = 3'200'000'000}});
  SelectDirectory directory(volumes, OutputFolderQuestion({}));
  AwaitFigure(directory);
  pictures.Take(directory, "SelectDirectory");
  auto& drives = *directory.findChild<QComboBox*>("DriveListBox");
  drives.setCurrentIndex(3);
  AwaitFigure(directory);
  pictures.Take(directory, "SelectDirectory-player");
  drives.showPopup();
  pictures.Take(*drives.view()->window(), "SelectDirectory-drives");
}

void TakeMusicDialog(const Pictures& pictures) {
  const TemporaryFolder music;
  PutFile("Song.mp3", "");
  QTimer::singleShot(0, [&] {
    QWidget& dialog = *QApplication::activeModalWidget();
    pictures.Take(dialog, "MusicFileDialog");
  });
  PickMusicFiles(nullptr, music.Path(), music.Path() + "window.ini");
}

void TakeUpdate(const Pictures& pictures) {
  FakeDisks disks;
  UpdateForm update;
  update.OfferEject(disks, [] { return std::string(); });
  update.Show();
  for (const char* line :
       {"Updating Workout Monday.RPV", "Created directory /home/kim/Player/Monday/",
        "Updated Field 1 in exercise - Goblet Squat",
        "RV001-Instructions.mp3 MP3 Instruction file created sucessfully.",
        "RV001-Instructions.mp3  TAG modified OK", "RV002-Café au lait.mp3  TAG modified OK",
        "ERROR: File not found. /home/kim/Music/Long Run.mp3"}) {
    update.AddLine(line);
  }
  update.ShowProgress({.percent = 45,
                       .atHand = "A song with a name that is much longer than the window is wide, "
                                 "and then some more.mp3",
                       .left = std::chrono::seconds(100)});
  update.AddLine("WARNING: What's up?.mp3 is kept as RV003-What's up_.mp3");
  pictures.Take(update, "UpdateForm-running");
  for (const char* line : {"", "UPDATE COMPLETE."}) update.AddLine(line);
  update.ShowProgress({.percent = 100});
  update.UpdateEnds();
  update.ShowOutcome({.text = "Monday: 22 files, 41 min, 1 error, 1 warning",
                      .folder = QDir::homePath().toStdString(),
                      .hint =
                          "How it gets into the player: if the folder is on the player, eject "
                          "the player and unplug it. Otherwise copy the folder to the player."});
  pictures.Take(update, "UpdateForm");
  update.UpdateEnds();
  disks.answer({Ejection::State::kPossible, "WALKMAN", ""});
  pictures.Take(update, "UpdateForm-eject");
  update.findChild<QPushButton*>("EjectButton")->click();
  disks.end("");
  pictures.Take(update, "UpdateForm-ejected");
}

UpdatePlan PlannedWorkout() {
  UpdatePlan plan{};
  plan.workout = "Monday.RPV";
  plan.day = SampleClock().Today();
  plan.folder = "/home/kim/Player/Monday/";
  plan.exercises = {PlannedSample("Goblet Squat", 22.5F, 1), PlannedSample("Bench Press", 42.5F, 3),
                    PlannedSample("Overhead Triceps Extension", 7.5F, 5)};
  plan.exercises[2].files[1].choice = PlannedFile::Choice::kExample;
  plan.seconds = 687;
  plan.bytes = 10'659'000;
  plan.room = DiskRoom{.free = 3'200'000'000, .unit = 4096};
  return plan;
}

void TakePreview(const Pictures& pictures, Program& program) {
  UpdatePlan plan = PlannedWorkout();
  PreviewForm calm(PreviewOf(plan, {}));
  pictures.Take(calm, "PreviewForm-calm");
  plan.problems = {{.kind = PlannedProblem::Kind::kMusicListOld,
                    .severity = PlannedProblem::Severity::kWarning,
                    .exercise = kNoExercise,
                    .row = -1,
                    .text = "The random music list is older than the music."},
                   {.kind = PlannedProblem::Kind::kSongGone,
                    .severity = PlannedProblem::Severity::kError,
                    .exercise = 0,
                    .row = 1,
                    .text = "Goblet Squat: the song /home/kim/Music/Long Run.mp3 is gone."}};
  PreviewForm preview(PreviewOf(plan, {}));
  FakeSoundPlayer player;
  FakeBackgroundSpeech background;
  Listening listening(program, {.player = player,
                                .speech = background,
                                .output = [] { return ChosenOutput{}; },
                                .current = [] { return 0; }});
  preview.OfferListening(listening);
  program.state.Workout[0].ExerciseName = plan.exercises[0].name;
  PutFile("voice/exercise/Goblet Squat.WAV", ClipBytes({0xFD, 0xFD}));
  for (const char* word : {"1", "set", "50", "kilograms", "for", "12", "reps"}) {
    PutFile("voice/" + std::string(word) + ".wav", ClipBytes({0xFD, 0xFD}));
  }
  listening.Play(0);
  pictures.Take(preview, "PreviewForm");
  const std::vector<PlannedProblem> few = plan.problems;
  for (int i = 0; i < 10; ++i) plan.problems.insert(plan.problems.end(), few.begin(), few.end());
  PreviewForm crowded(PreviewOf(plan, {}));
  pictures.Take(crowded, "PreviewForm-crowded");
}

void TakeRestoreBackup(const Pictures& pictures) {
  RestoreBackupForm restore(
      {.heading = "Repvolta backup 2026-05-30.zip, made on 2026-05-30 18.05.12 of "
                  "/home/alex/Training",
       .exchanges = {{"/home/alex", "/home/kim"}, {"/srv/songs", ""}},
       .plan = [](const std::vector<PathExchange>&) {
         return RestoreView{.lines = {"Replaces the settings.",
                                      "Replaces 2 workouts: Monday, Thursday.",
                                      "Adds 14 earlier versions.",
                                      "Leaves 1 workout that the backup does not have: Legs."}};
       }});
  pictures.Take(restore, "RestoreBackupForm");
}

void TakeDialogs(const Pictures& pictures) {
  SelectExerciseDialog exercise({"Arms", "Back", "Chest", "Core", "Legs"}, [](const std::string&) {
    return std::vector<std::string>{"Bench Press", "Cable Crossover", "Chest Dip"};
  });
  pictures.Take(exercise, "SelectExerciseDialog-empty");
  exercise.findChild<QListWidget*>("ExerciseTypeList")->setCurrentRow(2);
  exercise.findChild<QListWidget*>("ExerciseNameList")->setCurrentRow(0);
  pictures.Take(exercise, "SelectExerciseDialog");
  TakePicker(pictures);
  TakeMusicDialog(pictures);
  AboutForm about;
  pictures.Take(about, "AboutForm");
  const SystemClock clock;
  ExerciseRecord squat;
  squat.ExerciseName = "Squat";
  squat.SetValue1[1] = 50;
  InputBox input("Enter new Value:", "Change Exercise Value",
                 SetNumberHelp(squat, 1, kSetList1, clock), "57,5");
  pictures.Take(input, "InputBox");
  MessageBox message("Are you SURE you want to delete workout\r<b>Monday</b>.RPV", "Delete Workout",
                     QMessageBox::Ok | QMessageBox::Cancel);
  pictures.Take(message, "MessageBox");
  RandomMusicMessage wait;
  pictures.Take(wait, "RandomMusicMessage");
  TakeUpdate(pictures);
  TakeRestoreBackup(pictures);
}

/// The example of the guide: entered today, which is a Monday.
ExerciseRecord GrowingExercise() {
  ExerciseRecord exercise = SampleExercise("Bench Press", 50);
  exercise.NumberOfSets = 1;
  exercise.NextUpdate1[0] = SampleClock().Today() + 7;
  return exercise;
}

/// The songs of the sample are on no disk; the guide shows them as if they were.
void ForgetThatSongsAreGone(const RepvoltaForm& form) {
  auto& songs = *form.findChild<RowList*>("MusicList");
  for (int row = 0; row < songs.count(); ++row) {
    songs.item(row)->setIcon({});
    songs.SetRemark(row, "");
  }
  form.findChild<QLabel*>("GoneSongsLabel")->clear();
}

void TakeGrowth(const Pictures& pictures, RepvoltaForm& form, ExerciseRecord& exercise) {
  exercise = GrowingExercise();
  form.UpdateExerciseScreen();
  form.findChild<QListWidget*>("FreqList1")->setCurrentRow(0);
  pictures.TakeOpen(form, "RepvoltaForm-growth");
  form.findChild<QAction*>("GrowthAheadAction")->trigger();
  auto& ahead = *form.findChild<QDialog*>("GrowthAheadForm");
  pictures.Take(ahead, "GrowthAheadForm-daily");
  form.findChild<QAction*>("GrowthAheadAction")->trigger();
  ahead.findChild<QRadioButton*>("WeekdaysButton")->click();
  pictures.Take(ahead, "GrowthAheadForm");
}

void TakeWindow(const Pictures& pictures) {
  const TemporaryFolder folder;
  ProgramState state;
  state.ProgramDirectory = folder.Path();
  MakeProgramDirectory(state);
  TimerSeededNumbers random;
  FakeProcesses processes;
  SampleVoices speech;
  SampleOutputs outputs;
  QtDialogs dialogs;
  UpdateForm progress;
  RandomMusicMessage wait;
  Program program{state, SampleClock(), random, processes, speech};
  FakeSoundPlayer player;
  FakeBackgroundSpeech background;
  RepvoltaForm form(program, dialogs, progress, wait, "");
  form.OfferListening(player, background);
  Form_Load(form.GetEditor(), outputs);
  form.findChild<QListWidget*>("ExerciseList")->setCurrentRow(0);
  auto& tabs = *form.findChild<QTabWidget*>("SSTab1");
  for (const char* name : {"Workout", "Exercise", "Settings"}) {
    form.SelectSet(0);
    Pictures::Settle(form);
    if (tabs.currentIndex() == 1) ForgetThatSongsAreGone(form);
    pictures.TakeOpen(form, QString("RepvoltaForm-") + name);
    if (tabs.currentIndex() == 1) {
      TakeGrowth(pictures, form, state.Workout[state.CurrentExercise]);
    }
    tabs.setCurrentIndex(tabs.currentIndex() + 1);
  }
  tabs.setCurrentIndex(1);
  form.activateWindow();
  form.SelectSet(0);
  form.findChild<QWidget*>("SetListInc1")->setFocus();
  pictures.TakeOpen(form, "RepvoltaForm-Exercise-focus");
  PutFile("voice/exercise/Bench Press.WAV", ClipBytes({0xFD, 0xFD}));
  form.findChild<QPushButton*>("ListenButton")->click();
  pictures.TakeOpen(form, "RepvoltaForm-Exercise-heard");
  for (auto* menu : form.findChildren<QMenu*>()) {
    Q_EMIT menu->aboutToShow();
    pictures.Take(*menu, menu->objectName());
  }
  TakeVoiceWindows(pictures, form.GetEditor(), state);
  TakePreview(pictures, program);
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(QIcon(REPVOLTA_ICON));
  if (argc < 3) return 2;
  QApplication::setStyle(new repvolta::ClearIndicators(
      QString(argv[2]) == "touch" ? repvolta::Pointing::kFinger : repvolta::Pointing::kMouse));
  if (QString(argv[2]) == "dark") QApplication::setPalette(repvolta::DarkPalette());
  if (QString(argv[2]) == "contrast") {
    QApplication::setPalette(repvolta::HighContrastPalette());
  }
  if (argc > 3) {
    QFont font = QApplication::font();
    font.setPointSize(QString(argv[3]).toInt());
    QApplication::setFont(font);
  }
  const repvolta::Pictures pictures(argv[1]);
  repvolta::TakeDialogs(pictures);
  repvolta::TakeWindow(pictures);
  return 0;
}
