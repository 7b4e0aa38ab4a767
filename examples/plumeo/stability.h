// Pasquill's stability classes, from very unstable to moderately stable.
#pragma once

#include <array>
#include <cstddef>

namespace plumeo {

enum class Stability { A, B, C, D, E, F };

inline constexpr std::size_t kStabilityCount = 6;
inline constexpr std::array<Stability, kStabilityCount> kStabilities = {
    Stability::A, Stability::B, Stability::C, Stability::D, Stability::E, Stability::F};

constexpr std::size_t IndexOf(Stability stability) {
  return static_cast<std::size_t>(stability);
}

// "A" to "F".
constexpr const char* LetterOf(Stability stability) {
  constexpr std::array<const char*, kStabilityCount> kLetters = {"A", "B", "C", "D", "E", "F"};
  return kLetters[IndexOf(stability)];
}

// What lies around the stack: it decides the spread of the plume and the wind profile.
enum class Terrain { OpenCountry, Urban };

}  // namespace plumeo
