#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace repvolta {

/// Brings calls from threads that may never end to the thread of the event loop. Such a thread may
/// outlive the mailbox; what it posts then is dropped.
class Mailbox {
 public:
  using Call = std::function<void()>;

  Mailbox();
  ~Mailbox();
  Mailbox(const Mailbox&) = delete;
  Mailbox& operator=(const Mailbox&) = delete;

  /// Posts a call from any thread; the event loop of the mailbox's thread makes it.
  std::function<void(Call)> Poster() const;

 private:
  struct Shared;

  std::shared_ptr<Shared> shared_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace repvolta
