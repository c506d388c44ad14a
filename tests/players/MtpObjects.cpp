#include "MtpObjects.h"

#include <algorithm>
#include <cerrno>
#include <cwctype>
#include <optional>
#include <string_view>

namespace mtp_like {
namespace {

constexpr std::size_t kMostUnits = 255;  // of UTF-16
constexpr std::wstring_view kRefused = L"<>:\"/\\|?*";
constexpr wchar_t kFirstOfTwoUnits = 0x10000;

/// The characters of a name; nothing when it is not UTF-8.
std::optional<std::wstring> Characters(const std::string& name) {
  std::wstring characters(name.size(), L'\0');
  const std::size_t count = std::mbstowcs(characters.data(), name.c_str(), name.size());
  if (count == static_cast<std::size_t>(-1)) return std::nullopt;
  characters.resize(count);
  return characters;
}

/// Two names with the same key are one name to the player.
std::string KeyOf(const std::string& name) {
  std::wstring characters = Characters(name).value_or(L"");
  if (characters.empty()) return name;
  std::ranges::transform(characters, characters.begin(), [](wchar_t character) {
    return static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
  });
  std::string key(characters.size() * 4 + 1, '\0');
  key.resize(std::wcstombs(key.data(), characters.c_str(), key.size()));
  return key;
}

int CheckName(const std::string& name) {
  const std::optional<std::wstring> characters = Characters(name);
  if (!characters) return -EINVAL;
  std::size_t units = 0;
  for (const wchar_t character : *characters) {
    if (character < L' ' || kRefused.find(character) != std::wstring_view::npos) return -EINVAL;
    units += character >= kFirstOfTwoUnits ? 2 : 1;
  }
  return units > kMostUnits ? -ENAMETOOLONG : 0;
}

std::string LastName(const std::string& path) { return path.substr(path.rfind('/') + 1); }

std::time_t NowInTwoSecondSteps() { return std::time(nullptr) / 2 * 2; }

}  // namespace

Objects::Objects(const Habits& habits) : habits_(habits), root_(std::make_shared<Object>()) {
  root_->isFolder = true;
  root_->changed = NowInTwoSecondSteps();
}

void Objects::PlugIn() {
  isPulledOut_ = false;
  habits_.pulledOutAt = UINT64_MAX;
}

ObjectPointer Objects::Find(const std::string& path) const {
  ObjectPointer object = root_;
  for (std::size_t begin = 1; object && begin < path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    const auto entry = object->entries.find(KeyOf(path.substr(begin, end - begin)));
    object = entry == object->entries.end() ? nullptr : entry->second;
    begin = end + 1;
  }
  return object;
}

ObjectPointer Objects::FolderOf(const std::string& path) const {
  return Find(path.substr(0, path.rfind('/')));
}

int Objects::Make(const std::string& path, bool isFolder, ObjectPointer& made) {
  const ObjectPointer folder = FolderOf(path);
  if (!folder) return -ENOENT;
  const std::string name = LastName(path);
  if (const int error = CheckName(name); error != 0) return error;
  ObjectPointer& entry = folder->entries[KeyOf(name)];
  if (entry) return -EEXIST;
  entry = std::make_shared<Object>();
  entry->name = name;
  entry->isFolder = isFolder;
  entry->changed = NowInTwoSecondSteps();
  made = entry;
  return 0;
}

int Objects::Remove(const std::string& path, bool isFolder) {
  const ObjectPointer object = Find(path);
  if (!object) return -ENOENT;
  if (object->isFolder != isFolder) return isFolder ? -ENOTDIR : -EISDIR;
  if (!object->entries.empty()) return -ENOTEMPTY;
  held_ -= object->content.size();
  object->content.clear();
  FolderOf(path)->entries.erase(KeyOf(object->name));
  return 0;
}

int Objects::Move(const std::string& from, const std::string& to) {
  if (!habits_.renames) return -ENOTSUP;
  const ObjectPointer object = Find(from);
  if (!object) return -ENOENT;
  const ObjectPointer there = Find(to);
  if (there && there != object) return -EEXIST;
  const ObjectPointer folder = FolderOf(to);
  if (!folder) return -ENOENT;
  const std::string name = LastName(to);
  if (const int error = CheckName(name); error != 0) return error;
  FolderOf(from)->entries.erase(KeyOf(object->name));
  object->name = name;
  folder->entries[KeyOf(name)] = object;
  return 0;
}

int Objects::TakeWhatFits(Object& file, const char* bytes, std::size_t size) {
  const std::uint64_t room = habits_.fullAt - std::min(habits_.fullAt, held_);
  if (size > room && habits_.reportsFullOnClose) {
    file.closeError = -ENOSPC;
    return static_cast<int>(size);
  }
  const std::size_t taken = static_cast<std::size_t>(std::min<std::uint64_t>(size, room));
  if (taken == 0 && size > 0) return -ENOSPC;
  file.content.append(bytes, taken);
  file.changed = NowInTwoSecondSteps();
  held_ += taken;
  written_ += taken;
  return static_cast<int>(taken);
}

int Objects::Write(Object& file, const char* bytes, std::size_t size, std::uint64_t offset) {
  if (file.closeError != 0) return static_cast<int>(size);
  if (offset != file.content.size()) return -ENOTSUP;
  const std::uint64_t left = habits_.pulledOutAt - std::min(habits_.pulledOutAt, written_);
  if (size < left) return TakeWhatFits(file, bytes, size);
  // What went over the cable before it was pulled stays.
  TakeWhatFits(file, bytes, static_cast<std::size_t>(left));
  PullOut();
  return -EIO;
}

}  // namespace mtp_like
