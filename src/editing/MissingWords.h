#pragma once

#include <string>
#include <string_view>

#include "app/ProgressLog.h"

namespace repvolta {

/// Keeps the lines about words that are missing in a joined sound as one text.
class MissingWords : public ProgressLog {
 public:
  void AddLineToUpdateList(std::string_view line) override {
    if (line.starts_with(kError)) line.remove_prefix(kError.size());
    if (!text_.empty()) text_ += ' ';
    text_ += line;
  }

  const std::string& Text() const { return text_; }

 private:
  static constexpr std::string_view kError = "ERROR: ";

  std::string text_;
};

}  // namespace repvolta
