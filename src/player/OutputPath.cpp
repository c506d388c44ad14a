#include "player/OutputPath.h"

#include "base/SingleByteText.h"
#include "base/Text.h"

namespace repvolta {
namespace {

constexpr std::size_t kPathFieldSize = 256;

/// The number of bytes that the text takes in its field.
std::size_t SizeInField(const std::string& text) {
  Bytes field(kPathFieldSize);
  EncodeField(text, field);
  return TrimTrailingBlanks(AsText(field)).size();
}

}  // namespace

bool IsOutputPathMissing(const SettingsRecord& settings) {
  const std::string path = settings.OutputPath.Trimmed();
  return path.empty() || SizeInField(path) >= kPathFieldSize;
}

}  // namespace repvolta
