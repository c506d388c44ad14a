#include "platform/Mailbox.h"

#include <QSocketNotifier>
#include <mutex>
#include <sys/eventfd.h>
#include <utility>
#include <vector>

#include "base/Descriptor.h"

namespace repvolta {

/// Owned by the mailbox and by each poster.
struct Mailbox::Shared {
  std::vector<Call> TakeAll() {
    eventfd_t rings = 0;
    eventfd_read(bell.Number(), &rings);
    const std::lock_guard lock(mutex);
    return std::exchange(calls, {});
  }

  std::mutex mutex;
  std::vector<Call> calls;
  bool isClosed = false;
  Descriptor bell{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
};

Mailbox::Mailbox()
    : shared_(std::make_shared<Shared>()),
      notifier_(std::make_unique<QSocketNotifier>(shared_->bell.Number(), QSocketNotifier::Read)) {
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [shared = shared_] {
    // A call may end the mailbox.
    for (const Call& call : shared->TakeAll()) {
      if (!shared->isClosed) call();
    }
  });
}

Mailbox::~Mailbox() { shared_->isClosed = true; }

std::function<void(Mailbox::Call)> Mailbox::Poster() const {
  return [shared = shared_](Call call) {
    const std::lock_guard lock(shared->mutex);
    shared->calls.push_back(std::move(call));
    eventfd_write(shared->bell.Number(), 1);
  };
}

}  // namespace repvolta
