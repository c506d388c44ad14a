#include <QImage>

#include "support/FormFixture.h"

namespace repvolta {
namespace {

constexpr const char* kSetLists[] = {"SetList1",  "SetList2",  "SetListInc1",   "SetListInc2",
                                     "FreqList1", "FreqList2", "NextUpdateList"};

/// The lists of an exercise with three sets, of which the second is selected; the focus is in
/// SetListInc1. The colours of a selection differ between lists with and without the focus.
class RowPainter : public FormFixture {
 protected:
  RowPainter() {
    AddExercise("Squat").NumberOfSets = 3;
    Show();
    OpenTab(1);
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    QPalette palette = form->palette();
    palette.setColor(QPalette::Active, QPalette::Highlight, kSelected);
    palette.setColor(QPalette::Inactive, QPalette::Highlight, Qt::lightGray);
    palette.setColor(QPalette::HighlightedText, kSelectedText);
    palette.setColor(QPalette::Text, kText);
    form->setPalette(palette);
    form->SelectSet(1);
    List("SetListInc1").setFocus();
  }

  /// The colour near the right end of a row.
  QColor GroundOf(const char* list, int row) {
    const QRect place = List(list).visualItemRect(List(list).item(row));
    return ImageOf(list).pixelColor(place.right() - 6, place.center().y());
  }

  QImage ImageOf(const char* list) { return List(list).viewport()->grab().toImage(); }

  /// True when all pixels along the edge of the list have the colour of the text.
  bool HasFrame(const char* list) {
    const QImage image = ImageOf(list);
    for (int x = 0; x < image.width(); ++x) {
      for (const int y : {0, 1, image.height() - 1}) {
        if (image.pixelColor(x, y) != kText) return false;
      }
    }
    return true;
  }

  static constexpr QColor kSelected{0, 0, 200};
  static constexpr QColor kSelectedText{250, 250, 0};
  static constexpr QColor kText{200, 0, 0};
};

TEST_F(RowPainter, ShowsTheSelectedSetInOneColourInAllLists) {
  for (const char* list : kSetLists) {
    EXPECT_EQ(GroundOf(list, 1), kSelected) << list;
    EXPECT_NE(GroundOf(list, 0), kSelected) << list;
  }
}

TEST_F(RowPainter, FramesOnlyTheListWithTheFocus) {
  for (const char* list : kSetLists) {
    EXPECT_EQ(HasFrame(list), std::string(list) == "SetListInc1") << list;
  }
  List("NextUpdateList").setFocus();
  EXPECT_FALSE(HasFrame("SetListInc1"));
  EXPECT_TRUE(HasFrame("NextUpdateList"));
}

TEST_F(RowPainter, FramesTheRowWithTheFocus) {
  const QRect place = List("SetListInc1").visualItemRect(List("SetListInc1").item(1));
  EXPECT_EQ(ImageOf("SetListInc1").pixelColor(place.center().x(), place.top()), kSelectedText);
  EXPECT_NE(ImageOf("SetListInc2").pixelColor(place.center().x(), place.top()), kSelectedText);
}

TEST_F(RowPainter, FramesAnEmptyListThatHasTheFocus) {
  state.Workout[0].NumberOfSets = 0;
  form->UpdateExerciseScreen();
  EXPECT_TRUE(HasFrame("SetListInc1"));
}

TEST_F(RowPainter, FramesTheOtherListsToo) {
  List("MusicList").setFocus();
  EXPECT_TRUE(HasFrame("MusicList"));
}

}  // namespace
}  // namespace repvolta
