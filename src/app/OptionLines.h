#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The lines of an options file. A line is "key = value", a comment that begins with "#", or blank;
/// any other line is odd: it is kept and has no meaning. Of several lines with one key, the last
/// one counts.
class OptionLines {
 public:
  OptionLines() = default;
  explicit OptionLines(std::string_view file);

  /// The content of the file: lines that were not changed are as they were read.
  std::string File() const;

  /// Without the blanks and tabs at both ends; nothing when no line has the key.
  std::optional<std::string> Value(std::string_view key) const;

  /// Changes the line that counts, or appends one. The value must not have line breaks, nor blanks
  /// at its ends.
  void Set(std::string_view key, std::string_view value);

  /// Removes every line with the key.
  void Remove(std::string_view key);

  /// The keys, each once, in the order of the lines.
  std::vector<std::string> Keys() const;

  struct OddLine {
    std::size_t number;  // from 1
    std::string text;
  };
  std::vector<OddLine> OddLines() const;

  /// The number of the line that counts, from 1; 0 when no line has the key.
  std::size_t LineNumber(std::string_view key) const;

  bool operator==(const OptionLines&) const = default;

 private:
  std::string mark_;                // the byte order mark, if there is one
  std::vector<std::string> lines_;  // with their line ends
};

/// `theirs`, with the value of every key that differs between `base` and `ours` taken from `ours`.
OptionLines MergeOptions(const OptionLines& base, const OptionLines& ours, OptionLines theirs);

// What an option's value can be; the default counts where the file has no value, or an odd one.

struct FlagOption {
  std::string_view key;
  bool byDefault;
};

struct NumberOption {
  std::string_view key;
  std::int64_t byDefault;
  std::int64_t least;
  std::int64_t most;
};

/// Any bytes but zero.
struct TextOption {
  std::string_view key;
  std::string_view byDefault;
};

bool Get(const OptionLines& options, const FlagOption& option);
std::int64_t Get(const OptionLines& options, const NumberOption& option);
std::string Get(const OptionLines& options, const TextOption& option);

void Put(OptionLines& options, const FlagOption& option, bool value);
void Put(OptionLines& options, const NumberOption& option, std::int64_t value);
void Put(OptionLines& options, const TextOption& option, std::string_view value);

/// False when the file has a value of the option that is no such value.
bool IsUnderstood(const OptionLines& options, const FlagOption& option);
bool IsUnderstood(const OptionLines& options, const NumberOption& option);

}  // namespace repvolta
