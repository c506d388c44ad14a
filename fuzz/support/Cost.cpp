#include "support/Cost.h"

#include <algorithm>
#include <unistd.h>

#include "support/Fuzz.h"

// Only clang's sanitizers can be asked what is allocated; a replay with gcc does not count memory.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define REPVOLTA_COUNTS_MEMORY
#endif
#endif

#ifdef REPVOLTA_COUNTS_MEMORY
#include <sanitizer/allocator_interface.h>
#endif

namespace repvolta {
namespace {

// Kept outside of any object, since the hooks below are called from everywhere.
bool counting = false;
Cost cost;

constexpr std::size_t kMultipleHeld = 16;
constexpr std::uint64_t kMultipleRead = 8;
constexpr std::uint64_t kReadsBesides = 64;

#ifdef REPVOLTA_COUNTS_MEMORY
void Count(const volatile void* /*memory*/, std::size_t size) {
  if (!counting) return;
  cost.heldNow += size;
  cost.heldMost = std::max(cost.heldMost, cost.heldNow);
}

void Uncount(const volatile void* memory) {
  if (!counting || memory == nullptr) return;
  // Memory from before the deed is freed too.
  const std::size_t size = __sanitizer_get_allocated_size(const_cast<void*>(memory));
  cost.heldNow -= std::min(size, cost.heldNow);
}

void InstallHooks() {
  static const bool installed = [] {
    const int hooks = __sanitizer_install_malloc_and_free_hooks(Count, Uncount);
    Require(hooks > 0, "memory can be counted");
    return true;
  }();
  static_cast<void>(installed);
}
#else
void InstallHooks() {}
#endif

}  // namespace

LinearCost::LinearCost(std::size_t inputSize, std::size_t constant)
    : inputSize_(inputSize), constant_(constant) {
  InstallHooks();
  cost = {};
  counting = true;
}

LinearCost::~LinearCost() {
  counting = false;
  Require(cost.heldMost <= kMultipleHeld * inputSize_ + constant_,
          "memory stays within a small multiple of the input");
  Require(cost.bytesRead <= kMultipleRead * inputSize_ + kFewBlocks,
          "a file is read only a few times");
  Require(cost.reads <= inputSize_ + kReadsBesides, "a read is worth its call");
}

}  // namespace repvolta

// The linker replaces pread by this (--wrap) and dictates the names.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" ssize_t __real_pread(int descriptor, void* buffer, std::size_t count, off_t offset);

extern "C" ssize_t __wrap_pread(int descriptor, void* buffer, std::size_t count, off_t offset) {
  const ssize_t result = __real_pread(descriptor, buffer, count, offset);
  ++repvolta::cost.reads;
  if (result > 0) repvolta::cost.bytesRead += static_cast<std::uint64_t>(result);
  return result;
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
