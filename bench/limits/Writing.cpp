#include <array>
#include <vector>

#include "limits/Descriptor.h"
#include "limits/Limits.h"

namespace repvolta::limits {
namespace {

constexpr std::size_t kBlock = std::size_t{128} * 1024;
constexpr std::size_t kWavHeader = 46;

void Patch(const Descriptor& file, std::uint64_t offset, std::uint64_t value) {
  std::array<Byte, 4> bytes{};
  StoreLittleEndian(std::span<Byte>(bytes), static_cast<std::uint32_t>(value));
  file.WriteAt(offset, bytes.data(), bytes.size());
}

}  // namespace

void CopyBehind(const Bytes& head, const std::string& source, std::uint64_t offset,
                const std::string& target) {
  const Descriptor from(source, O_RDONLY);
  const Descriptor to(target, O_WRONLY | O_CREAT | O_TRUNC);
  to.Write(head.data(), head.size());
  std::vector<Byte> block(kBlock);
  while (const std::size_t count = from.ReadAt(offset, block.data(), block.size())) {
    to.Write(block.data(), count);
    offset += count;
  }
}

void Join(const std::string& target, const std::vector<std::string>& clips) {
  std::vector<Byte> block(kBlock);
  for (const std::string& clip : clips) {
    const Descriptor from(clip, O_RDONLY);
    const Descriptor to(target, O_RDWR);
    std::uint64_t end = to.Size() - 1;
    std::uint64_t offset = kWavHeader - 1;
    while (const std::size_t count = from.ReadAt(offset, block.data(), block.size())) {
      to.WriteAt(end, block.data(), count);
      offset += count;
      end += count;
    }
    Patch(to, 4, end - 8);
    Patch(to, 16, 18);
    Patch(to, 42, end - 47);
  }
}

void Flush(const std::vector<std::string>& files, const std::string& folder) {
  for (const std::string& path : files) fsync(Descriptor(path, O_RDONLY).Number());
  fsync(Descriptor(folder, O_RDONLY | O_DIRECTORY).Number());
}

}  // namespace repvolta::limits
