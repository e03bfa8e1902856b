// The style in which a status is shown.
#pragma once

#include "exports/classify.h"
#include "terminal/paint.h"

namespace tool {

Style StyleOf(Status status);

} // namespace tool
