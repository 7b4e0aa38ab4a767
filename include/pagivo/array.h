// One-dimensional arrays that know their bounds.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include "pagivo/error.h"

namespace pagivo {

// Elements lowerBound..upperBound, both inclusive. A subscript outside raises
// ErrorNumber::SubscriptOutOfRange, and so do bounds that no array can have. An array of more than
// kMaximumBytes raises ErrorNumber::OutOfMemory. What raises leaves the array as it was. A
// default-constructed array has no elements.
template <typename T>
class Array {
 public:
  // Far more than a document needs, and few enough that a slip of the caller stops no machine.
  static constexpr std::size_t kMaximumBytes = std::size_t{256} << 20;

  Array() = default;

  // Zero-valued elements lowerBound..upperBound; upperBound may be lowerBound - 1 (no elements).
  Array(std::int32_t lowerBound, std::int32_t upperBound) { Redim(lowerBound, upperBound); }

  // A copy of a vector, a span or any other row of T, numbered from 1.
  template <std::convertible_to<std::span<const T>> Values>
  Array(const Values& values) {
    const std::span<const T> elements = values;
    *this = FromValues({elements.begin(), elements.end()}, 1);
  }

  // The elements of `values`, numbered from `lowerBound`.
  static Array FromValues(std::vector<T> values, std::int32_t lowerBound) {
    const std::int64_t upperBound =
        std::int64_t{lowerBound} + static_cast<std::int64_t>(values.size()) - 1;
    CountOf(lowerBound, upperBound);
    Array array;
    array.lowerBound_ = lowerBound;
    array.elements_ = std::move(values);
    return array;
  }

  std::int32_t LowerBound() const noexcept { return lowerBound_; }
  std::int32_t UpperBound() const noexcept {
    return static_cast<std::int32_t>(lowerBound_ + static_cast<std::int64_t>(elements_.size()) - 1);
  }

  T& operator()(std::int32_t subscript) { return elements_[IndexOf(subscript)]; }
  const T& operator()(std::int32_t subscript) const { return elements_[IndexOf(subscript)]; }

  // New bounds, all elements zero-valued.
  void Redim(std::int32_t lowerBound, std::int32_t upperBound) {
    elements_ = std::vector<T>(CountOf(lowerBound, upperBound));
    lowerBound_ = lowerBound;
  }

  // New bounds; elements whose subscript exists in both ranges keep their values.
  void RedimPreserve(std::int32_t lowerBound, std::int32_t upperBound) {
    Array resized(lowerBound, upperBound);
    const std::int64_t first = std::max(lowerBound, LowerBound());
    const std::int64_t last = std::min(upperBound, UpperBound());
    for (std::int64_t i = first; i <= last; ++i) {
      const auto subscript = static_cast<std::int32_t>(i);
      resized(subscript) = std::move((*this)(subscript));
    }
    *this = std::move(resized);
  }

 private:
  static std::size_t CountOf(std::int64_t lowerBound, std::int64_t upperBound) {
    const std::int64_t count = upperBound - lowerBound + 1;
    const bool subscriptsFit = upperBound >= std::numeric_limits<std::int32_t>::min() &&
                               upperBound <= std::numeric_limits<std::int32_t>::max();
    if (count < 0 || !subscriptsFit) ThrowSubscriptOutOfRange();
    if (count > static_cast<std::int64_t>(kMaximumBytes / sizeof(T))) ThrowOutOfMemory();
    return static_cast<std::size_t>(count);
  }

  std::size_t IndexOf(std::int32_t subscript) const {
    const std::int64_t index = std::int64_t{subscript} - lowerBound_;
    if (index < 0 || index >= static_cast<std::int64_t>(elements_.size())) {
      ThrowSubscriptOutOfRange();
    }
    return static_cast<std::size_t>(index);
  }

  std::int32_t lowerBound_ = 0;
  std::vector<T> elements_;
};

}  // namespace pagivo
