#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "ui/EjectButton.h"

#include "fakes/FakeDisks.h"

namespace repvolta {
namespace {

using Names = std::vector<std::string>;

const Ejection kNone;
const Ejection kPossible{Ejection::State::kPossible, "WALKMAN", ""};
const Ejection kRefused{Ejection::State::kRefused, "WALKMAN", "Something is mounted."};

class EjectButtonTest : public testing::Test {
 protected:
  EjectButtonTest() {
    button.hide();
    button.Use(disks, [this] { return outputPath; });
    QObject::connect(&button, &EjectButton::Said,
                     [this](const QString& line) { said.push_back(line.toStdString()); });
  }

  void FinishUpdate(const Ejection& ejection) {
    button.UpdateBegins();
    disks.answer(ejection);
    button.UpdateEnds();
    disks.answer(ejection);
    said.clear();
  }
  std::string Hint() const {
    EXPECT_EQ(button.toolTip(), button.accessibleDescription());
    return button.toolTip().toStdString();
  }

  FakeDisks disks;
  std::string outputPath = "/media/WALKMAN";
  EjectButton button;
  Names said;
};

TEST_F(EjectButtonTest, StaysHiddenWhereNoDiskCanBeUnplugged) {
  FinishUpdate(kNone);
  EXPECT_TRUE(button.isHidden());
  EXPECT_EQ(disks.asked, (Names{"/media/WALKMAN", "/media/WALKMAN"}));
}

TEST_F(EjectButtonTest, StaysHiddenWhileNobodyHasAnswered) {
  button.UpdateBegins();
  button.UpdateEnds();
  EXPECT_TRUE(button.isHidden());
}

TEST_F(EjectButtonTest, IsGreyWhileTheUpdateWrites) {
  button.UpdateBegins();
  disks.answer(kPossible);
  EXPECT_FALSE(button.isHidden());
  EXPECT_FALSE(button.isEnabled());
  EXPECT_EQ(Hint(), "The update still writes to WALKMAN.");
}

TEST_F(EjectButtonTest, CanBePressedAfterAnUpdate) {
  FinishUpdate(kPossible);
  EXPECT_FALSE(button.isHidden());
  EXPECT_TRUE(button.isEnabled());
  EXPECT_EQ(Hint(), "Make WALKMAN ready to be unplugged");
}

TEST_F(EjectButtonTest, IsGreyWithTheReasonWhenItCannotEject) {
  FinishUpdate(kRefused);
  EXPECT_FALSE(button.isHidden());
  EXPECT_FALSE(button.isEnabled());
  EXPECT_EQ(Hint(), "Something is mounted.");
}

TEST_F(EjectButtonTest, CannotBePressedTwiceAtOnce) {
  FinishUpdate(kPossible);
  button.click();
  EXPECT_FALSE(button.isEnabled());
  button.click();
  EXPECT_EQ(disks.ejected, (Names{"/media/WALKMAN"}));
  EXPECT_EQ(said, (Names{"WALKMAN is being ejected. Do not unplug it yet."}));
}

TEST_F(EjectButtonTest, SaysWhenTheDiskCanBeUnplugged) {
  FinishUpdate(kPossible);
  button.click();
  disks.end("");
  EXPECT_EQ(said.back(), "WALKMAN can be unplugged now.");
  EXPECT_EQ(Hint(), "WALKMAN can be unplugged now.");
  EXPECT_FALSE(button.isEnabled());
}

TEST_F(EjectButtonTest, SaysWhatWentWrongAndCanBeTriedAgain) {
  FinishUpdate(kPossible);
  button.click();
  disks.end("WALKMAN is still in use.");
  EXPECT_EQ(said.back(), "WALKMAN is still in use.");
  EXPECT_TRUE(button.isEnabled());
  button.click();
  disks.end("");
  EXPECT_EQ(said.back(), "WALKMAN can be unplugged now.");
}

TEST_F(EjectButtonTest, EjectsTheDiskToWhichTheUpdateWrote) {
  FinishUpdate(kPossible);
  outputPath = "/home/me/other";
  button.click();
  EXPECT_EQ(disks.ejected, (Names{"/media/WALKMAN"}));
}

TEST_F(EjectButtonTest, ForgetsTheLastEjectionWhenAnUpdateBegins) {
  FinishUpdate(kPossible);
  button.click();
  disks.end("");
  button.UpdateBegins();
  EXPECT_EQ(said.back(), "");
  EXPECT_FALSE(button.isEnabled());
}

TEST_F(EjectButtonTest, StaysAsItIsWhenOtherCommandsEnd) {
  FinishUpdate(kPossible);
  button.click();
  disks.end("");
  const std::size_t before = disks.asked.size();
  button.UpdateEnds();
  EXPECT_EQ(disks.asked.size(), before);
  EXPECT_EQ(said.back(), "WALKMAN can be unplugged now.");
}

TEST_F(EjectButtonTest, IsHiddenAgainWhenTheOutputPathIsElsewhere) {
  FinishUpdate(kPossible);
  FinishUpdate(kNone);
  EXPECT_TRUE(button.isHidden());
}

TEST(EjectButton, DoesNothingWithoutDisks) {
  EjectButton button;
  button.hide();
  button.UpdateBegins();
  button.UpdateEnds();
  EXPECT_TRUE(button.isHidden());
}

}  // namespace
}  // namespace repvolta
