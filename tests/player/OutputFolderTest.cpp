#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/FileError.h"
#include "player/OutputFolder.h"

#include "support/AtOpening.h"
#include "support/FailingClose.h"
#include "support/FullDisk.h"
#include "support/TemporaryFolder.h"
#include "support/UnreadableFile.h"

namespace repvolta {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class OutputDirectory : public testing::Test {
 protected:
  OutputDirectory() { fs::create_directories("player"); }

  std::string Full(const std::string& path) const { return folder.Path() + path; }

  OutputFolder Monday() const { return {Full("player"), "Monday"}; }

  TemporaryFolder folder;
};

/// The reason why the folder is not deleted; empty when it is.
std::string Refusal(OutputFolder& output, const Keepsakes& keep = {}) {
  try {
    output.Clear(keep);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST_F(OutputDirectory, LiesInTheOutputPathUnderTheWorkoutsName) {
  EXPECT_EQ(OutputFolder("/player", "Monday").Path(), "/player/Monday/");
  EXPECT_EQ(OutputFolder("/player", "Monday  ").Path(), "/player/Monday/");
}

TEST_F(OutputDirectory, IsDeletedWithAllThatIsInIt) {
  PutFile("player/Monday/RV001-Instructions.mp3", "old");
  PutFile("player/Monday/deep/er/read-only.mp3", "old");
  fs::permissions("player/Monday/deep/er/read-only.mp3", fs::perms::owner_read);
  fs::permissions("player/Monday/deep/er", fs::perms::owner_read | fs::perms::owner_exec);
  OutputFolder output = Monday();

  output.Clear({.folders = {Full("music"), folder.Path(), ""}});
  EXPECT_FALSE(fs::exists("player/Monday"));

  output.Create();
  EXPECT_TRUE(fs::is_empty("player/Monday"));
}

TEST_F(OutputDirectory, DeletesLinksAndNotWhatTheyPointTo) {
  PutFile("music/precious.mp3", "song");
  fs::create_directories("player/Monday");
  fs::create_directory_symlink(Full("music"), "player/Monday/music");
  OutputFolder output = Monday();

  output.Clear({});

  EXPECT_EQ(GetTextFile("music/precious.mp3"), "song");
}

TEST_F(OutputDirectory, IsNotDeletedOutsideTheOutputPath) {
  PutFile("player/kept", "");
  for (const char* name : {"..", ".", "", "  ", ".. ", "a/b"}) {
    OutputFolder output(Full("player"), name);
    EXPECT_THAT(Refusal(output), HasSubstr("it does not lie in the output path")) << name;
    EXPECT_THROW(output.WriteInto("kept", "new"), FileError);
    EXPECT_THROW(output.WriteInto("RV001-Instructions.mp3", "new"), FileError);
  }
  EXPECT_TRUE(fs::exists("player/kept"));
}

TEST_F(OutputDirectory, IsNotDeletedThroughALink) {
  PutFile("music/precious.mp3", "song");
  fs::create_directory_symlink(Full("music"), "player/Monday");
  OutputFolder output = Monday();

  EXPECT_THAT(Refusal(output), HasSubstr("it is a link"));

  EXPECT_TRUE(fs::exists("music/precious.mp3"));
  EXPECT_THROW(output.CopyInto("music/precious.mp3", "RV001-x.mp3"), FileError);
}

TEST_F(OutputDirectory, IsNotDeletedWhenItIsOrHoldsAFolderToKeep) {
  PutFile("player/Monday/music/song.mp3", "song");
  for (const char* keep : {"player/Monday", "player/Monday/music", "player/Monday/music/gone"}) {
    OutputFolder output = Monday();
    EXPECT_THAT(Refusal(output, {.folders = {Full(keep)}}), HasSubstr("lies there")) << keep;
  }
  EXPECT_TRUE(fs::exists("player/Monday/music/song.mp3"));
}

TEST_F(OutputDirectory, IsNotDeletedWhenALinkedFolderToKeepLiesInIt) {
  PutFile("player/Monday/song.mp3", "song");
  fs::create_directory_symlink(Full("player/Monday"), "music");
  OutputFolder output = Monday();
  EXPECT_THAT(Refusal(output, {.folders = {Full("music")}}), HasSubstr("lies there"));
}

TEST_F(OutputDirectory, IsDeletedBesideAFolderToKeep) {
  PutFile("player/Monday/old.mp3", "");
  fs::create_directories("player/Monday music");
  OutputFolder output = Monday();
  EXPECT_EQ(Refusal(output, {.folders = {Full("player/Monday music"), Full("player")}}), "");
}

TEST_F(OutputDirectory, IsNotDeletedWhenASongLiesInIt) {
  PutFile("player/Monday/lead.mp3", "song");
  PutFile("player/Monday/disc 2/RV02-end.mp3", "song");
  fs::create_directory_symlink(Full("player"), "music");
  for (const char* song : {"player/Monday/lead.mp3", "player/Monday/disc 2/RV02-end.mp3",
                           "music/Monday/lead.mp3", "player/../player/Monday/lead.mp3"}) {
    OutputFolder output = Monday();
    EXPECT_EQ(Refusal(output, {.songs = {Full("gone.mp3"), Full(song)}}),
              Full("player/Monday is not deleted: ") + Full(song) + " lies there");
  }
  EXPECT_EQ(GetTextFile("player/Monday/lead.mp3"), "song");
}

TEST_F(OutputDirectory, IsNotDeletedWhenASongLeadsIntoIt) {
  PutFile("player/Monday/lead.mp3", "song");
  fs::create_symlink(Full("player/Monday/lead.mp3"), "other name.mp3");
  OutputFolder output = Monday();
  EXPECT_THAT(Refusal(output, {.songs = {Full("other name.mp3")}}), HasSubstr("lies there"));
}

TEST_F(OutputDirectory, IsNotDeletedWhenAListedSongLiesInIt) {
  PutFile("player/Monday/Lead.mp3", "song");
  for (const std::string& list : {Full("player/Monday/Lead.mp3"),
                                  "/gone.mp3\r\n " + Full("player/Monday/Lead.mp3") + " \r\n"}) {
    PutFile("list", list);
    OutputFolder output = Monday();
    EXPECT_EQ(Refusal(output, {.songList = "list"}),
              Full("player/Monday is not deleted: ") + Full("player/Monday/Lead.mp3 lies there"));
  }
}

TEST_F(OutputDirectory, IsNotDeletedWhenAListedSongHasItsNameInAnotherCase) {
  PutFile("player/Monday/lead.mp3", "song");
  // Both names open the same song, as on a disk that ignores case.
  fs::create_symlink(Full("player/Monday/lead.mp3"), "LEAD.MP3");
  PutFile("list", Full("LEAD.MP3\n"));
  OutputFolder output = Monday();
  EXPECT_THAT(Refusal(output, {.songList = "list"}), HasSubstr("lies there"));
}

TEST_F(OutputDirectory, IsDeletedBesideListedSongs) {
  PutFile("player/Monday/lead.mp3", "a copy of the person's own");
  PutFile("player/lead.mp3", "song");
  PutFile("player/Monday music/lead.mp3", "song");
  PutFile("list", Full("player/lead.mp3\n") + Full("player/Monday music/lead.mp3\n\n"));
  OutputFolder output = Monday();
  EXPECT_EQ(Refusal(output, {.songs = {Full("player/lead.mp3")}, .songList = "list"}), "");
  EXPECT_FALSE(fs::exists("player/Monday"));
}

TEST_F(OutputDirectory, IsDeletedWithSongsThatAnUpdateBroughtOrThatAreGone) {
  PutFile("player/Monday/RV002-lead.mp3", "a copy");
  PutFile("player/Monday/RV1002-lead.mp3", "a copy");
  PutFile("player/Monday/Monday.M3U", "RV002-lead.mp3");
  PutFile("player/Monday/cover.jpg", "");
  PutFile("list", Full("player/Monday/RV002-lead.mp3\n") + Full("player/Monday/gone.mp3\n"));
  OutputFolder output = Monday();
  EXPECT_EQ(Refusal(output, {.songs = {Full("player/Monday/RV1002-lead.mp3"),
                                       Full("player/Monday/gone.mp3")},
                             .songList = "list"}),
            "");
  EXPECT_FALSE(fs::exists("player/Monday"));
}

TEST_F(OutputDirectory, IsNotDeletedWhenTheListOfSongsCannotBeRead) {
  PutFile("player/Monday/lead.mp3", "song");
  PutFile("list", "");
  const UnreadableFile unreadable("list");
  OutputFolder output = Monday();
  EXPECT_EQ(Refusal(output, {.songList = "list"}), "list could not be read: Permission denied");
  EXPECT_TRUE(fs::exists("player/Monday/lead.mp3"));
}

TEST_F(OutputDirectory, IsDeletedWithoutAListOfSongs) {
  PutFile("player/Monday/lead.mp3", "song");
  OutputFolder output = Monday();
  EXPECT_EQ(Refusal(output, {.songList = "gone"}), "");
}

TEST_F(OutputDirectory, IsNotDeletedWhenASongLiesInAFolderThatCannotBeListed) {
  PutFile("player/Monday/closed/lead.mp3", "song");
  const UnreadableFile unreadable("player/Monday/closed", fs::perms::owner_exec);
  OutputFolder output = Monday();
  EXPECT_THAT(Refusal(output, {.songs = {Full("player/Monday/closed/lead.mp3")}}),
              HasSubstr("lies there"));
}

TEST_F(OutputDirectory, OnlyGainsNewFilesWhereItIsNotOurs) {
  PutFile("player/Monday/RV001-Song.mp3", "theirs");
  PutFile("song.mp3", "ours");
  OutputFolder output = Monday();
  Refusal(output, {.folders = {Full("player/Monday")}});

  EXPECT_THROW(output.CopyInto("song.mp3", "RV001-Song.mp3"), FileError);
  output.CopyInto("song.mp3", "RV002-Song.mp3");

  EXPECT_EQ(GetTextFile("player/Monday/RV001-Song.mp3"), "theirs");
  EXPECT_EQ(GetTextFile("player/Monday/RV002-Song.mp3"), "ours");

  output.WriteInto("RV002-Song.mp3", "ours again");
  EXPECT_EQ(GetTextFile("player/Monday/RV002-Song.mp3"), "ours again");
}

/// Why a file may not be put there; empty when it may.
std::string RefusalOf(OutputFolder& output, const std::string& name) {
  try {
    output.WriteInto(name, "new");
  } catch (const FileError& error) {
    return error.what();
  }
  return "";
}

TEST_F(OutputDirectory, SaysWhyAFileIsNotPutThere) {
  PutFile("player/Monday/RV001-Song.mp3", "theirs");
  OutputFolder output = Monday();
  Refusal(output, {.folders = {Full("player/Monday")}});
  EXPECT_EQ(RefusalOf(output, "RV001-Song.mp3"),
            output.Path() + "RV001-Song.mp3 could not be created: File exists");

  OutputFolder outside(Full("player"), "..");
  Refusal(outside);
  EXPECT_EQ(RefusalOf(outside, "Song.mp3"),
            outside.Path() + "Song.mp3 could not be created: It does not lie in the output path");
}

TEST_F(OutputDirectory, CannotBeMadeWhereThereIsNoOutputPath) {
  OutputFolder output(Full("gone"), "Monday");
  output.Clear({});
  EXPECT_THROW(output.Create(), FileError);
}

TEST_F(OutputDirectory, IsFlushedWithItsFiles) {
  PutFile("song.mp3", "ours");
  OutputFolder output = Monday();
  output.Clear({});
  output.Create();
  output.CopyInto("song.mp3", "RV001-Song.mp3");
  EXPECT_NO_THROW(output.FlushToDevice());
  fs::remove_all("player/Monday");
  EXPECT_THROW(output.FlushToDevice(), FileError);
}

TEST_F(OutputDirectory, ReplacesLinksAndNotWhatTheyPointTo) {
  PutFile("music/Song.mp3", "precious");
  OutputFolder output = Monday();
  output.Clear({});
  output.Create();
  fs::create_symlink(Full("music/Song.mp3"), output.Path() + "RV001-Song.mp3");
  fs::create_hard_link("music/Song.mp3", output.Path() + "RV002-Song.mp3");

  output.WriteInto("RV001-Song.mp3", "new");
  output.WriteInto("RV002-Song.mp3", "new");

  EXPECT_EQ(GetTextFile("music/Song.mp3"), "precious");
  EXPECT_EQ(GetTextFile("player/Monday/RV001-Song.mp3"), "new");
  EXPECT_EQ(GetTextFile("player/Monday/RV002-Song.mp3"), "new");
}

TEST_F(OutputDirectory, CutsANameThatIsTooLongBeforeItsExtension) {
  OutputFolder output = Monday();
  output.Clear({});
  output.Create();
  const std::string kept = output.WriteInto("RV002-" + std::string(248, 'x') + ".mp3", "song");
  EXPECT_EQ(kept, "RV002-" + std::string(245, 'x') + ".mp3");
  EXPECT_EQ(GetTextFile("player/Monday/" + kept), "song");
}

TEST_F(OutputDirectory, LeavesNoHalfCopyOnAFullPlayer) {
  PutFile("song.mp3", std::string(500, 's'));
  OutputFolder output = Monday();
  output.Clear({});
  output.Create();
  {
    const FullDisk full(100);
    EXPECT_THROW(output.CopyInto("song.mp3", "RV001-Song.mp3"), FileError);
  }
  EXPECT_TRUE(fs::is_empty("player/Monday"));
}

TEST_F(OutputDirectory, LeavesNoCopyThatTheCloseCallsUnwritten) {
  PutFile("song.mp3", "ours");
  OutputFolder output = Monday();
  output.Clear({});
  output.Create();
  const FailingClose unwritten("RV001-Song.mp3");
  EXPECT_THROW(output.CopyInto("song.mp3", "RV001-Song.mp3"), FileError);
  EXPECT_TRUE(fs::is_empty("player/Monday"));
}

/// Somebody who may write beside the folder puts a link to the music in its place.
void ExchangeByLink(const std::string& music) {
  fs::rename("player/Monday", "player/elsewhere");
  fs::create_directory_symlink(music, "player/Monday");
}

TEST_F(OutputDirectory, IsTheSameOneWhenALinkTakesItsPathDuringACopy) {
  PutFile("music/RV001-Song.mp3", "precious");
  PutFile("song.mp3", "ours");
  OutputFolder output = Monday();
  output.Clear({});
  output.Create();
  {
    const AtOpening exchange("song.mp3", [&] { ExchangeByLink(Full("music")); });
    output.CopyInto("song.mp3", "RV001-Song.mp3");
  }
  EXPECT_EQ(GetTextFile("music/RV001-Song.mp3"), "precious");
  EXPECT_EQ(GetTextFile("player/elsewhere/RV001-Song.mp3"), "ours");
  EXPECT_THROW(output.FlushToDevice(), FileError);
}

TEST_F(OutputDirectory, IsNotDeletedWhenALinkTakesItsPathDuringTheSearchForSongs) {
  PutFile("music/RV001-Song.mp3", "precious");
  PutFile("player/Monday/cover.jpg", "old");
  PutFile("list", "");
  OutputFolder output = Monday();
  {
    const AtOpening exchange("list", [&] { ExchangeByLink(Full("music")); });
    EXPECT_THAT(Refusal(output, {.songList = "list"}), HasSubstr("could not be deleted"));
  }
  EXPECT_EQ(GetTextFile("music/RV001-Song.mp3"), "precious");
}

TEST_F(OutputDirectory, IsNotExchangedForAnotherDuringTheSearchForSongs) {
  PutFile("player/diary/page 1.txt", "mine");
  PutFile("player/Monday/cover.jpg", "old");
  PutFile("list", "");
  OutputFolder output = Monday();
  {
    const AtOpening exchange("list", [] {
      fs::rename("player/Monday", "player/elsewhere");
      fs::rename("player/diary", "player/Monday");
    });
    Refusal(output, {.songList = "list"});
  }
  EXPECT_EQ(GetTextFile("player/Monday/page 1.txt"), "mine");
}

}  // namespace
}  // namespace repvolta
