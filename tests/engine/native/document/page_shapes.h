// Pages that tests lay out and write, in twips.
#pragma once

#include "engine/native/document/document.h"

namespace pagivo::native {

inline constexpr PageGeometry kA4{11906, 16838};
inline constexpr PageGeometry kPortrait{12000, 18000};
inline constexpr PageGeometry kLandscape{18000, 12000};

}  // namespace pagivo::native
