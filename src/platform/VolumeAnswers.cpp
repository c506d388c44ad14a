#include "platform/VolumeAnswers.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <utility>

namespace repvolta {
namespace {

VolumeAnswer AnswerOf(const std::string& root) {
  VolumeAnswer answer;
  struct stat status{};
  answer.isFolder = stat(root.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  struct statvfs room{};
  if (answer.isFolder && statvfs(root.c_str(), &room) == 0 && room.f_blocks > 0) {
    answer.freeBytes = std::uint64_t{room.f_bavail} * room.f_frsize;
  }
  return answer;
}

}  // namespace

VolumeAnswers::VolumeAnswers(std::function<void()> answered)
    : Answers(AnswerOf, std::move(answered)) {}

}  // namespace repvolta
