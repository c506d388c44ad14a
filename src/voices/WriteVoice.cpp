#include "voices/WriteVoice.h"

#include <ctime>
#include <functional>
#include <map>
#include <stdexcept>

#include "app/BroughtFiles.h"
#include "backup/ZipWriter.h"
#include "base/DeleteFolder.h"
#include "base/File.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/RenameToNew.h"
#include "base/WholeFile.h"
#include "base/WorkingFile.h"

namespace repvolta {
namespace {

constexpr const char* kFailure = "could not be written";

/// What the clips are when they are read again; the watch sees each twice.
class Compared {
 public:
  Compared(const VoiceClips& clips, const VoiceWatch& watch)
      : all_(2 * clips.size()), watch_(watch) {}

  void Written(const std::string& clip, const Bytes& content) {
    sums_[clip] = ChecksumOf(content);
    Watch();
  }

  void ReadAgain(const std::string& clip, std::span<const Byte> content) {
    const auto found = sums_.find(clip);
    if (found == sums_.end() || found->second != ChecksumOf(content)) isEqual_ = false;
    ++read_;
    Watch();
  }

  bool AreEqual() const { return isEqual_ && read_ == sums_.size(); }

 private:
  void Watch() {
    if (watch_) watch_(++done_, all_);
  }

  const std::size_t all_;
  const VoiceWatch& watch_;
  std::map<std::string, std::string> sums_;  // checksums, by the clip
  std::size_t done_ = 0;
  std::size_t read_ = 0;
  bool isEqual_ = true;
};

void WriteArchive(const VoiceClips& clips, const std::string& voice, WholeFileWriter& writer,
                  Compared& compared) {
  ZipWriter zip([&](std::span<const Byte> bytes) { writer.Append(bytes); });
  const std::string folder = voice + "/";
  for (const auto& [clip, content] : clips) {
    zip.Add({folder + clip, std::time(nullptr)}, content, ZipWriter::Packing::kDeflated);
    compared.Written(clip, content);
  }
  zip.Finish();
}

void ReadAgain(const std::string& file, Compared& compared) {
  const auto take = [&](const std::string& clip, std::span<const Byte> content) {
    compared.ReadAgain(clip, content);
  };
  try {
    static_cast<void>(ReadVoiceArchive(WorkingName(file), {.take = take}));
  } catch (const FileError& error) {
    throw FileError(file, kFailure, "Read again, it is no voice. " + error.Reason());
  }
  if (!compared.AreEqual()) {
    throw FileError(file, kFailure, "Read again, it does not hold what was written");
  }
}

/// Puts the file in place; why it may not stay there, or "".
std::string Weakness(WholeFileWriter& writer, const std::function<void()>& lastCheck) {
  try {
    writer.Commit(lastCheck);
    return "";
  } catch (const FileError& error) {
    if (!writer.Placed()) throw;
    return error.what();
  }
}

void CopyClips(const VoiceClips& clips, const std::string& folder, const VoiceWatch& watch) {
  std::size_t done = 0;
  const std::string inFolder = folder + "/";
  for (const auto& [clip, content] : clips) {
    const std::string target = inFolder + clip;
    MakeFolder(WithoutSeparator(FolderOf(target)));
    File to = File::CreateNew(target);
    to.WriteAt(0, content);
    to.FlushToDevice();
    to.CloseWritten();
    if (watch) watch(++done, clips.size());
  }
}

}  // namespace

void WriteVoiceFolder(const VoiceClips& clips, const std::string& folder, const VoiceWatch& watch) {
  if (IsTaken(folder)) throw FileError(folder, kFailure, "Something else has its name");
  const std::string working = WorkingName(folder);
  DeleteFolder(working);
  try {
    MakeFolder(working);
    CopyClips(clips, working, watch);
    RenameToNew(working, folder);
  } catch (...) {
    try {
      DeleteFolder(working);
    } catch (const FileError&) {
      // What failed before it is told.
    }
    throw;
  }
}

std::string WriteVoiceArchive(const VoiceClips& clips, const std::string& voice,
                              const std::string& file, const VoiceWatch& watch) {
  Compared compared(clips, watch);
  try {
    WholeFileWriter writer(file);
    WriteArchive(clips, voice, writer, compared);
    return Weakness(writer, [&] { ReadAgain(file, compared); });
  } catch (const FileError&) {
    throw;
  } catch (const std::runtime_error& error) {
    throw FileError(file, kFailure, error.what());
  }
}

}  // namespace repvolta
