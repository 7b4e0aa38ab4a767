// The style sheets of an SVG file.
#pragma once

#include "engine/native/pictures/svg_document.h"

namespace pagivo::native {

// A selector and a rule beyond these are refused: matching them all is quadratic work.
inline constexpr std::size_t kMaximumSvgSelectors = 4096;
inline constexpr std::size_t kMaximumSvgMatchings = std::size_t{1} << 24;

// Gives every element the declarations that its style attribute and the file's style sheets hold
// for it, in SvgNode::style, and takes the sheets out. Selectors of types, classes and ids count,
// also below and inside each other; rules with others are left out, as are declarations and
// attributes that refer to anything but an element of the file, and filters.
void ResolveSvgStyle(SvgNode& root);

}  // namespace pagivo::native
