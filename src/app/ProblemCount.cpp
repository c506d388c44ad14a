#include "app/ProblemCount.h"

namespace repvolta {
namespace {

std::string Counted(int count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

}  // namespace

LineKind KindOfLine(std::string_view line) {
  if (line.starts_with("ERROR")) return LineKind::kError;
  return line.starts_with("WARNING") ? LineKind::kWarning : LineKind::kPlain;
}

void ProblemCount::Add(LineKind kind) {
  if (kind == LineKind::kError) ++errors_;
  if (kind == LineKind::kWarning) ++warnings_;
}

std::string ProblemCount::Text() const {
  std::string text = errors_ == 0 ? "" : Counted(errors_, "error");
  if (errors_ > 0 && warnings_ > 0) text += ", ";
  return warnings_ == 0 ? text : text + Counted(warnings_, "warning");
}

}  // namespace repvolta
