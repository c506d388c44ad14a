#include <QAccessible>
#include <QTest>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <semaphore>

#include "base/File.h"
#include "ui/SongMarks.h"

#include "support/FormFixture.h"
#include "support/TemporaryFolder.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A list of two songs, the second of which is gone.
class SongMarksTest : public testing::Test {
 protected:
  SongMarksTest() {
    PutFile("A.mp3", "");
    list.SetRows({"A.mp3", "<b>.mp3"});
    marks.Show({"A.mp3", "<b>.mp3"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return label.text() == "1 song is gone"; }));
  }

  QString Heard(int row, QAccessible::Text what) {
    return QAccessible::queryAccessibleInterface(&list)->child(row)->text(what);
  }

  TemporaryFolder folder;
  RowList list;
  QLabel label;
  SongMarks marks{&list, &label, FileIsReachable};
};

TEST(SongMarks, WaitForNoDiskThatIsSilentAlready) {
  const auto disk = std::make_shared<std::counting_semaphore<>>(0);
  RowList list;
  QLabel label;
  SongMarks marks(&list, &label, [disk](const std::string&) {
    disk->acquire();
    return false;
  });
  list.SetRows({"/nas/A.mp3"});
  marks.Show({"/nas/A.mp3"});
  EXPECT_EQ(list.item(0)->toolTip(),
            "<qt>/nas/A.mp3<br>The disk of this song does not answer.</qt>");
  EXPECT_EQ(label.text(), "");
  for (int i = 0; i < 1000; ++i) marks.Show({"/nas/A.mp3"});
  disk->release();
  EXPECT_TRUE(QTest::qWaitFor([&] { return label.text() == "1 song is gone"; }));
}

TEST_F(SongMarksTest, AreIconsOfTheSongsThatAreGone) {
  EXPECT_TRUE(list.item(0)->icon().isNull());
  EXPECT_FALSE(list.item(1)->icon().isNull());
}

TEST_F(SongMarksTest, LeaveTheRowsAsTheyWere) {
  EXPECT_EQ(list.item(1)->text(), "<b>.mp3");
  EXPECT_EQ(list.visualItemRect(list.item(0)).height(), list.visualItemRect(list.item(1)).height());
}

TEST_F(SongMarksTest, StandBehindTheWholePathInTheToolTip) {
  EXPECT_EQ(list.item(0)->toolTip(), "<qt>A.mp3</qt>");
  EXPECT_EQ(list.item(1)->toolTip(),
            "<qt>&lt;b&gt;.mp3<br>This song is gone: an update leaves it out.</qt>");
}

TEST_F(SongMarksTest, AreHeard) {
  EXPECT_EQ(Heard(0, QAccessible::Description), "");
  EXPECT_EQ(Heard(1, QAccessible::Name), "<b>.mp3");
  EXPECT_EQ(Heard(1, QAccessible::Description), "This song is gone: an update leaves it out.");
}

TEST_F(SongMarksTest, GoWithTheSongsThatComeBack) {
  PutFile("<b>.mp3", "");
  marks.Show({"A.mp3", "<b>.mp3"});
  EXPECT_TRUE(QTest::qWaitFor([&] { return label.text().isEmpty(); }));
  EXPECT_TRUE(list.item(1)->icon().isNull());
  EXPECT_EQ(list.item(1)->toolTip(), "<qt>&lt;b&gt;.mp3</qt>");
}

/// The tab of an exercise.
class SongsOfTheTab : public FormFixture {};

TEST_F(SongsOfTheTab, AreMarkedWhereTheyAreGone) {
  PutFile("music/A.mp3", "");
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.MusicFile[0] = folder.Path() + "music/A.mp3";
  exercise.MusicFile[1] = folder.Path() + "music/B.mp3";
  exercise.NumberOfMusicFiles = 2;
  OpenTab(1);
  auto& label = Get<QLabel>("GoneSongsLabel");
  EXPECT_TRUE(QTest::qWaitFor([&] { return label.text() == "1 song is gone"; }));
  EXPECT_TRUE(label.isVisible());
  EXPECT_FALSE(List("MusicList").item(1)->icon().isNull());
  EXPECT_THAT(Rows("MusicList"),
              ElementsAre(folder.Path() + "music/A.mp3", folder.Path() + "music/B.mp3"));
}

TEST_F(SongsOfTheTab, AreNotCountedForAnExerciseThatCannotBeShown) {
  ExerciseRecord& exercise = AddExercise("Squat");
  exercise.MusicFile[0] = folder.Path() + "music/B.mp3";
  exercise.NumberOfMusicFiles = 1;
  OpenTab(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Text("GoneSongsLabel") == "1 song is gone"; }));
  exercise.NumberOfMusicFiles = 13;
  EXPECT_THROW(form->UpdateExerciseScreen(), std::out_of_range);
  EXPECT_EQ(Text("GoneSongsLabel"), "");
}

/// The list of exercises, of which the first has a recording.
class NamesOfTheTab : public FormFixture {
 protected:
  NamesOfTheTab() {
    PutFile("voice/exercise/Squat.WAV", "");
    AddExercise("Squat");
    AddExercise("Row <b>");
  }
};

TEST_F(NamesOfTheTab, AreMarkedInTheToolTipWhereTheyLackARecording) {
  EXPECT_EQ(List("ExerciseList").item(0)->toolTip().count("recording"), 0);
  const std::string tip = List("ExerciseList").item(1)->toolTip().toStdString();
  EXPECT_THAT(tip, HasSubstr("<qt>Row &lt;b&gt;<br>This name has no recording: the computer speaks "
                             "it.<br>The exercises of the workout."));
  EXPECT_THAT(Rows("ExerciseList"), ElementsAre("Squat", "Row <b>"));
}

TEST_F(NamesOfTheTab, AreHeardWithTheirMarks) {
  const auto heard = [&](int row) {
    return QAccessible::queryAccessibleInterface(&List("ExerciseList"))
        ->child(row)
        ->text(QAccessible::Description);
  };
  EXPECT_EQ(heard(0), "");
  EXPECT_EQ(heard(1), "This name has no recording: the computer speaks it.");
}

}  // namespace
}  // namespace repvolta
