#include "fault_plan.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <new>
#include <string_view>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace repvolta_faults {
namespace {

constexpr const char* kGroups[] = {"open",   "write", "fsync", "rename", "mkdir",
                                   "unlink", "read",  "fork",  "exec",   "list",
                                   "mode",   "stat",  "close", "lock",   "any"};
constexpr int kGroupCount = static_cast<int>(std::size(kGroups));

struct Plan {
  int group = -1;
  int first = 0;
  bool allBehind = false;
  int error = 0;  // errno value, kShort, kKill or kUntyped
};

/// Shared with forked children until their exec.
struct Counters {
  std::atomic<int> calls[kGroupCount];
};

Plan plan;
bool hidesTypes = false;
Counters* counters = nullptr;
int traceDescriptor = -1;
pid_t program = 0;

int ErrorNamed(std::string_view name) {
  if (name == "ENOSPC") return ENOSPC;
  if (name == "EIO") return EIO;
  if (name == "EACCES") return EACCES;
  if (name == "EINTR") return EINTR;
  if (name == "EAGAIN") return EAGAIN;
  if (name == "ENOLCK") return ENOLCK;
  if (name == "EROFS") return EROFS;
  if (name == "SHORT") return kShort;
  if (name == "KILL") return kKill;
  if (name == "UNTYPED") return kUntyped;
  std::fprintf(stderr, "fault shim: what failure is this?\n");
  std::abort();
}

void ReadPlan(std::string_view text) {
  const std::size_t first = text.find(':');
  const std::size_t second = text.find(':', first + 1);
  const auto group = std::find(std::begin(kGroups), std::end(kGroups), text.substr(0, first));
  plan.group = static_cast<int>(group - std::begin(kGroups));
  plan.first = static_cast<int>(std::strtol(text.data() + first + 1, nullptr, 10));
  plan.allBehind = text.substr(first, second - first).ends_with('+');
  plan.error = ErrorNamed(text.substr(second + 1));
}

/// True in valgrind's launcher, which later becomes the program under test.
bool IsStarter() {
  char path[700] = "";
  const long size = syscall(SYS_readlink, "/proc/self/exe", path, sizeof path - 1);
  return std::string_view(path, size > 0 ? static_cast<std::size_t>(size) : 0).find("/valgrind") !=
         std::string_view::npos;
}

__attribute__((constructor)) void Start() {
  if (IsStarter()) return;
  void* shared =
      mmap(nullptr, sizeof(Counters), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) std::abort();
  if (const char* path = std::getenv("REPVOLTA_TRACE")) {
    const int descriptor = static_cast<int>(
        syscall(SYS_openat, AT_FDCWD, path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    // A high number, so that the program's own descriptors keep their numbers.
    traceDescriptor = fcntl(descriptor, F_DUPFD_CLOEXEC, 500);
    close(descriptor);
  }
  if (const char* text = std::getenv("REPVOLTA_FAULT")) ReadPlan(text);
  hidesTypes = std::getenv("REPVOLTA_UNTYPED") != nullptr;
  for (const char* name : {"LD_PRELOAD", "REPVOLTA_FAULT", "REPVOLTA_UNTYPED", "REPVOLTA_TRACE"}) {
    unsetenv(name);
  }
  program = getpid();
  counters = new (shared) Counters{};
}

iovec Piece(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

/// Writes one line with one call. Before its exec a child has hardly any stack, so this uses no
/// large array and no formatting function (the sanitizers' version needs several kilobytes).
void Trace(int group, int number, bool failed, const char* what) {
  if (traceDescriptor < 0) return;
  char digits[12];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  const iovec line[] = {Piece(kGroups[group]),
                        Piece(" "),
                        Piece({digits, static_cast<std::size_t>(end - digits)}),
                        Piece(failed ? " failed " : " ok "),
                        Piece({what, strnlen(what, 900)}),
                        Piece("\n")};
  syscall(SYS_writev, traceDescriptor, line, std::size(line));
}

}  // namespace

int Count(Group group, const char* what) {
  if (counters == nullptr) return 0;
  const int number = ++counters->calls[group];
  const int anyNumber = ++counters->calls[kAny];
  const int planned = plan.group == kAny ? anyNumber : number;
  const bool hit = (plan.group == group || plan.group == kAny) &&
                   (planned == plan.first || (plan.allBehind && planned > plan.first));
  Trace(group, number, hit, what);
  if (hit && plan.error == kKill) kill(program, SIGKILL);
  return hit ? plan.error : 0;
}

bool Fails(Group group, const char* what) {
  const int before = errno;
  const int error = Count(group, what);
  errno = error > 0 ? error : before;
  return error > 0;
}

bool HidesTypes() { return hidesTypes; }

}  // namespace repvolta_faults
