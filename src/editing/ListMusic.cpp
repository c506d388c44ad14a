#include "editing/ListMusic.h"

#include "update/MusicListing.h"

namespace repvolta {

void ListMusic(const Editor& editor) {
  const WhileWaiting waiting(editor.pleaseWait);
  CompileMusicList(editor.State().Settings.MusicPath.Trimmed(), editor.runEvents);
}

}  // namespace repvolta
