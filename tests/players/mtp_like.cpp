// A file system that behaves like a player behind MTP: no permissions, no times, no flushing, no
// links; a file is written once, from its start to its end; nothing is renamed over a file that is
// there; names without certain characters and without case. SIGUSR1 plugs the player in again, and
// SIGUSR2 pulls it out.
//
//   mtp_like FOLDER [--no-rename] [--no-room] [--full-on-close] [--read-only]
//            [--full-at=BYTES] [--pulled-out-at=BYTES] [--fsync=ENOSYS|EINVAL|ENOTSUP]

#define FUSE_USE_VERSION 35

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <fuse.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "MtpObjects.h"

namespace mtp_like {
namespace {

volatile std::sig_atomic_t wantsPlugIn = 0;
volatile std::sig_atomic_t wantsPullOut = 0;

Objects& Player() { return *static_cast<Objects*>(fuse_get_context()->private_data); }

/// True while the player is not there; first does what the signals asked for.
bool IsGone() {
  if (wantsPullOut != 0) Player().PullOut();
  if (wantsPlugIn != 0) Player().PlugIn();
  wantsPullOut = 0;
  wantsPlugIn = 0;
  return Player().IsPulledOut();
}

/// An opened file keeps its object, even when it is deleted.
ObjectPointer& Opened(const fuse_file_info* info) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): libfuse keeps what belongs to a file as a number.
  return *reinterpret_cast<ObjectPointer*>(info->fh);
}

void KeepOpened(fuse_file_info* info, const ObjectPointer& object) {
  info->fh = reinterpret_cast<std::uint64_t>(new ObjectPointer(object));
}

void* Begin(fuse_conn_info* /*connection*/, fuse_config* config) {
  config->hard_remove = 1;
  return fuse_get_context()->private_data;
}

int GetAttributes(const char* path, struct stat* status, fuse_file_info* info) {
  if (IsGone()) return -ENODEV;
  const ObjectPointer object = info != nullptr ? Opened(info) : Player().Find(path);
  if (!object) return -ENOENT;
  *status = {};
  status->st_mode = object->isFolder ? S_IFDIR | 0755 : S_IFREG | 0644;
  status->st_nlink = 1;
  status->st_uid = getuid();
  status->st_gid = getgid();
  status->st_size = static_cast<off_t>(object->content.size());
  status->st_mtim.tv_sec = status->st_ctim.tv_sec = status->st_atim.tv_sec = object->changed;
  return 0;
}

int ReadFolder(const char* path, void* buffer, fuse_fill_dir_t fill) {
  if (IsGone()) return -ENODEV;
  const ObjectPointer folder = Player().Find(path);
  if (!folder) return -ENOENT;
  for (const char* name : {".", ".."}) fill(buffer, name, nullptr, 0, fuse_fill_dir_flags{});
  for (const auto& [key, entry] : folder->entries) {
    fill(buffer, entry->name.c_str(), nullptr, 0, fuse_fill_dir_flags{});
  }
  return 0;
}

int MakeFolder(const char* path, mode_t /*mode*/) {
  ObjectPointer made;
  return IsGone() ? -ENODEV : Player().Make(path, true, made);
}

int RemoveFile(const char* path) { return IsGone() ? -ENODEV : Player().Remove(path, false); }

int RemoveFolder(const char* path) { return IsGone() ? -ENODEV : Player().Remove(path, true); }

int Rename(const char* from, const char* to, unsigned flags) {
  if (IsGone()) return -ENODEV;
  return flags != 0 ? -EINVAL : Player().Move(from, to);
}

int Create(const char* path, mode_t /*mode*/, fuse_file_info* info) {
  if (IsGone()) return -ENODEV;
  ObjectPointer made;
  const int result = Player().Make(path, false, made);
  if (result == 0) KeepOpened(info, made);
  return result;
}

int Open(const char* path, fuse_file_info* info) {
  if (IsGone()) return -ENODEV;
  const ObjectPointer object = Player().Find(path);
  if (!object) return -ENOENT;
  if ((info->flags & O_ACCMODE) != O_RDONLY) return -ENOTSUP;
  KeepOpened(info, object);
  return 0;
}

int Read(const char* /*path*/, char* buffer, std::size_t size, off_t offset, fuse_file_info* info) {
  if (IsGone()) return -EIO;
  const std::string& content = Opened(info)->content;
  const auto begin = static_cast<std::size_t>(offset);
  if (begin >= content.size()) return 0;
  return static_cast<int>(content.copy(buffer, size, begin));
}

int Write(const char* /*path*/, const char* bytes, std::size_t size, off_t offset,
          fuse_file_info* info) {
  if (IsGone()) return -EIO;
  return Player().Write(*Opened(info), bytes, size, static_cast<std::uint64_t>(offset));
}

int Close(const char* /*path*/, fuse_file_info* info) {
  return IsGone() ? -EIO : Opened(info)->closeError;
}

int Release(const char* /*path*/, fuse_file_info* info) {
  delete &Opened(info);
  return 0;
}

int Flush(const char* /*path*/, int /*onlyData*/, fuse_file_info* /*info*/) {
  return IsGone() ? -EIO : -Player().HabitsOf().flushError;
}

