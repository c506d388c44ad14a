#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace repvolta {

/// The fields of a line, which a tab ends. The last one takes the rest, with its tabs; fewer than
/// `count` when the line has fewer.
std::vector<std::string_view> Fields(std::string_view line, std::size_t count);

/// A number with a point and two places, the same in every locale: "-11.98".
std::string TwoPlaces(double level);

/// The number of such a text; nothing when it is none, or one that no level can be.
std::optional<double> NumberIn(std::string_view text);

}  // namespace repvolta
