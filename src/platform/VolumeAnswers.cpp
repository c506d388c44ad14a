#include "platform/VolumeAnswers.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <thread>
#include <utility>

namespace repvolta {

/// Owned by the asker and by each thread.
struct VolumeAnswers::Shared {
  std::mutex mutex;
  std::condition_variable changed;
  std::map<std::string, std::optional<VolumeAnswer>> answers;  // without a value while it is owed
  int owed = 0;
};

namespace {

VolumeAnswer AnswerOf(const std::string& root) {
  VolumeAnswer answer;
  struct stat status {};
  answer.isFolder = stat(root.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  struct statvfs room {};
  if (answer.isFolder && statvfs(root.c_str(), &room) == 0 && room.f_blocks > 0) {
    answer.freeBytes = std::uint64_t{room.f_bavail} * room.f_frsize;
  }
  return answer;
}

}  // namespace

VolumeAnswers::VolumeAnswers(std::function<void()> answered)
    : shared_(std::make_shared<Shared>()), answered_(std::move(answered)) {}

void VolumeAnswers::Ask(const std::string& root) {
  {
    const std::lock_guard lock(shared_->mutex);
    const auto [place, isNew] = shared_->answers.try_emplace(root);
    if (!isNew && !place->second) return;
    place->second.reset();
    ++shared_->owed;
  }
  std::thread([this, post = mailbox_.Poster(), shared = shared_, root] {
    const VolumeAnswer answer = AnswerOf(root);
    {
      const std::lock_guard lock(shared->mutex);
      shared->answers[root] = answer;
      --shared->owed;
      shared->changed.notify_all();
    }
    post([this] { answered_(); });
  }).detach();
}

void VolumeAnswers::Wait(std::chrono::milliseconds limit) {
  std::unique_lock lock(shared_->mutex);
  shared_->changed.wait_for(lock, limit, [this] { return shared_->owed == 0; });
}

std::optional<VolumeAnswer> VolumeAnswers::Of(const std::string& root) const {
  const std::lock_guard lock(shared_->mutex);
  const auto found = shared_->answers.find(root);
  return found == shared_->answers.end() ? std::nullopt : found->second;
}

}  // namespace repvolta
