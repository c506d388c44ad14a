#include "support/FormFixture.h"

#include "ui/VoiceActions.h"

namespace repvolta {

FormFixture::FormFixture() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(folder.Path() + "desktop"));
  state.ProgramDirectory = folder.Path();
  state.Settings.DefaultExerciseTime = 5;
  state.Settings.OutputPath = folder.Path() + "player";
  state.Settings.MusicPath = folder.Path() + "music";
  std::filesystem::create_directory("player");
  std::filesystem::create_directory("music");
  OpenForm();
  ListWorkouts({"Monday"});
  Load("Monday.RPV");
}

FormFixture::~FormFixture() = default;

void FormFixture::OpenForm() {
  form.reset();
  form = std::make_unique<RepvoltaForm>(program, dialogs, progress, pleaseWait, layoutFile);
  form->OfferListening(player, backgroundSpeech);
  form->GetVoiceActions().Offer({.player = player, .speech = backgroundSpeech});
  form->show();
}

void FormFixture::ListWorkouts(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    PutFile("workouts/" + name + ".RPV", EncodeWorkout({}));
  }
  repvolta::ListWorkouts(form->GetEditor());
}

void FormFixture::Load(const std::string& fileName) {
  const auto& names = state.WorkoutNames;
  form->SelectWorkout(
      static_cast<int>(std::find(names.begin(), names.end(), fileName) - names.begin()));
  state.WorkoutFileName = fileName;
  LoadAndShowWorkout(form->GetEditor());
  form->EnableWorkoutControls();
}

ExerciseRecord& FormFixture::AddExercise(const std::string& name) {
  ExerciseRecord& exercise = state.Workout[state.NumberOfExercises++];
  InitialiseExercise(exercise, state.Settings, clock.Today());
  exercise.ExerciseName = name;
  Show();
  return exercise;
}

void FormFixture::Show() {
  SaveWorkout(state);
  form->UpdateWorkoutScreen();
  form->UpdateExerciseScreen();
}

void FormFixture::OpenTab(int index) { Get<QTabWidget>("SSTab1").setCurrentIndex(index); }

void FormFixture::Click(const char* name) {
  auto& button = Get<QAbstractButton>(name);
  QTest::mouseClick(&button, Qt::LeftButton, {}, {button.height() / 2, button.height() / 2});
}

RowList& FormFixture::List(const char* name) { return Get<RowList>(name); }

void FormFixture::ClickRow(const char* list, int row) {
  QTest::mouseClick(List(list).viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
}

void FormFixture::DoubleClickRow(const char* list, int row) {
  ClickRow(list, row);
  QTest::mouseDClick(List(list).viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
}

QPoint FormFixture::PlaceOf(const char* list, int row) {
  return List(list).visualItemRect(List(list).item(row)).center();
}

std::vector<std::string> FormFixture::Rows(const char* list) {
  std::vector<std::string> rows;
  for (int i = 0; i < List(list).count(); ++i) {
    rows.push_back(List(list).item(i)->text().toStdString());
  }
  return rows;
}

std::string FormFixture::Text(const char* label) { return Get<QLabel>(label).text().toStdString(); }

}  // namespace repvolta
