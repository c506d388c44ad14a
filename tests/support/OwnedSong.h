#pragma once

#include <string>

#include "base/Product.h"
#include "mp3/RepvoltaMP3v2.h"

#include "support/SongBytes.h"
#include "support/TemporaryFolder.h"

namespace repvolta {

/// A song with the marks of an update: the artist is the program, the album the workout's file.
inline void PutOwnedSong(const std::string& path, const std::string& workoutFileName) {
  PutFile(path, SongBytes(3));
  cMP3ID3v2 tag;
  tag.SetFileName(path);
  tag.SetArtist(kProductName);
  tag.SetAlbum(workoutFileName);
  tag.WriteTag();
}

}  // namespace repvolta
