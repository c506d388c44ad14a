#include "player/KeptName.h"

#include <algorithm>
#include <string_view>

#include "base/Folder.h"

namespace repvolta {
namespace {

bool MayBecomeAnother(const std::string& name) {
  return name.ends_with('.') || name.ends_with(' ') ||
         std::any_of(name.begin(), name.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

}  // namespace

bool IsKeptAs(const FolderHandle& folder, const std::string& name) {
  // Only such names are looked for, because the list may be long.
  if (!MayBecomeAnother(name)) return true;
  bool isListed = false;
  const int error = ForEachEntry(folder, ".", [&](std::string_view entry, EntryType) {
    isListed = isListed || entry == name;
  });
  return isListed || error != 0;
}

}  // namespace repvolta
