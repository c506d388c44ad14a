#pragma once

#include <string>
#include <string_view>

#include "base/Bytes.h"

namespace repvolta {

/// Unless `holds`, ends the program, so that the input is kept as a finding.
void Require(bool holds, const char* rule);

/// Runs the deed and catches exceptions of type `Fault`, which a bad file may cause. False when it
/// threw.
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

  /// The full path, ending with the separator.
  const std::string& Path() const { return path_; }

  /// Deletes everything in the folder.
  void Empty() const;

  std::size_t CountEntries() const;

 private:
  std::string path_;
};

void PutFile(const std::string& path, std::span<const Byte> content);
Bytes GetFile(const std::string& path);

/// Takes parameters off the start of an input, and zeros after its end.
class FuzzInput {
 public:
  FuzzInput(const Byte* data, std::size_t size) : rest_(data, size) {}

  Byte TakeByte();
  std::uint32_t TakeNumber();  // two bytes

  /// A length byte, then at most that many characters.
  std::string TakeText();

  std::span<const Byte> Rest() const { return rest_; }

 private:
  std::span<const Byte> rest_;
};

}  // namespace repvolta

/// Each target defines this. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
