#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

#include "platform/Mailbox.h"

namespace repvolta {

/// Asks disks about paths, each in a thread of its own: a dead network or a player that hangs holds
/// up neither the caller nor the others. A question without an answer outlives this object and does
/// no harm.
template <class Answer>
class Answers {
 public:
  using Look = std::function<Answer(const std::string& path)>;

  /// The event loop calls `answered` after answers have come.
  Answers(Look look, std::function<void()> answered)
      : shared_(std::make_shared<Shared>()),
        look_(std::move(look)),
        answered_(std::move(answered)) {}

  /// Asks again, unless an answer for this path is owed.
  void Ask(const std::string& path) {
    if (!shared_->Begin(path)) return;
    std::thread([this, post = mailbox_.Poster(), shared = shared_, look = look_, path] {
      shared->End(path, look(path));
      post([this] { answered_(); });
    }).detach();
  }

  /// Waits until no answer is owed, at most `limit`.
  void Wait(std::chrono::milliseconds limit) {
    std::unique_lock lock(shared_->mutex);
    shared_->changed.wait_for(lock, limit, [this] { return shared_->owed == 0; });
  }

  bool AreOwed() const {
    const std::lock_guard lock(shared_->mutex);
    return shared_->owed > 0;
  }

  /// The last answer; nothing when there has been none, or when it is owed.
  std::optional<Answer> Of(const std::string& path) const {
    const std::lock_guard lock(shared_->mutex);
    const auto found = shared_->answers.find(path);
    return found == shared_->answers.end() ? std::nullopt : found->second;
  }

 private:
  /// Owned by the asker and by each thread.
  struct Shared {
    /// False when the answer is owed already.
    bool Begin(const std::string& path) {
      const std::lock_guard lock(mutex);
      const auto [place, isNew] = answers.try_emplace(path);
      if (!isNew && !place->second) return false;
      place->second.reset();
      ++owed;
      return true;
    }

    void End(const std::string& path, Answer answer) {
      const std::lock_guard lock(mutex);
      answers[path] = std::move(answer);
      --owed;
      changed.notify_all();
    }

    std::mutex mutex;
    std::condition_variable changed;
    std::map<std::string, std::optional<Answer>> answers;  // without a value while it is owed
    int owed = 0;
  };

  std::shared_ptr<Shared> shared_;
  Look look_;
  std::function<void()> answered_;
  Mailbox mailbox_;
};

}  // namespace repvolta
