#pragma once

#include <string_view>

namespace repvolta {

inline constexpr std::string_view kProductName = "Repvolta";
inline constexpr std::string_view kProductAddress = "https://repvolta.example/";

}  // namespace repvolta
