// The elements of an SVG file, parsed and styled by ourselves: what is checked here is what the SVG
// library gets to see.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"

namespace pagivo::native {

// Bounds of a file, far above any drawing. While a file is read, a multiple of it stands in memory.
inline constexpr std::size_t kMaximumSvgBytes = std::size_t{64} << 20;
inline constexpr std::size_t kMaximumSvgElements = std::size_t{1} << 17;
inline constexpr std::size_t kMaximumSvgText = std::size_t{1} << 25;  // with entities put in
inline constexpr std::size_t kMaximumSvgDepth = 256;

using SvgProperties = std::vector<std::pair<std::string, std::string>>;

// An element of the SVG namespace, or a piece of text, which has no name.
struct SvgNode {
  std::string name;
  SvgProperties attributes;  // "xlink:href" for a reference, however it was spelt
  SvgProperties style;       // declarations, which go before attributes of the same name
  std::vector<SvgNode> children;
  std::string text;
  double pixels = 0;  // of the picture that the element shows

  // Gives nothing for an attribute that is not there.
  std::string_view Attribute(std::string_view key) const;
  // Gives the declaration, or where there is none the attribute.
  std::string_view Property(std::string_view key) const;
  void Put(SvgProperties& list, std::string_view key, std::string_view value);
};

// Parses XML without loading anything from outside. Other namespaces are left out; so are second
// elements of one id. Refuses what is not well-formed, has another root than svg, or passes a
// bound.
SvgNode ParseSvg(PictureBytes bytes);

// Writes the element and what it holds as XML.
std::string WriteSvg(const SvgNode& root);

// The elements by their id.
using SvgIds = std::unordered_map<std::string_view, const SvgNode*>;
SvgIds IdsOf(const SvgNode& root);

// Gives the id in a reference such as "#id" or "url(#id)", in quotes or not, and nothing for any
// other text.
std::string_view ReferenceIn(std::string_view value);

// A file with more selectors, or with more pairs of a selector and an element, is refused: matching
// them all is quadratic work.
inline constexpr std::size_t kMaximumSvgSelectors = 4096;
inline constexpr std::size_t kMaximumSvgMatchings = std::size_t{1} << 24;

// Gives every element the declarations that its style attribute and the file's style sheets hold
// for it, in SvgNode::style, and takes the sheets out. Selectors of types, classes and ids count,
// also below and inside each other; rules with others are left out, as are declarations and
// attributes that refer to anything but an element of the file, and filters.
void ResolveSvgStyle(SvgNode& root);

}  // namespace pagivo::native
