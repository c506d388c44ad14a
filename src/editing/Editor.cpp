#include "editing/Editor.h"

#include <algorithm>

namespace repvolta {

int RowAfterRemoval(int removed, int rowsLeft) { return std::min(removed, rowsLeft - 1); }

}  // namespace repvolta
