#include "player/WorkoutFolder.h"

#include <cerrno>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>

#include "base/DeleteFolder.h"
#include "base/FileError.h"
#include "base/FileNames.h"
#include "base/Folder.h"
#include "base/Text.h"
#include "player/KeptName.h"
#include "player/PlayerNames.h"

namespace repvolta {
namespace {

constexpr const char* kNotLookedAt = "could not be looked at";
constexpr std::size_t kMostNumbers = 100;
constexpr std::size_t kRoomForNumber = 240;  // bytes of the name in front of it

/// "monday (2)" for the index 1, and the name itself for 0.
std::string NumberedName(const std::string& name, std::size_t index) {
  if (index == 0) return name;
  return std::string(CutUtf8(name, kRoomForNumber)) + " (" + std::to_string(index + 1) + ")";
}

/// The status of the entry; nothing, too, where the disk refuses to look for a name that it may not
/// hold. Throws FileError.
std::optional<struct stat> StatusIn(const FolderHandle& place, const std::string& name) {
  try {
    return place.StatusOf(name);
  } catch (const FileError& error) {
    const bool hasOtherNames = PlayerNames(name).size() > 1;
    if (!hasOtherNames || !MayRefuseName(error.Error())) throw;
    return std::nullopt;
  }
}

}  // namespace

WorkoutFolder::WorkoutFolder(const std::string& outputPath, const std::string& workoutName)
    : workout_(workoutName),
      name_(TrimTrailingBlanks(workoutName)),
      path_(std::string(TrimBlanks(outputPath + "/" + workoutName)) + "/") {}

void WorkoutFolder::Refuse(const std::string& why) const {
  throw std::runtime_error(Folder() + " is not deleted: " + why);
}

void WorkoutFolder::Rename(const std::string& name) {
  path_ = FolderOf(Folder()) + name + "/";
  name_ = name;
}

bool WorkoutFolder::OpenPlace() {
  if (!place_.IsOpen()) place_ = FolderHandle::Open(FolderOf(Folder()));
  return place_.IsOpen();
}

void WorkoutFolder::Clear(const Keepsakes& keep) {
  keep_ = keep;
  use_ = Use::kNothing;
  if (!IsFileName(name_)) Refuse("it does not lie in the output path");
  // A copy, because the folder's own name changes meanwhile.
  if (OpenPlace()) return ClearOneOf(std::string(name_), NameIs::kPlain);
  const bool isMissing = errno == ENOENT || errno == ENOTDIR || errno == ELOOP;
  if (!isMissing) throw FileError(Folder(), kNotLookedAt, errno);
  use_ = Use::kReplace;
}

void WorkoutFolder::Look(const Keepsakes& keep) {
  oldFiles_ = OldFiles::kLeft;
  Clear(keep);
}

/// Clears the folder of this name, or, where the disk keeps another workout's folder there, the
/// first one with a number that is free for this workout.
void WorkoutFolder::ClearOneOf(const std::string& name, NameIs nameIs) {
  const FolderOwners owners(workout_, keep_.workouts, name);
  for (std::size_t index = 0; index < kMostNumbers; ++index) {
    Rename(NumberedName(name, index));
    if (index > 0 && owners.IsOfAnother(name_)) continue;
    const FolderHandle folder = Find();
    const bool isPlain = nameIs == NameIs::kPlain && index == 0;
    const bool isForThis = isPlain ? !folder.IsOpen() || !owners.HasRivals() ||
                                         owners.OwnerOf(folder) != FolderOwners::Owner::kAnother
                                   : IsForThis(owners, folder, index);
    if (isForThis) return Empty(folder);
  }
  use_ = Use::kNothing;
  Refuse("it belongs to another workout");
}

/// For a name that nobody has given to the workout.
bool WorkoutFolder::IsForThis(const FolderOwners& owners, const FolderHandle& folder,
                              std::size_t index) const {
  using Owner = FolderOwners::Owner;
  const Owner owner = folder.IsOpen() ? owners.OwnerOf(folder) : Owner::kUnknown;
  if (owner != Owner::kUnknown) return owner == Owner::kThis;
  return index >= owners.Rank() && (!folder.IsOpen() || FolderOwners::IsOfUpdates(folder));
}

/// The folder of the present name; not open when there is none. Throws FileError, and
/// std::runtime_error when there is a link.
FolderHandle WorkoutFolder::Find() {
  use_ = Use::kNothing;
  const auto status = StatusIn(place_, name_);
  if (status && S_ISLNK(status->st_mode)) Refuse("it is a link");
  use_ = Use::kAddOnly;
  if (!status || !S_ISDIR(status->st_mode)) return {};
  FolderHandle folder = place_.OpenFolder(name_);
  if (!folder.IsOpen() && errno != ENOENT) throw FileError(Folder(), kNotLookedAt, errno);
  return folder;
}

void WorkoutFolder::Empty(const FolderHandle& folder) {
  if (folder.IsOpen()) {
    if (IsMountPoint(place_, folder)) Refuse("another file system is mounted there");
    if (const auto kept = FindKeepsake(folder, keep_)) Refuse(*kept + " lies there");
  }
  use_ = Use::kReplace;
  if (folder.IsOpen() && oldFiles_ == OldFiles::kDeleted) DeleteFolder(place_, folder);
}

/// Creates the folder of this name, unless it exists. Returns 0 or the errno value.
int WorkoutFolder::Make(const std::string& name) {
  const int error = place_.MakeFolder(name);
  if (error != 0 && error != EEXIST) return error;
  if (!IsKeptAs(place_, name)) {
    if (error == 0) DeleteFolder(place_, place_.OpenFolder(name));
    return EINVAL;
  }
  if (error == 0) return 0;
  const auto status = StatusIn(place_, name);
  return status && S_ISDIR(status->st_mode) ? 0 : error;
}

/// The same under a name that nobody has given to the workout: a folder that is there already is
/// cleared first, or left to its owner.
int WorkoutFolder::MakeUnder(const std::string& name) {
  const int error = place_.MakeFolder(name);
  if (error != 0 && error != EEXIST) return error;
  if (error == 0 && !FolderOwners(workout_, keep_.workouts, name).HasRivals()) {
    Rename(name);
    return 0;
  }
  if (error == 0) DeleteFolder(place_, place_.OpenFolder(name));
  ClearOneOf(name, NameIs::kChanged);
  return Make(name_);
}

/// Tries the names that disks take instead of the folder's own, which was refused with `error`.
/// Returns 0 or the errno value.
int WorkoutFolder::MakeUnderAnother(int error) {
  const std::vector<std::string> names = PlayerNames(name_);
  for (std::size_t i = 1; i < names.size(); ++i) {
    const int next = MakeUnder(names[i]);
    if (next == 0) return 0;
    if (!MayRefuseName(next)) return next;
  }
  Rename(names.front());
  return error;
}

void WorkoutFolder::Create() {
  if (use_ == Use::kNothing) return MakeFolder(path_);
  int error = OpenPlace() ? Make(name_) : errno;
  if (error != 0 && place_.IsOpen() && use_ == Use::kReplace && MayRefuseName(error)) {
    error = MakeUnderAnother(error);
  }
  if (error != 0) throw FileError(path_, "could not be created", error);
}

FolderHandle WorkoutFolder::Open() {
  return OpenPlace() ? place_.OpenFolder(name_) : FolderHandle{};
}

}  // namespace repvolta
