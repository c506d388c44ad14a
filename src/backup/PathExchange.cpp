#include "backup/PathExchange.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string_view>

#include "app/Options.h"
#include "app/RecordFormat.h"
#include "backup/BackupContents.h"
#include "base/FileNames.h"
#include "base/SingleByteText.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr const char* kMountFolders[] = {"/media/", "/run/media/"};
constexpr const char* kDiskFolders[] = {"/media", "/run/media", "/mnt"};

using TakePath = std::function<std::string(const std::string& path)>;

bool LiesIn(std::string_view path, std::string_view folder) {
  if (!path.starts_with(folder)) return false;
  return path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/';
}

/// Replaces what `exchange` changes, unless it does not fit: then `tooLong` gets the path.
void VisitField(std::span<Byte> field, const TakePath& exchange,
                std::vector<std::string>& tooLong) {
  const std::string path(TrimBlanks(DecodeField(field)));
  const std::string exchanged = exchange(path);
  if (exchanged == path) return;
  if (CutToField(exchanged, field.size()) == exchanged) {
    EncodeField(exchanged, field);
  } else {
    tooLong.push_back(path);
  }
}

void VisitSettings(std::span<Byte> file, const TakePath& exchange,
                   std::vector<std::string>& tooLong) {
  if (file.size() < 2 * kPathFieldSize) return;
  VisitField(file.first(kPathFieldSize), exchange, tooLong);
  VisitField(file.subspan(kPathFieldSize, kPathFieldSize), exchange, tooLong);
}

void VisitWorkout(std::span<Byte> file, const TakePath& exchange,
                  std::vector<std::string>& tooLong) {
  const ExerciseSlots workout = DecodeWorkout(file);
  for (std::size_t i = 0; i < kExerciseSlots; ++i) {
    const int songs = std::min<int>(workout[static_cast<int>(i)].NumberOfMusicFiles, kMusicSlots);
    for (int j = 0; j < songs; ++j) {
      const std::size_t begin =
          i * kExerciseRecordSize + static_cast<std::size_t>(j) * kPathFieldSize;
      if (begin + kPathFieldSize > file.size()) return;
      VisitField(file.subspan(begin, kPathFieldSize), exchange, tooLong);
    }
  }
}

Bytes VisitOptions(std::span<const Byte> file, const TakePath& exchange) {
  OptionLines options(AsText(file));
  const std::string path = Get(options, kPlayerMountPoint);
  const std::string exchanged = path.empty() ? path : exchange(path);
  if (exchanged != path) Put(options, kPlayerMountPoint, exchanged);
  const std::string text = options.File();
  return {text.begin(), text.end()};
}

Bytes VisitLines(std::span<const Byte> file, const TakePath& exchange) {
  Bytes content;
  content.reserve(file.size());
  const std::string text = AsText(file);
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const bool hasReturn = end > begin && text[end - 1] == '\r';
    const std::size_t length = end - begin - (hasReturn ? 1 : 0);
    const std::string line = exchange(text.substr(begin, length));
    content.insert(content.end(), line.begin(), line.end());
    const std::size_t next = std::min(end + 1, text.size());
    content.insert(content.end(), text.begin() + static_cast<std::ptrdiff_t>(begin + length),
                   text.begin() + static_cast<std::ptrdiff_t>(next));
    begin = next;
  }
  return content;
}

ExchangedFile VisitPaths(BackupKind kind, std::span<const Byte> file, const TakePath& exchange) {
  ExchangedFile result{.content = Bytes(file.begin(), file.end()), .tooLong = {}};
  switch (kind) {
    case BackupKind::kSettings:
      VisitSettings(result.content, exchange, result.tooLong);
      break;
    case BackupKind::kWorkout:
    case BackupKind::kVersion:
      VisitWorkout(result.content, exchange, result.tooLong);
      break;
    case BackupKind::kOptions:
      result.content = VisitOptions(file, exchange);
      break;
    case BackupKind::kMusicList:
      result.content = VisitLines(file, exchange);
      break;
    default:
      break;
  }
  return result;
}

