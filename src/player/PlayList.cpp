#include "player/PlayList.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>

#include "base/File.h"
#include "base/FileError.h"

namespace repvolta {
namespace {

/// True when the error may mean that a file of this disk can only be written once, as on a phone.
bool MayRefuseAppending(int error) {
  // ENOENT: it does not show the file yet.
  static constexpr std::array<int, 9> kAnswers{ENOTSUP, EINVAL, EIO,     EPERM, EACCES,
                                               ENOSYS,  EBADF,  ETXTBSY, ENOENT};
  return std::find(kAnswers.begin(), kAnswers.end(), error) != kAnswers.end();
}

}  // namespace

std::string PlayListName(const std::string& workoutName) {
  return workoutName + kPlayListExtension;
}

std::string PlayListLine(const std::string& path) {
  if (path.find('\r') != std::string::npos || path.find('\n') != std::string::npos) {
    throw std::invalid_argument(path + " cannot stand in a play list: there is a line break in it");
  }
  return path + "\r\n";
}

void PlayList::AddToPlaylistFile(const std::string& path) {
  const std::string text = PlayListLine(path);
  if (text_.empty()) {
    name_ = folder_.WriteInto(name_, text);
  } else if (!isWaiting_) {
    try {
      Append(text);
    } catch (const FileError& error) {
      if (!MayRefuseAppending(error.Error())) throw;
      isWaiting_ = true;
    }
  }
  text_ += text;
}

void PlayList::Append(const std::string& text) {
  File file = folder_.OpenFile(name_, File::Access::kReadWrite);
  const struct stat status = file.Status();
  if (status.st_nlink > 1) {
    throw FileError(file.Path(), "could not be written", "It has another name elsewhere");
  }
  if (static_cast<std::size_t>(status.st_size) != text_.size()) {
    // The disk does not show yet what it holds.
    isWaiting_ = true;
    return;
  }
  try {
    file.WriteAt(text_.size(), AsBytes(text));
    file.ConfirmWritten();
  } catch (const FileError&) {
    // The next line must not continue half of this one.
    file.CutBackTo(text_.size());
    throw;
  }
}

void PlayList::Complete() {
  if (!isWaiting_) return;
  name_ = folder_.WriteInto(name_, text_);
  isWaiting_ = false;
}

}  // namespace repvolta
