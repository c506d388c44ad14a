#include <gtest/gtest.h>

#include "ui/Mnemonics.h"

namespace repvolta {
namespace {

TEST(Mnemonics, AreTakenOutOfATextWithoutItsOtherSigns) {
  EXPECT_EQ(WithoutMnemonic("Add &New Set"), "Add New Set");
  EXPECT_EQ(WithoutMnemonic("Songs && &Sets"), "Songs && Sets");
  EXPECT_EQ(WithoutMnemonic("None"), "None");
}

TEST(Mnemonics, StayWhereTheirLetterIsFree) {
  EXPECT_EQ(WithMnemonics({"&Add", "Re&move"}), QStringList({"&Add", "Re&move"}));
}

TEST(Mnemonics, GoToAnotherLetterWhenTheirsIsTaken) {
  EXPECT_EQ(WithMnemonics({"&New Set", "Add &New Exercise"}),
            QStringList({"&New Set", "&Add New Exercise"}));
}

TEST(Mnemonics, GiveWayToALaterLineThatAlreadyHasTheLetter) {
  EXPECT_EQ(WithMnemonics({"Open", "&Out"}), QStringList({"O&pen", "&Out"}));
}

TEST(Mnemonics, PreferTheBeginningOfAWord) {
  EXPECT_EQ(WithMnemonics({"&Show", "Show Dates"}), QStringList({"&Show", "Show &Dates"}));
}

TEST(Mnemonics, AreNoLettersOfTheKey) {
  EXPECT_EQ(WithMnemonics({"&A", "A\tIns"}), QStringList({"&A", "A\tIns"}));
}

TEST(Mnemonics, LeaveSeparatorsEmpty) {
  EXPECT_EQ(WithMnemonics({"&A", "", "B"}), QStringList({"&A", "", "&B"}));
}

}  // namespace
}  // namespace repvolta
