#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>
#include <limits>

#include "update/PlanJson.h"

#include "support/SampleDryRun.h"

namespace repvolta {
namespace {

using Severity = PlannedProblem::Severity;

QJsonObject Parsed(const DryRun& run) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(PlanJson(run))).object();
}

QJsonObject Plan(const DryRun& run) { return Parsed(run)["plans"].toArray()[0].toObject(); }

QJsonObject Exercise(const DryRun& run) { return Plan(run)["exercises"].toArray()[0].toObject(); }

QJsonObject FileNumber(const DryRun& run, int index) {
  return Exercise(run)["files"].toArray()[index].toObject();
}

/// Written as a JSON text, which is easier to compare and to read.
std::string Compact(const QJsonValue& value) {
  const QJsonDocument document =
      value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
  return document.toJson(QJsonDocument::Compact).toStdString();
}

TEST(PlanJson, NamesItsFormatItsVersionAndTheDay) {
  const QJsonObject root = Parsed(SampleDryRun());
  EXPECT_EQ(root["format"].toString(), "repvolta-plan");
  EXPECT_EQ(root["version"].toInt(), 1);
  EXPECT_EQ(root["day"].toString(), "2007-03-25");
  EXPECT_EQ(Plan(SampleDryRun())["day"].toString(), "2007-03-25");
}

TEST(PlanJson, HasTheFilesWithTheirTimesAndSizes) {
  EXPECT_EQ(Compact(FileNumber(SampleDryRun(), 0)),
            R"({"bytes":61000,"estimated":true,"example":false,"kind":"instruction",)"
            R"("name":"RV001-Instructions.mp3","seconds":7,)"
            R"("title":"Squat - 1 set, 52.5kg for 10reps"})");
  EXPECT_EQ(
      Compact(FileNumber(SampleDryRun(), 2)),
      R"({"bytes":4750001,"estimated":false,"example":true,"kind":"song",)"
      R"("name":"RV003-Drawn.mp3","seconds":201,"source":"/music/Drawn.mp3","title":"Song"})");
}

TEST(PlanJson, HasWhatIsSaidAndWhatGrows) {
  const QJsonObject exercise = Exercise(SampleDryRun());
  EXPECT_EQ(exercise["name"].toString(), "Squat");
  EXPECT_EQ(exercise["sentence"].toString(), "Squat - 1 set, 52.5kg for 10reps");
  EXPECT_EQ(Compact(exercise["clips"]),
            R"([{"kind":"name","text":"Squat"},{"kind":"word","text":"1"}])");
  EXPECT_EQ(Compact(exercise["growth"]), R"([{"field":1,"from":50,"set":1,"to":52.5}])");
}

TEST(PlanJson, HasTheTotalsAndTheRoom) {
  const QJsonObject plan = Plan(SampleDryRun());
  EXPECT_EQ(plan["seconds"].toInt(), 409);
  EXPECT_EQ(plan["bytes"].toInt(), 9'561'100);
  EXPECT_EQ(Compact(plan["room"]), R"({"free":300999999,"unit":4096})");
  EXPECT_EQ(plan["workout"].toString(), "Monday.RPV");
  EXPECT_EQ(plan["folder"].toString(), "/player/Monday/");
  EXPECT_EQ(plan["playList"].toString(), "Monday.M3U");
}

TEST(PlanJson, HasProblemsOfPlansAndOfAll) {
  DryRun run = SampleDryRun();
  run.plans[0].problems = {SampleProblem(Severity::kError, "A song is gone.")};
  run.problems = {{Severity::kWarning, "Odd."}};
  EXPECT_EQ(Compact(Plan(run)["problems"]),
            R"([{"exercise":1,"kind":"songGone","row":3,"severity":"error",)"
            R"("text":"A song is gone."}])");
  EXPECT_EQ(Compact(Parsed(run)["problems"]), R"([{"severity":"warning","text":"Odd."}])");
}

TEST(PlanJson, HasTheLineThatTheUpdateWouldLog) {
  DryRun run = SampleDryRun();
  run.plans[0].problems = {SampleProblem(Severity::kError, "")};
  run.plans[0].problems[0].line = "ERROR: File not found. /gone.mp3";
  EXPECT_EQ(Plan(run)["problems"].toArray()[0].toObject()["line"].toString(),
            "ERROR: File not found. /gone.mp3");
}

TEST(PlanJson, HasNullForWhatThereIsNot) {
  DryRun run = SampleDryRun();
  UpdatePlan& plan = run.plans[0];
  plan.room.reset();
  plan.exercises[0].files[1].seconds = -1;
  plan.problems = {SampleProblem(Severity::kWarning, "")};
  plan.problems[0].exercise = kNoExercise;
  plan.problems[0].row = -1;
  EXPECT_TRUE(Plan(run)["room"].isNull());
  EXPECT_TRUE(FileNumber(run, 1)["seconds"].isNull());
  EXPECT_TRUE(Plan(run)["problems"].toArray()[0].toObject()["exercise"].isNull());
  EXPECT_TRUE(Plan(run)["problems"].toArray()[0].toObject()["row"].isNull());
}

TEST(PlanJson, HasNumbersAsPeopleReadThem) {
  DryRun run = SampleDryRun();
  SetGrowth& growth = run.plans[0].exercises[0].growth[0];
  growth.from = 0.1F;
  growth.to = std::numeric_limits<float>::infinity();
  growth.failure = "too large";
  EXPECT_EQ(Compact(Exercise(run)["growth"]),
            R"([{"failure":"too large","field":1,"from":0.1,"set":1,"to":null}])");
}

TEST(PlanJson, KeepsBytesThatAreNotUtf8) {
  DryRun run = SampleDryRun();
  run.plans[0].exercises[0].files[1].source = "/m\xfcsic";
  const QJsonObject file = FileNumber(run, 1);
  EXPECT_EQ(file["source"].toString(), "/m" + QString(QChar::ReplacementCharacter) + "sic");
  EXPECT_EQ(file["sourceBytes"].toString(), "2f6dfc736963");
  EXPECT_FALSE(file.contains("nameBytes"));
}

TEST(PlanJson, EndsWithALineFeed) { EXPECT_EQ(PlanJson(SampleDryRun()).back(), '\n'); }

}  // namespace
}  // namespace repvolta
