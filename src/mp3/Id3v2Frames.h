#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Bytes.h"

namespace repvolta {

/// The frames of a tag: texts in UTF-8, each under its identifier and an ordinal that counts the
/// frames of that identifier from 1.
class Id3v2Frames {
 public:
  /// Adds a frame behind those of its identifier.
  void Add(std::string_view identifier, std::string text);

  /// The identifier keeps its place in the order.
  void RemoveAll(std::string_view identifier);

  std::size_t Count(std::string_view identifier) const;

  /// "" when there is no such frame.
  std::string Text(std::string_view identifier, std::size_t ordinal) const;

  /// The text of the last frame of the identifier, or "".
  std::string LastText(std::string_view identifier) const;

  /// In the order in which they were first added, those without a frame left too.
  std::vector<std::string> Identifiers() const;

  /// The frames as version 2.3 holds them, identifier by identifier.
  Bytes Build() const;

 private:
  struct Entry {
    std::string identifier;
    std::vector<std::string> texts;
  };

  /// The count of entries when there is none.
  std::size_t IndexOf(std::string_view identifier) const;

  std::vector<Entry> entries_;
};

}  // namespace repvolta
