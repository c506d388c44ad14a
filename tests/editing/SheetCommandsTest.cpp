#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/SheetCommands.h"

#include "support/EditorFixture.h"
#include "support/FailureOf.h"
#include "support/FullDisk.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The workout "Monday" with one exercise.
class SheetCommands : public EditorFixture {
 protected:
  SheetCommands() { AddNewExercise("Squat"); }

  void Print(Printing outcome) {
    PrintWorkout(editor, [&](const WorkoutSheet& sheet) {
      printed_.push_back(sheet.name);
      return outcome;
    });
  }

  void SavePdf() {
    SaveWorkoutAsPdf(editor, [](const WorkoutSheet& sheet) {
      const std::string text = "%PDF of " + sheet.name + std::string(1000, '.');
      return Bytes(text.begin(), text.end());
    });
  }

  std::vector<std::string> printed_;
  const std::string path_ = folder.Path() + "sheet.pdf";
};

TEST_F(SheetCommands, PrintTheWorkoutInMemory) {
  Print(Printing::kSent);
  EXPECT_THAT(printed_, ElementsAre("Monday"));
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

TEST_F(SheetCommands, SayThatThereIsNoPrinterAndWhatRemains) {
  Print(Printing::kNoPrinter);
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("No printer is set up on this computer. \"Save "
                                                   "as PDF ...\"")));
}

TEST_F(SheetCommands, SayNothingWhenThePersonCancels) {
  Print(Printing::kCancelled);
  dialogs.answers = {""};
  SavePdf();
  EXPECT_THAT(dialogs.asked, ElementsAre("save|Save as PDF|Monday.pdf"));
}

TEST_F(SheetCommands, WriteThePdf) {
  dialogs.answers = {path_};
  SavePdf();
  EXPECT_THAT(GetTextFile(path_), testing::StartsWith("%PDF of Monday"));
  EXPECT_EQ(dialogs.asked.back(), "message|Save as PDF|The sheet of Monday is in " + path_ + ".");
}

TEST_F(SheetCommands, ReplaceAFileOnlyAsAWhole) {
  PutFile(path_, "before");
  dialogs.answers = {path_};
  {
    const FullDisk full(100);
    EXPECT_THAT(FailureOf([&] { SavePdf(); }), HasSubstr("sheet.pdf could not be written"));
  }
  EXPECT_EQ(GetTextFile(path_), "before");
}

TEST_F(SheetCommands, SayThatAWorkoutHasNoExercises) {
  state.NumberOfExercises = 0;
  Print(Printing::kSent);
  SavePdf();
  EXPECT_THAT(printed_, IsEmpty());
  EXPECT_THAT(dialogs.asked, ElementsAre("message|Print|The workout has no exercises.",
                                         "message|Save as PDF|The workout has no exercises."));
}

TEST_F(SheetCommands, RefuseADamagedWorkout) {
  state.Workout[0].NumberOfSets = 99;
  Print(Printing::kSent);
  EXPECT_THAT(printed_, IsEmpty());
  EXPECT_THAT(dialogs.asked, ElementsAre(HasSubstr("Monday.RPV seems to be damaged")));
}

TEST_F(SheetCommands, DoNothingWithoutAWorkout) {
  state.WorkoutFileName = "";
  Print(Printing::kSent);
  SavePdf();
  EXPECT_THAT(printed_, IsEmpty());
  EXPECT_THAT(dialogs.asked, IsEmpty());
}

}  // namespace
}  // namespace repvolta
