#include "voices/PutClips.h"

#include <span>
#include <string_view>

#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/ProgramFiles.h"
#include "keeping/PendingRestore.h"
#include "update/RestoreAtStart.h"
#include "update/UpdateLock.h"

namespace repvolta {
namespace {

constexpr const char* kFailure = "could not be changed";

/// Below the clip folder, the name that is there already in other case, or `file` itself.
std::string PlaceOf(const std::string& programDirectory, const std::string& file) {
  const std::string path = programDirectory + kClipFolder + file;
  return ExistingName(path).substr(programDirectory.size());
}

/// A change on its way; it knows what fails.
class Decision {
 public:
  Decision(const std::string& programDirectory, const ClipChange& change)
      : directory_(programDirectory), change_(change), target_(kClipFolder) {
    if (change.clips.size() == 1) target_ = PlaceOf(directory_, change.clips.front().file);
  }

  /// Until the last statement nothing is changed.
  void Make(const ReportOfClips& report) {
    ClipOrigins origins(directory_);
    staged_ = target_;
    RestoreStage stage(directory_);
    const std::size_t all = change_.clips.size() + change_.files.size();
    std::size_t done = 0;
    const auto tell = [&] {
      if (report) report(++done, all);
    };
    for (const NewClip& clip : change_.clips) {
      const std::string place = PlaceOf(directory_, clip.file);
      Add(stage, place, clip.content);
      origins.Set(place.substr(std::string_view(kClipFolder).size()), clip.content, clip.origin);
      tell();
    }
    for (const FileBesideClips& file : change_.files) {
      Add(stage, file.path, file.content);
      tell();
    }
    staged_ = target_;
    for (const std::string& path : change_.removed) stage.Remove(path);
    Add(stage, kClipOrigins, AsBytes(origins.Encode()));
    staged_ = target_;
    stage.Commit();
  }

  /// What is said when it could not be made: not where the files were on their way.
  FileError Failure(const FileError& error) const {
    return {directory_ + target_, kFailure, Why(error) + ". Nothing was changed"};
  }

 private:
  std::string Why(const FileError& error) const {
    if (staged_.empty()) return error.what();
    if (staged_ == target_) return error.Reason();
    return staged_ + " could not be written: " + error.Reason();
  }

  void Add(RestoreStage& stage, const std::string& path, std::span<const Byte> content) {
    staged_ = path;
    stage.Add(path, content);
  }

  const std::string& directory_;
  const ClipChange& change_;
  std::string target_;  // the only clip, or the folder of all
  std::string staged_;  // what is being written; "" for nothing
};

/// A disk that cannot tell may hold half of the change.
bool MayBePending(const std::string& programDirectory) {
  try {
    return IsRestorePending(programDirectory);
  } catch (const FileError&) {
    return true;
  }
}

}  // namespace

void PutClips(const std::string& programDirectory, const ClipChange& change,
              const ReportOfClips& report) {
  Decision decision(programDirectory, change);
  try {
    const UpdateLock lock(programDirectory);
    FinishRestore(programDirectory);
    decision.Make(report);
    FinishRestore(programDirectory);
  } catch (const UpdateRunning&) {
    throw FileError(programDirectory + kClipFolder, kFailure,
                    "An update is running. Nothing was changed; try again when it has ended");
  } catch (const FileError& error) {
    if (!MayBePending(programDirectory)) throw decision.Failure(error);
    throw RestoreUnfinished(programDirectory, error.what());
  } catch (const std::exception& error) {
    if (!MayBePending(programDirectory)) throw;
    throw RestoreUnfinished(programDirectory, error.what());
  }
}

FileError NothingChanged(const std::string& programDirectory, const FileError& why) {
  return {programDirectory + kClipFolder, kFailure,
          std::string(why.what()) + ". Nothing was changed"};
}

}  // namespace repvolta
