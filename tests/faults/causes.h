// The sweep of causes: the tool names the failed call as the cause of each reading that it changes.
#pragma once

#include "stage.h"
#include "sweep.h"

namespace sweep {

/// Every failure of every boundary call of one reading. What the tool explains wrongly is a complaint.
void SweepCauses(Stage& stage, const Subject& subject, Tally& tally);

} // namespace sweep
