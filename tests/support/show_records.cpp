#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <cstring>
#include <string>

#include "app/RecordFormat.h"
#include "base/WholeFile.h"

// Prints the content of a settings or workout file as JSON, and whether encoding the records gives
// the same file, byte for byte.

namespace repvolta {
namespace {

QString Text(const std::string& text) { return QString::fromStdString(text); }

template <class Values>
QJsonArray First(const Values& values, int count) {
  QJsonArray array;
  for (int i = 0; i < count; ++i) array << QJsonValue(values[i]);
  return array;
}

QJsonArray Music(const ExerciseRecord& exercise) {
  QJsonArray music;
  for (int i = 0; i < exercise.NumberOfMusicFiles; ++i) {
    music << QJsonArray{Text(exercise.MusicFile[i].Text()), exercise.MusicFilePlayTime[i]};
  }
  return music;
}

QJsonObject Exercise(const ExerciseRecord& exercise) {
  const int sets = exercise.NumberOfSets;
  return {{"name", Text(exercise.ExerciseName.Text())},
          {"music", Music(exercise)},
          {"target", exercise.TargetExerciseTime},
          {"total", exercise.TotalMusicTime},
          {"type", exercise.SetType},
          {"units", exercise.Units},
          {"random", exercise.RandomMusic},
          {"values1", First(exercise.SetValue1, sets)},
          {"values2", First(exercise.SetValue2, sets)},
          {"increments1", First(exercise.SetIncrement1, sets)},
          {"increments2", First(exercise.SetIncrement2, sets)},
          {"frequencies1", First(exercise.SetFrequency1, sets)},
          {"frequencies2", First(exercise.SetFrequency2, sets)},
          {"dates1", First(exercise.NextUpdate1, sets)},
          {"dates2", First(exercise.NextUpdate2, sets)}};
}

QJsonObject Workout(const Bytes& file) {
  const ExerciseSlots workout = DecodeWorkout(file);
  QJsonArray exercises;
  for (const ExerciseRecord& exercise : workout) {
    if (!exercise.ExerciseName.IsBlank()) exercises << Exercise(exercise);
  }
  return {{"whole", EncodeWorkout(workout) == file}, {"exercises", exercises}};
}

QJsonObject Settings(const Bytes& file) {
  const SettingsRecord settings = DecodeSettings(file);
  return {{"whole", EncodeSettings(settings) == file},
          {"music", Text(settings.MusicPath.Text())},
          {"output", Text(settings.OutputPath.Text())},
          {"time", settings.DefaultExerciseTime},
          {"voice", settings.VoiceIndex},
          {"rate", settings.VoiceRate},
          {"volume", settings.VoiceVolume},
          {"format", Text(settings.AudioFormat)},
          {"playlist", settings.AutoLoadPlaylist},
          {"weights", settings.IncludeWeightValues},
          {"last", settings.LastWorkoutIndex}};
}

}  // namespace
}  // namespace repvolta

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string path = argv[1];
  const repvolta::Bytes file = repvolta::ReadWholeFile(path, 2 * repvolta::kWorkoutFileSize);
  const QJsonObject shown =
      path.ends_with(".RPV") ? repvolta::Workout(file) : repvolta::Settings(file);
  std::puts(QJsonDocument(shown).toJson().constData());
}
