#include "update/PlayList.h"

#include <stdexcept>

#include "base/File.h"
#include "base/FileError.h"

namespace repvolta {

void AddToPlaylistFile(const std::string& line, const std::string& playList) {
  if (line.find_first_of("\r\n") != std::string::npos) {
    throw std::invalid_argument(line + " cannot stand in a play list: there is a line break in it");
  }
  File file = File::OpenOrCreate(playList);
  const std::uint64_t size = file.Size();
  try {
    file.WriteAt(size, AsBytes(line + "\r\n"));
    file.ConfirmWritten();
  } catch (const FileError&) {
    // The next line must not continue half of this one.
    file.CutBackTo(size);
    throw;
  }
}

}  // namespace repvolta
