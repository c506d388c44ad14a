#include "update/PlayList.h"

#include <stdexcept>

#include "base/File.h"

namespace repvolta {

void AddToPlaylistFile(const std::string& line, const std::string& playList) {
  if (line.find_first_of("\r\n") != std::string::npos) {
    throw std::invalid_argument(line + " cannot stand in a play list: there is a line break in it");
  }
  File file = File::OpenOrCreate(playList);
  file.WriteAt(file.Size(), AsBytes(line + "\r\n"));
  file.ConfirmWritten();
}

}  // namespace repvolta
