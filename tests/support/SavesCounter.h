#pragma once

#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

namespace repvolta {

/// Counts how often a workout is saved: each time, its working file gets its name.
class SavesCounter {
 public:
  // Equal events in a row would become one, so the name before is watched as well.
  SavesCounter() { inotify_add_watch(watch_, "workouts", IN_MOVED_FROM | IN_MOVED_TO); }
  ~SavesCounter() { close(watch_); }
  SavesCounter(const SavesCounter&) = delete;
  SavesCounter& operator=(const SavesCounter&) = delete;

  int Count() const {
    std::array<char, 4096> events{};
    const ssize_t size = read(watch_, events.data(), events.size());
    int count = 0;
    inotify_event event{};
    for (ssize_t i = 0; i < size; i += static_cast<ssize_t>(sizeof event + event.len)) {
      std::memcpy(&event, events.data() + i, sizeof event);
      if ((event.mask & IN_MOVED_TO) != 0) ++count;
    }
    return count;
  }

 private:
  int watch_ = inotify_init1(IN_NONBLOCK);
};

}  // namespace repvolta
