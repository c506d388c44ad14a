#include <algorithm>
#include <array>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <vector>

#include "limits/Descriptor.h"
#include "limits/Limits.h"

namespace repvolta::limits {
namespace {

constexpr std::size_t kBlock = std::size_t{128} * 1024;

std::uint64_t TagSize(const std::array<Byte, 10>& header) {
  if (std::memcmp(header.data(), "ID3", 3) != 0) return 0;
  std::uint64_t size = 0;
  for (std::size_t i = 6; i < 10; ++i) size = size << 7 | (header[i] & 0x7FU);
  return size + 10;
}

template <class Take>
std::uint64_t ForEachBlock(const std::string& path, Take take) {
  const Descriptor file(path, O_RDONLY);
  std::vector<Byte> block(kBlock);
  std::uint64_t sum = 0;
  std::uint64_t offset = 0;
  while (const std::size_t count = file.ReadAt(offset, block.data(), block.size())) {
    sum += take(block.data(), count);
    offset += count;
  }
  return sum;
}

}  // namespace

std::uint64_t ReadPlaces(const std::vector<std::string>& files) {
  std::uint64_t sum = 0;
  for (const std::string& path : files) {
    const Descriptor file(path, O_RDONLY);
    const std::uint64_t size = file.Size();
    std::array<Byte, 10> header{};
    std::array<Byte, 4096> start{};
    std::array<Byte, 128> end{};
    file.ReadAt(0, header.data(), header.size());
    file.ReadAt(TagSize(header), start.data(), start.size());
    file.ReadAt(size - end.size(), end.data(), end.size());
    sum += header[0] + start[0] + end[0];
  }
  return sum;
}

std::uint64_t ReadOnce(const std::string& path) {
  return ForEachBlock(path, [](const Byte* bytes, std::size_t) { return bytes[0]; });
}

std::uint64_t PassOver(const std::string& path) {
  return ForEachBlock(path, [](const Byte* bytes, std::size_t count) {
    std::uint64_t lines = 0;
    const Byte* const end = bytes + count;
    while (const void* found = std::memchr(bytes, '\n', static_cast<std::size_t>(end - bytes))) {
      ++lines;
      bytes = static_cast<const Byte*>(found) + 1;
    }
    return lines;
  });
}

namespace {

void ListFolder(const std::string& folder, FILE* list) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), closedir);
  if (!entries) throw std::runtime_error(folder);
  while (const dirent* entry = readdir(entries.get())) {
    const char* name = entry->d_name;
    const std::size_t size = std::strlen(name);
    if (entry->d_type == DT_DIR) {
      if (name[0] != '.') ListFolder(folder + "/" + name, list);
    } else if (entry->d_type == DT_REG && size >= 4 && std::strcmp(name + size - 4, ".mp3") == 0) {
      std::fputs(folder.c_str(), list);
      std::fputc('/', list);
      std::fputs(name, list);
      std::fputc('\n', list);
    }
  }
}

}  // namespace

void ListPlainly(const std::string& folder, const std::string& list) {
  const std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(list.c_str(), "w"), std::fclose);
  if (!file) throw std::runtime_error(list);
  ListFolder(folder, file.get());
}

}  // namespace repvolta::limits
