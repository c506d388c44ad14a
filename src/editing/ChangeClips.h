#pragma once

#include "editing/EditedProgram.h"
#include "voices/PutClips.h"

namespace repvolta {

/// PutClips for the program's directory. When what was decided is not yet in place, the next
/// command puts it there. Throws what PutClips throws.
void ChangeClips(const EditedProgram& program, const ClipChange& change,
                 const ReportOfClips& report = {});

}  // namespace repvolta
