#include "editing/MusicListing.h"

#include "update/RandomMusicList.h"

namespace repvolta {

void ListMusic(const Editor& editor) {
  const WhileWaiting waiting(editor.pleaseWait);
  CompileMusicList(editor.State().Settings.MusicPath.Trimmed(), editor.runEvents);
}

}  // namespace repvolta
