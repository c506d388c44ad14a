#pragma once

#include <cerrno>
#include <string>
#include <utility>

namespace repvolta {

/// The result of a system call, which is repeated while signals interrupt it.
template <class Call>
auto Uninterrupted(Call call) {
  while (true) {
    const auto result = call();
    if (result != -1 || errno != EINTR) return result;
  }
}

/// Owns the file descriptor of an open file or folder and closes it when destroyed.
class Descriptor {
 public:
  /// Owns nothing.
  Descriptor() = default;

  /// Takes over an open file descriptor; -1 means none.
  explicit Descriptor(int number) : number_(number) {}

  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  void Close() noexcept;

  /// Gives up the file descriptor without closing it.
  void Release() noexcept { number_ = -1; }

 private:
  int number_ = -1;
};

/// Opens with the flags of open(2); child programs do not inherit the descriptor, and signals do
/// not interrupt the call. On failure the result is not open and errno holds the error.
Descriptor OpenDescriptor(const std::string& path, int flags, unsigned mode = 0);

/// True when `name` is still the open file or folder itself, not a link to it.
bool IsStillAt(const Descriptor& descriptor, const std::string& name);

}  // namespace repvolta