/// The paths of a settings or options file are folders themselves.
bool HoldsFolders(BackupKind kind) {
  return kind == BackupKind::kSettings || kind == BackupKind::kOptions;
}

std::string CommonFolder(const std::string& one, const std::string& other) {
  std::string folder = one;
  while (!LiesIn(other, folder)) folder = WithoutSeparator(FolderOf(folder));
  return folder;
}

/// "/media" of "/media/me/PLAYER"
std::string FirstPart(const std::string& path) { return path.substr(0, path.find('/', 1)); }

/// Moves the folders that lie in `from` out of `missing`; true when there are any.
bool TakeBelow(const std::string& from, std::set<std::string>& missing) {
  return std::erase_if(missing, [&](const std::string& folder) { return LiesIn(folder, from); }) >
         0;
}

/// What follows from the names of the two homes.
std::vector<PathExchange> KnownExchanges(const Homes& homes) {
  if (homes.there.empty() || homes.here.empty() || homes.there == homes.here) return {};
  std::vector<PathExchange> known = {{homes.there, homes.here}};
  for (const char* mounts : kMountFolders) {
    known.push_back({mounts + FileName(homes.there), mounts + FileName(homes.here)});
  }
  return known;
}

/// On the computer of the backup, a disk that is missing is just not connected.
void ForgetDisks(const Homes& homes, std::set<std::string>& missing) {
  if (homes.there != homes.here) return;
  for (const char* disks : kDiskFolders) TakeBelow(disks, missing);
}

}  // namespace

std::string ExchangedPath(const std::string& path, const std::vector<PathExchange>& exchanges) {
  const PathExchange* innermost = nullptr;
  for (const PathExchange& exchange : exchanges) {
    if (exchange.from.empty() || exchange.to.empty() || !LiesIn(path, exchange.from)) continue;
    if (innermost == nullptr || exchange.from.size() > innermost->from.size())
      innermost = &exchange;
  }
  if (innermost == nullptr) return path;
  std::string_view rest = std::string_view(path).substr(innermost->from.size());
  while (rest.starts_with('/')) rest.remove_prefix(1);
  if (rest.empty()) return innermost->to;
  return WithoutSeparator(innermost->to) + (innermost->to == "/" ? "" : "/") + std::string(rest);
}

ExchangedFile ExchangePaths(BackupKind kind, std::span<const Byte> file,
                            const std::vector<PathExchange>& exchanges) {
  return VisitPaths(kind, file,
                    [&](const std::string& path) { return ExchangedPath(path, exchanges); });
}

std::vector<std::string> FoldersNamedIn(BackupKind kind, std::span<const Byte> file) {
  std::set<std::string> folders;
  static_cast<void>(VisitPaths(kind, file, [&](const std::string& path) {
    const std::string folder = WithoutSeparator(HoldsFolders(kind) ? path : FolderOf(path));
    if (folder.starts_with('/')) folders.insert(folder);
    return path;
  }));
  return {folders.begin(), folders.end()};
}

std::vector<PathExchange> ProposedExchanges(
    const std::vector<std::string>& folders, const Homes& homes,
    const std::function<bool(const std::string& folder)>& isHere) {
  std::set<std::string> missing;
  for (const std::string& folder : folders) {
    if (!isHere(folder)) missing.insert(folder);
  }
  ForgetDisks(homes, missing);
  std::vector<PathExchange> proposals;
  for (const PathExchange& known : KnownExchanges(homes)) {
    if (TakeBelow(known.from, missing)) proposals.push_back(known);
  }
  std::map<std::string, std::string> common;  // by the first part
  for (const std::string& folder : missing) {
    std::string& shared = common[FirstPart(folder)];
    shared = shared.empty() ? folder : CommonFolder(shared, folder);
  }
  for (const auto& [first, folder] : common) proposals.push_back({folder, ""});
  return proposals;
}

}  // namespace repvolta
