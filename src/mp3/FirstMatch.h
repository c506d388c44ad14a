#pragma once

#include <span>

#include "base/Bytes.h"

/// Before a function: it is compiled three times, and runs with registers of 64 or 32 bytes where
/// the processor has them. Only the processors of x86-64 differ in that. clang chooses wrongly
/// among three, and the program is not measured with it.
#if defined(__x86_64__) && !defined(__clang__)
#define REPVOLTA_WIDE_REGISTERS [[gnu::target_clones("arch=x86-64-v4", "avx2", "default")]]
#else
#define REPVOLTA_WIDE_REGISTERS
#endif

namespace repvolta {

/// 1 for true, 0 for false: conditions can then be joined with "&" and "|", without branches.
constexpr unsigned AsBit(bool condition) { return condition ? 1 : 0; }

/// The first index below `count` at which `matches` does not return 0 for the three bytes that
/// start there; `count` when there is none. `bytes` has `count` + 2 bytes. `matches` must not
/// branch: it is applied to many positions at once, so the search takes the same time for all data.
/// It becomes part of its caller, which chooses the registers.
template <class Matches>
[[gnu::always_inline]] inline std::size_t FirstMatch(std::span<const Byte> bytes, std::size_t count,
                                                     Matches matches) {
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
