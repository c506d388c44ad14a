#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>

#include "base/Bytes.h"

struct archive;

namespace repvolta {

/// Writes a ZIP file, piece by piece, into `write`, which may throw.
class ZipWriter {
 public:
  using Write = std::function<void(std::span<const Byte>)>;

  struct File {
    std::string path;
    std::int64_t time;  // of its last change, as time()
  };

  explicit ZipWriter(Write write);

  /// Without Finish, the ZIP file stays without its end.
  ~ZipWriter();
  ZipWriter(const ZipWriter&) = delete;
  ZipWriter& operator=(const ZipWriter&) = delete;

  enum class Packing { kDeflated, kStored };

  /// Throws what `write` throws, and std::runtime_error when the file cannot be added.
  void Add(const File& file, std::span<const Byte> content, Packing packing);

  /// Writes the end of the ZIP file. Throws as Add.
  void Finish();

 private:
  struct Freeing {
    void operator()(archive* zip) const;
  };

  static long Take(archive* zip, void* self, const void* bytes, std::size_t count);
  void Check(bool isDone);

  Write write_;
  std::exception_ptr failure_;  // of a call that was made by the library
  bool isGivenUp_ = false;
  std::unique_ptr<archive, Freeing> zip_;  // freed first
};

}  // namespace repvolta
