#include "editing/FolderLook.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

#include "update/MusicListing.h"
#include "update/Room.h"

namespace repvolta {

/// Shared with the thread.
struct FolderLook::Job {
  std::atomic<bool> isGivenUp = false;
};

namespace {

/// Between two reports, so that the count can be read.
constexpr std::chrono::milliseconds kPause{200};

/// Ends a search; no failure.
class GivenUp {};

using Tell = std::function<void(const FolderSight&)>;

FolderSight CountSongs(const std::string& folder, const std::atomic<bool>& isGivenUp,
                       const Tell& tell) {
  FolderSight sight;
  auto told = std::chrono::steady_clock::now();
  SearchMusic(folder, {.takeSong = [&](const std::string&) { ++sight.songs; },
                       .takeUnreadable =
                           [&](const std::string& path, int) {
                             if (path == folder) sight.state = FolderSight::State::kUnreadable;
                           },
                       .whileSearching =
                           [&] {
                             if (isGivenUp) throw GivenUp();
                             const auto now = std::chrono::steady_clock::now();
                             if (now - told < kPause) return;
                             told = now;
                             tell(sight);
                           }});
  if (sight.state == FolderSight::State::kLooking) sight.state = FolderSight::State::kDone;
  return sight;
}

FolderSight MeasureRoom(const std::string& folder) {
  FolderSight sight{.state = FolderSight::State::kDone};
  if (const auto room = RoomOf(folder)) sight.freeBytes = room->free;
  return sight;
}

}  // namespace

FolderLook::FolderLook(FolderQuestion::Figure figure, Tell tell)
    : figure_(figure), tell_(std::move(tell)) {}

FolderLook::~FolderLook() { GiveUp(); }

void FolderLook::At(const std::string& folder) {
  GiveUp();
  job_ = std::make_shared<Job>();
  const auto report = [this, job = job_, post = mailbox_.Poster()](const FolderSight& sight) {
    post([this, job, sight] {
      if (!job->isGivenUp) tell_(sight);
    });
  };
  std::thread([figure = figure_, job = job_, report, folder] {
    try {
      report(figure == FolderQuestion::Figure::kRoom ? MeasureRoom(folder)
                                                     : CountSongs(folder, job->isGivenUp, report));
    } catch (const GivenUp&) {
      // Another folder was selected.
    }
  }).detach();
}

void FolderLook::GiveUp() {
  if (job_) job_->isGivenUp = true;
}

}  // namespace repvolta
