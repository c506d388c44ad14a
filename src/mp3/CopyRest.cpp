#include "mp3/CopyRest.h"

namespace repvolta {

void CopyRest(const File& from, std::uint64_t offset, WholeFileWriter& to) {
  Bytes block(std::size_t{128} * 1024);
  while (const std::size_t count = from.ReadAt(offset, block)) {
    to.Append(std::span<const Byte>(block).first(count));
    offset += count;
  }
}

}  // namespace repvolta
