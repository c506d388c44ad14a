#pragma once

#include <functional>

namespace repvolta {

/// The person wants no more of the work that is shown. Not a std::exception, so that nothing takes
/// it for a failure on its way.
class WorkStopped {};

/// Is told how much is done, in per cent. Throws WorkStopped.
using ReportWork = std::function<void(int percent)>;

/// Work that can take a while, and calls `report` now and then.
using LongWork = std::function<void(const ReportWork& report)>;

}  // namespace repvolta
