// The papers that have a code: their sizes and what they are called.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace pagivo {

struct Paper {
  std::int32_t code = 0;  // as the window system numbers papers
  // Whole twips, as the paper is fed: upright, but for those whose name puts the longer side first.
  std::int32_t width = 0;
  std::int32_t height = 0;
  // For the users' lists, in Dutch. Every paper has one of its own.
  std::string_view title;
  // What a host that asks for the printer's papers is told; empty for those that it is not told of.
  std::string_view reportedName;
};

inline constexpr std::int32_t kPaperA4 = 9;
// Codes go from 1 to this one.
inline constexpr std::int32_t kLastPaper = 41;

// A size that the host has put. It is no entry of the table, for it has no size of its own.
inline constexpr std::int32_t kPaperUserDefined = 256;
inline constexpr Paper kUserDefinedPaper{.code = kPaperUserDefined,
                                         .title = "Aangepast",
                                         .reportedName = "Door de gebruiker gedefinieerd formaat"};

// In the order of the users' lists: common papers come first, related ones stand together.
std::span<const Paper> KnownPapers();

// Null when the code is none of those.
const Paper* FindPaper(std::int32_t code);

}  // namespace pagivo
