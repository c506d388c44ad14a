#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/ListMusic.h"
#include "update/Steps.h"

#include "fakes/RecordingProgress.h"
#include "fakes/ScriptedDialogs.h"
#include "support/WindowlessFixture.h"

namespace repvolta {
namespace {

/// Music in the folder of the settings, and a list of an earlier day.
class MusicToList : public WindowlessFixture {
 protected:
  MusicToList() {
    state.Settings.MusicPath = folder.Path() + "music ";
    PutFile("music/a.mp3", "");
    PutFile("musiclist.txt", "old\n");
  }

  void List(const std::function<void()>& runEvents) {
    ListMusic(Editor{program, window, window, window, window, window, pleaseWait, runEvents});
  }

  RecordingPleaseWait pleaseWait;
};

TEST_F(MusicToList, IsListedWhileTheWindowAsksForPatience) {
  bool wasVisible = false;
  List([&] { wasVisible = pleaseWait.visible; });
  EXPECT_TRUE(wasVisible);
  EXPECT_FALSE(pleaseWait.visible);
  EXPECT_EQ(GetTextFile("musiclist.txt"), folder.Path() + "music/a.mp3\n");
}

TEST_F(MusicToList, StaysAsListedBeforeWhenThePersonEndsTheProgram) {
  EXPECT_THROW(List([] { throw UpdateStopped(); }), UpdateStopped);
  EXPECT_FALSE(pleaseWait.visible);
  EXPECT_EQ(GetTextFile("musiclist.txt"), "old\n");
}

}  // namespace
}  // namespace repvolta