int GetRoom(const char* /*path*/, struct statvfs* room) {
  if (IsGone()) return -ENODEV;
  *room = {};
  if (!Player().HabitsOf().knowsItsRoom) return 0;
  constexpr std::uint64_t kBlock = 4096;
  constexpr std::uint64_t kLargest = std::uint64_t{1} << 32;
  const std::uint64_t size = std::min(Player().HabitsOf().fullAt, kLargest);
  room->f_bsize = room->f_frsize = kBlock;
  room->f_blocks = size / kBlock;
  room->f_bfree = room->f_bavail = (size - std::min(size, Player().BytesHeld())) / kBlock;
  room->f_namemax = 255;
  return 0;
}

int RefuseMode(const char* /*path*/, mode_t /*mode*/, fuse_file_info* /*info*/) { return -EPERM; }

int RefuseOwner(const char* /*path*/, uid_t /*user*/, gid_t /*group*/, fuse_file_info* /*info*/) {
  return -ENOSYS;
}

int RefuseTimes(const char* /*path*/, const timespec* /*times*/, fuse_file_info* /*info*/) {
  return -ENOTSUP;
}

int RefuseLength(const char* path, off_t size, fuse_file_info* info) {
  if (IsGone()) return -EIO;
  const ObjectPointer object = info != nullptr ? Opened(info) : Player().Find(path);
  if (!object) return -ENOENT;
  return static_cast<std::size_t>(size) == object->content.size() ? 0 : -ENOTSUP;
}

int RefuseLink(const char* /*from*/, const char* /*to*/) { return -ENOTSUP; }

fuse_operations Operations() {
  fuse_operations operations{};
  operations.init = Begin;
  operations.getattr = GetAttributes;
  operations.readdir = [](const char* path, void* buffer, fuse_fill_dir_t fill, off_t /*offset*/,
                          fuse_file_info* /*info*/,
                          fuse_readdir_flags /*flags*/) { return ReadFolder(path, buffer, fill); };
  operations.mkdir = MakeFolder;
  operations.unlink = RemoveFile;
  operations.rmdir = RemoveFolder;
  operations.rename = Rename;
  operations.create = Create;
  operations.open = Open;
  operations.read = Read;
  operations.write = Write;
  operations.flush = Close;
  operations.release = Release;
  operations.fsync = Flush;
  operations.fsyncdir = Flush;
  operations.statfs = GetRoom;
  operations.chmod = RefuseMode;
  operations.chown = RefuseOwner;
  operations.utimens = RefuseTimes;
  operations.truncate = RefuseLength;
  operations.symlink = RefuseLink;
  operations.link = RefuseLink;
  return operations;
}

int ErrorOf(std::string_view name) {
  if (name == "ENOSYS") return ENOSYS;
  if (name == "EINVAL") return EINVAL;
  if (name == "ENOTSUP") return ENOTSUP;
  throw std::invalid_argument("no error: " + std::string(name));
}

/// What fuse_main gets, and the habits.
struct Settings {
  Habits habits{.flushError = ENOSYS};
  std::vector<std::string> arguments = {"mtp_like", "-f", "-s", "-o", "fsname=mtp_like"};
};

void Take(const std::string& argument, Settings& settings) {
  Habits& habits = settings.habits;
  const std::string name = argument.substr(0, argument.find('='));
  const std::string value = argument.substr(std::min(argument.size(), name.size() + 1));
  if (name == "--no-rename") {
    habits.renames = false;
  } else if (name == "--no-room") {
    habits.knowsItsRoom = false;
  } else if (name == "--full-on-close") {
    habits.reportsFullOnClose = true;
  } else if (name == "--read-only") {
    settings.arguments.insert(settings.arguments.end(), {"-o", "ro"});
  } else if (name == "--full-at") {
    habits.fullAt = std::stoull(value);
  } else if (name == "--pulled-out-at") {
    habits.pulledOutAt = std::stoull(value);
  } else if (name == "--fsync") {
    habits.flushError = ErrorOf(value);
  } else if (name.starts_with("-")) {
    throw std::invalid_argument("no option: " + name);
  } else {
    settings.arguments.push_back(argument);
  }
}

int Run(const std::vector<std::string>& given) {
  Settings settings;
  for (const std::string& argument : given) Take(argument, settings);
  std::vector<char*> arguments;
  for (std::string& argument : settings.arguments) arguments.push_back(argument.data());
  static_cast<void>(std::signal(SIGUSR1, [](int) { wantsPlugIn = 1; }));
  static_cast<void>(std::signal(SIGUSR2, [](int) { wantsPullOut = 1; }));
  Objects player(settings.habits);
  const fuse_operations operations = Operations();
  return fuse_main(static_cast<int>(arguments.size()), arguments.data(), &operations, &player);
}

}  // namespace
}  // namespace mtp_like

int main(int argc, char** argv) {
  // Names are UTF-8 in any locale.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  try {
    return mtp_like::Run({argv + 1, argv + argc});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "mtp_like: %s\n", error.what());
    return 2;
  }
}
