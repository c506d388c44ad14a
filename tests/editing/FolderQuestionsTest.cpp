#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/FolderQuestions.h"
#include "editing/SettingsEditing.h"

#include "support/EditorFixture.h"

namespace repvolta {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FolderQuestions : public EditorFixture {};

TEST_F(FolderQuestions, OfMusicBeginAtTheMusicPathAndCountSongs) {
  dialogs.answers = {""};
  MusicPathButton_Click(editor);
  EXPECT_THAT(dialogs.questions, ElementsAre(MusicFolderQuestion(state.Settings)));
  EXPECT_EQ(dialogs.questions[0].start, folder.Path() + "music");
  EXPECT_EQ(dialogs.questions[0].figure, FolderQuestion::Figure::kSongs);
  EXPECT_THAT(dialogs.questions[0].purpose, HasSubstr("your music"));
}

TEST_F(FolderQuestions, OfTheOutputBeginAtTheOutputPathAndTellTheRoom) {
  dialogs.answers = {""};
  OutputPathButton_Click(editor);
  EXPECT_THAT(dialogs.questions, ElementsAre(OutputFolderQuestion(state.Settings)));
  EXPECT_EQ(dialogs.questions[0].start, folder.Path() + "player");
  EXPECT_EQ(dialogs.questions[0].figure, FolderQuestion::Figure::kRoom);
  EXPECT_THAT(dialogs.questions[0].purpose, HasSubstr("your workouts"));
}

}  // namespace
}  // namespace repvolta
