// The pictures beside the features.
#pragma once

#include "wizard/choices.h"

namespace halyard::wizard {

// Two displays side by side in `place`, and on them what the feature does.
void DrawFeature(HDC dc, const RECT& place, Feature feature);

}  // namespace halyard::wizard
