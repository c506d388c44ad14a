#include "base/FileNames.h"

#include <algorithm>
#include <cerrno>
#include <functional>

#include "base/File.h"
#include "base/FileError.h"
#include "base/Folder.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::size_t kLongestName = 255;  // bytes, in common file systems

bool IsForbidden(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code == '/' || code < 0x20 || code == 0x7F;
}

/// Decides by the case-folded name whether a file is wanted.
using Accept = std::function<bool(const std::u32string& foldedName)>;

/// The names of the wanted files in the folder, including links to files, sorted without regard to
/// case; empty when there is no such folder. Throws FileError.
std::vector<std::string> SortedFiles(const std::string& folder, const Accept& accept) {
  const std::string path = folder.empty() ? "." : folder;
  std::vector<std::pair<std::u32string, std::string>> keyed;
  const int error = ForEachEntry(path, [&](std::string_view name, EntryType type) {
    std::u32string key = FoldCase(name);
    if (!accept(key)) return;
    const bool isFile =
        type == EntryType::kFile ||
        (type == EntryType::kLink && FileIsReachable(path + "/" + std::string(name)));
    if (isFile) keyed.emplace_back(std::move(key), name);
  });
  if (error != 0 && error != ENOENT && error != ENOTDIR) {
    throw FileError(folder, "could not be read", error);
  }
  std::sort(keyed.begin(), keyed.end());
  std::vector<std::string> names;
  names.reserve(keyed.size());
  for (auto& [key, name] : keyed) names.push_back(std::move(name));
  return names;
}

}  // namespace

std::string FileName(std::string_view path) {
  return std::string(path.substr(path.rfind('/') + 1));
}

std::string BaseName(std::string_view path) {
  const std::string name = FileName(path);
  return name.substr(0, name.rfind('.'));
}

std::string FolderOf(std::string_view path) {
  return std::string(path.substr(0, path.rfind('/') + 1));
}

std::string WithoutSeparator(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

bool IsFileName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.size() <= kLongestName &&
         std::none_of(name.begin(), name.end(), IsForbidden);
}

std::string AsFileName(std::string_view name, std::string_view extension) {
  std::string result(CutUtf8(name, kLongestName - extension.size()));
  std::replace_if(result.begin(), result.end(), IsForbidden, '_');
  return result.append(extension);
}

std::optional<std::string> FindFile(const std::string& path) {
  if (FileIsReachable(path)) return path;
  const std::u32string wanted = FoldCase(FileName(path));
  const std::string folder = FolderOf(path);
  try {
    const auto names = SortedFiles(folder, [&](const auto& name) { return name == wanted; });
    if (!names.empty()) return folder + names.front();
  } catch (const FileError&) {
    // A folder that cannot be read counts as one without the file.
  }
  return std::nullopt;
}

std::string ExistingName(const std::string& path) { return FindFile(path).value_or(path); }

std::vector<std::string> ListFiles(const std::string& folder, std::string_view extension) {
  const std::u32string wanted = FoldCase(extension);
  return SortedFiles(folder, [&](const auto& name) { return name.ends_with(wanted); });
}

}  // namespace repvolta
