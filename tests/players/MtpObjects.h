#pragma once

#include <cstdint>
#include <ctime>
#include <map>
#include <memory>
#include <string>

/// What a player behind MTP holds: folders and files, in memory.
namespace mtp_like {

/// How the player differs from one that takes everything.
struct Habits {
  std::uint64_t fullAt = UINT64_MAX;       // bytes of all files
  std::uint64_t pulledOutAt = UINT64_MAX;  // bytes ever written
  int flushError = 0;                      // what fsync gives
  bool renames = true;
  bool knowsItsRoom = true;
  bool reportsFullOnClose = false;
};

struct Object {
  std::string name;  // as it was given when it was made
  bool isFolder = false;
  std::map<std::string, std::shared_ptr<Object>> entries;  // by their names without case
  std::string content;
  std::time_t changed = 0;
  int closeError = 0;
};

using ObjectPointer = std::shared_ptr<Object>;

/// The objects by path. Negative results are errno values with a minus, as FUSE wants them.
class Objects {
 public:
  explicit Objects(const Habits& habits);

  /// Nothing when there is no such object.
  ObjectPointer Find(const std::string& path) const;

  /// A new object at the path, which must not exist; `made` receives it.
  int Make(const std::string& path, bool isFolder, ObjectPointer& made);

  /// Removes the file or the empty folder.
  int Remove(const std::string& path, bool isFolder);

  int Move(const std::string& from, const std::string& to);

  /// Appends to the file: writing goes from its start to its end. Gives the count of bytes taken.
  int Write(Object& file, const char* bytes, std::size_t size, std::uint64_t offset);

  std::uint64_t BytesHeld() const { return held_; }
  const Habits& HabitsOf() const { return habits_; }

  bool IsPulledOut() const { return isPulledOut_; }
  void PullOut() { isPulledOut_ = true; }
  /// It is not pulled out by itself again.
  void PlugIn();

 private:
  ObjectPointer FolderOf(const std::string& path) const;
  int TakeWhatFits(Object& file, const char* bytes, std::size_t size);

  Habits habits_;
  ObjectPointer root_;
  std::uint64_t held_ = 0;
  std::uint64_t written_ = 0;
  bool isPulledOut_ = false;
};

}  // namespace mtp_like
