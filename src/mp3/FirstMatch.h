#pragma once

#include <span>

#include "base/Bytes.h"

namespace repvolta {

/// 1 for true, 0 for false: conditions can then be joined with "&" and "|", without branches.
constexpr unsigned AsBit(bool condition) { return condition ? 1 : 0; }

/// The first index below `count` at which `matches` returns 1 for the three bytes that start there;
/// `count` when there is none. `bytes` has `count` + 2 bytes. `matches` returns 0 or 1 and must not
/// branch: it is applied to many positions at once, so the search takes the same time for all data.
template <class Matches>
std::size_t FirstMatch(std::span<const Byte> bytes, std::size_t count, Matches matches) {
  constexpr std::size_t kAtOnce = 256;
  const Byte* const at = bytes.data();
  std::size_t i = 0;
  for (; i + kAtOnce <= count; i += kAtOnce) {
    Byte any = 0;
    for (std::size_t j = i; j < i + kAtOnce; ++j) {
      any = static_cast<Byte>(any | matches(at[j], at[j + 1], at[j + 2]));
    }
    if (any != 0) break;
  }
  while (i < count && matches(at[i], at[i + 1], at[i + 2]) == 0) ++i;
  return i;
}

}  // namespace repvolta
