#pragma once

#include <cerrno>
#include <string>
#include <utility>

namespace repvolta {

/// The result of a call of the system, which is made again as long as a signal interrupts it.
template <class Call>
auto Uninterrupted(Call call) {
  while (true) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

/// Owns the number under which the system knows an open file or folder; closed when it goes.
class Descriptor {
 public:
  /// Of nothing.
  Descriptor() = default;

  /// Takes over what was opened; -1 is nothing.
  explicit Descriptor(int number) : number_(number) {}

  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  void Close() noexcept;

  /// Leaves it open, for someone else to close.
  void Release() noexcept { number_ = -1; }

 private:
  int number_ = -1;
};

/// Opens with the flags of open(2), however often a signal comes in between, and never for the
/// programs that are started. Of nothing, with the error in errno, when it cannot be opened.
Descriptor OpenDescriptor(const std::string& path, int flags, unsigned mode = 0);

/// True when the open file or folder is the one that now has this name, and not behind a link.
bool IsStillAt(const Descriptor& descriptor, const std::string& name);

}  // namespace repvolta
