#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

/// The frames of a tag, as UTF-8 texts. An ordinal, from 1, tells apart frames with the same
/// identifier.
class Id3v2Frames {
 public:
  /// Adds a frame after those with the same identifier.
  void Add(std::string_view identifier, std::string text);

  /// Removes the frames; the identifier keeps its place in the order.
  void RemoveAll(std::string_view identifier);

  std::size_t Count(std::string_view identifier) const;

  /// "" when there is no such frame.
  std::string Text(std::string_view identifier, std::size_t ordinal) const;

  /// The text of the last frame of the identifier, or "".
  std::string LastText(std::string_view identifier) const;

  /// In the order in which they were first added, including those whose frames were all removed.
  std::vector<std::string> Identifiers() const;

  /// The bytes of the frames in version 2.3, identifier by identifier.
  Bytes Build() const;

 private:
  struct Entry {
    std::string identifier;
    std::vector<std::string> texts;
  };

  /// Returns the number of entries when there is no such identifier.
  std::size_t IndexOf(std::string_view identifier) const;

  std::vector<Entry> entries_;
};

}  // namespace repvolta
