#include "update/PlanJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

#include "base/Numbers.h"
#include "update/PlanText.h"

namespace repvolta {
namespace {

constexpr int kFormatVersion = 1;

/// Adds a text. If JSON cannot hold its bytes, since they are not UTF-8, U+FFFD stands for those,
/// and a second key, with "Bytes" behind it, has all bytes in hexadecimal.
void Put(QJsonObject& object, const QString& key, const std::string& text) {
  const QString held = QString::fromStdString(text);
  object[key] = held;
  if (held.toStdString() == text) return;
  object[key + "Bytes"] = QString::fromLatin1(QByteArray::fromStdString(text).toHex());
}

/// The decimal number that a person reads, not that of the single-precision bits behind it; null
/// for a number that JSON cannot hold.
QJsonValue ValueOf(float number) {
  if (!std::isfinite(number)) return QJsonValue::Null;
  return LeadingNumber(ListNumberText(number));
}

QJsonValue ValueOf(std::uint64_t bytes) { return static_cast<qint64>(bytes); }

/// An index counted from 1; null where there is none.
QJsonValue NumberOf(int index) { return index < 0 ? QJsonValue() : QJsonValue(index + 1); }

QJsonObject ObjectOf(const Clip& clip);
QJsonObject ObjectOf(const DryRunProblem& problem);
QJsonObject ObjectOf(const PlannedExercise& exercise);
QJsonObject ObjectOf(const PlannedFile& file);
QJsonObject ObjectOf(const PlannedProblem& problem);
QJsonObject ObjectOf(const SetGrowth& growth);
QJsonObject ObjectOf(const UpdatePlan& plan);

template <class Item>
QJsonArray ArrayOf(const std::vector<Item>& items) {
  QJsonArray array;
  for (const Item& item : items) array.append(ObjectOf(item));
  return array;
}

QString NameOf(PlannedProblem::Kind kind) {
  using Kind = PlannedProblem::Kind;
  switch (kind) {
    case Kind::kSongGone:
      return "songGone";
    case Kind::kOddSong:
      return "oddSong";
    case Kind::kNoRecording:
      return "noRecording";
    case Kind::kUnspeakable:
      return "unspeakable";
    case Kind::kGrowth:
      return "growth";
    case Kind::kDateAhead:
      return "dateAhead";
    case Kind::kNoSongFits:
      return "noSongFits";
    case Kind::kMusicListEmpty:
      return "musicListEmpty";
    case Kind::kMusicListOld:
      return "musicListOld";
    case Kind::kNoOutputPath:
      return "noOutputPath";
    case Kind::kLackOfRoom:
      return "lackOfRoom";
    case Kind::kNoEncoder:
      return "noEncoder";
    case Kind::kDamagedWorkout:
      return "damagedWorkout";
    case Kind::kNotSaved:
      return "notSaved";
  }
  return {};
}

QString NameOf(PlannedProblem::Severity severity) {
  return severity == PlannedProblem::Severity::kError ? "error" : "warning";
}

QJsonObject ObjectOf(const DryRunProblem& problem) {
  QJsonObject object{{"severity", NameOf(problem.severity)}};
  Put(object, "text", problem.text);
  return object;
}

QJsonObject ObjectOf(const PlannedProblem& problem) {
  QJsonObject object = ObjectOf(DryRunProblem{problem.severity, problem.text});
  object["kind"] = NameOf(problem.kind);
  object["exercise"] = NumberOf(problem.exercise);
  object["row"] = NumberOf(problem.row);
  if (!problem.line.empty()) Put(object, "line", problem.line);
  return object;
}

QJsonObject ObjectOf(const SetGrowth& growth) {
  QJsonObject object{{"set", growth.set + 1},
                     {"field", growth.field},
                     {"from", ValueOf(growth.from)},
                     {"to", ValueOf(growth.to)}};
  if (growth.failure) Put(object, "failure", *growth.failure);
  return object;
}

QJsonObject ObjectOf(const Clip& clip) {
  QJsonObject object{{"kind", clip.kind == Clip::Kind::kName ? "name" : "word"}};
  Put(object, "text", clip.text);
  return object;
}

QJsonObject ObjectOf(const PlannedFile& file) {
  const bool isSong = file.kind == PlannedFile::Kind::kSong;
  QJsonObject object{{"kind", isSong ? "song" : "instruction"},
                     {"seconds", file.seconds < 0 ? QJsonValue() : QJsonValue(file.seconds)},
                     {"bytes", ValueOf(file.bytes)},
                     {"estimated", file.figures == PlannedFile::Figures::kEstimated},
                     {"example", file.choice == PlannedFile::Choice::kExample}};
  Put(object, "name", file.name);
  Put(object, "title", file.title);
  if (isSong) Put(object, "source", file.source);
  return object;
}

QJsonObject ObjectOf(const PlannedExercise& exercise) {
  QJsonObject object{{"growth", ArrayOf(exercise.growth)},
                     {"clips", ArrayOf(exercise.clips)},
                     {"files", ArrayOf(exercise.files)}};
  Put(object, "name", exercise.name);
  Put(object, "sentence", exercise.sentence);
  return object;
}

QJsonValue ValueOf(const std::optional<DiskRoom>& room) {
  if (!room) return QJsonValue::Null;
  return QJsonObject{{"free", ValueOf(room->free)}, {"unit", ValueOf(room->unit)}};
}

QJsonValue ValueOfDay(double day) {
  const std::string text = IsoDayText(day);
  return text.empty() ? QJsonValue() : QJsonValue(QString::fromStdString(text));
}

QJsonObject ObjectOf(const UpdatePlan& plan) {
  QJsonObject object{
      {"day", ValueOfDay(plan.day)},        {"exercises", ArrayOf(plan.exercises)},
      {"problems", ArrayOf(plan.problems)}, {"seconds", static_cast<qint64>(plan.seconds)},
      {"bytes", ValueOf(plan.bytes)},       {"room", ValueOf(plan.room)}};
  Put(object, "workout", plan.workout);
  Put(object, "folder", plan.folder);
  Put(object, "playList", plan.playList);
  return object;
}

}  // namespace

std::string PlanJson(const DryRun& run) {
  const QJsonObject object{{"format", "repvolta-plan"},
                           {"version", kFormatVersion},
                           {"day", ValueOfDay(run.day)},
                           {"plans", ArrayOf(run.plans)},
                           {"problems", ArrayOf(run.problems)}};
  return QJsonDocument(object).toJson().toStdString();
}

}  // namespace repvolta
