#include "voices/VoiceStage.h"

#include <cerrno>
#include <fcntl.h>

#include "base/DeleteFolder.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Lock.h"
#include "base/ProgramFiles.h"
#include "base/RenameToNew.h"
#include "base/Text.h"
#include "clips/ClipLists.h"
#include "clips/ClipMaker.h"
#include "voices/WholeVoices.h"

namespace repvolta {
namespace {

constexpr const char* kStagedVoice = "voices/.taken in/";

/// A disk without locks has only one user.
Descriptor LockedVoices() {
  MakeFolder(WithoutSeparator(kVoicesFolder));
  Descriptor voices = OpenDescriptor(kVoicesFolder, O_RDONLY | O_DIRECTORY);
  if (!voices.IsOpen()) throw FileError(kVoicesFolder, "could not be read", errno);
  if (TryLock(voices) == EWOULDBLOCK) {
    throw FileError(kVoicesFolder, "could not be written", "Another window is taking in a voice");
  }
  return voices;
}

void Flush(const std::string& path) {
  File file = File::Open(path, File::Access::kReadWrite);
  file.FlushToDevice();
  file.CloseWritten();
}

}  // namespace

VoiceStage::VoiceStage() : folder_(kStagedVoice), lock_(LockedVoices()) {
  DeleteFolder(WithoutSeparator(folder_));
  MakeFolder(WithoutSeparator(folder_));
}

VoiceStage::~VoiceStage() {
  if (isCommitted_) return;
  try {
    DeleteFolder(WithoutSeparator(folder_));
  } catch (const FileError&) {
    // The next one removes it.
  }
}

void VoiceStage::Add(const std::string& clip, std::span<const Byte> content) {
  const std::string path = folder_ + clip;
  MakeFolder(WithoutSeparator(FolderOf(path)));
  File file = File::CreateNew(path);
  file.WriteAt(0, content);
  file.CloseWritten();
}

void VoiceStage::Drop(const std::string& clip) { RemoveFile(folder_ + clip); }

std::vector<std::string> VoiceStage::Convert(const std::vector<std::string>& clips,
                                             const VoiceWatch& watch) {
  std::vector<std::string> failures;
  std::size_t done = 0;
  for (const std::string& clip : clips) {
    try {
      MakeClipOfRecording(folder_ + clip, folder_ + clip);
    } catch (const ClipError& error) {
      failures.push_back(std::string(error.what()).substr(folder_.size()));
      Drop(clip);
    }
    if (watch) watch(++done, clips.size());
  }
  return failures;
}

void VoiceStage::Commit(const std::string& voice, const VoiceWatch& watch) {
  const std::vector<std::string> clips = ClipsIn(folder_);
  std::size_t done = 0;
  for (const std::string& clip : clips) {
    Flush(folder_ + clip);
    if (watch) watch(++done, clips.size());
  }
  const std::string names = folder_ + kNameClipSubfolder;
  if (FolderExists(names)) FlushFolder(names);
  FlushFolder(folder_);
  RenameToNew(WithoutSeparator(folder_), WithoutSeparator(FolderOfVoice(voice)));
  isCommitted_ = true;
  try {
    FlushFolder(kVoicesFolder);
  } catch (const FileError&) {
    // After a power cut it may be missing as a whole.
  }
}

}  // namespace repvolta
