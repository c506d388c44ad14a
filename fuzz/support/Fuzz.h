#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// Ends the program, so that the input is kept as a finding, unless `holds`.
void Require(bool holds, const char* rule);

/// Does what a file can be blamed for throwing. False when it threw.
template <class Fault, class Deed>
bool Succeeds(Deed deed) {
  try {
    deed();
    return true;
  } catch (const Fault&) {
    return false;
  }
}

/// An empty folder, in memory where the system has such folders. It is the current directory from
/// the first use on and is deleted at the end of the program. A target keeps one for all inputs.
class FuzzFolder {
 public:
  FuzzFolder();
  ~FuzzFolder();
  FuzzFolder(const FuzzFolder&) = delete;
  FuzzFolder& operator=(const FuzzFolder&) = delete;

  /// The full path, with the separator at its end.
  const std::string& Path() const { return path_; }

  /// Deletes all that is in it.
  void Empty() const;

  std::size_t CountEntries() const;

 private:
  std::string path_;
};

void PutFile(const std::string& path, std::span<const Byte> content);
Bytes GetFile(const std::string& path);

/// Takes parameters off the start of an input; zeros stand for what it lacks.
class FuzzInput {
 public:
  FuzzInput(const Byte* data, std::size_t size) : rest_(data, size) {}

  Byte TakeByte();
  std::uint32_t TakeNumber();  // two bytes

  /// A length byte, then at most so many characters.
  std::string TakeText();

  std::span<const Byte> Rest() const { return rest_; }

 private:
  std::span<const Byte> rest_;
};

}  // namespace repvolta

/// What each target defines. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
