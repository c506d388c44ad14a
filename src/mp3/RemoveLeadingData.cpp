#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include "base/File.h"
#include "base/FileError.h"
#include "base/WholeFile.h"
#include "mp3/RepvoltaMP3.h"

namespace repvolta {
namespace {

std::array<timespec, 2> TimesOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) throw FileError(path, "could not be read", errno);
  return {status.st_atim, status.st_mtim};
}

void SetTimes(const std::string& path, const std::array<timespec, 2>& times) {
  if (utimensat(AT_FDCWD, path.c_str(), times.data(), 0) != 0) {
    throw FileError(path, "could not be given its old times", errno);
  }
}

}  // namespace

void RepvoltaMP3::RemoveLeadingData(FileTimes times) {
  if (info_.headerOffset <= 0) return;
  const std::string path = fileName_;
  const auto timesBefore = TimesOf(path);
  {
    const File file = File::Open(path, File::Access::kRead);
    WholeFileWriter writer(path);
    writer.AppendRest(file, static_cast<std::uint64_t>(info_.headerOffset));
    writer.Commit();
  }
  try {
    ReadMP3Header();
  } catch (const DivisionByZero&) {
    // The average bit rate counts the whole file, so a shortened file's can be zero.
    ResetMP3Info(AfterReset::kEmptiesFileName);
  }
  if (times == FileTimes::kKept) SetTimes(path, timesBefore);
}

}  // namespace repvolta
