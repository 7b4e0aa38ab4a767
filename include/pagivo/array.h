// One-dimensional arrays that know their bounds.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "pagivo/error.h"

namespace pagivo {

// Elements lowerBound..upperBound, both inclusive. A subscript outside raises
// ErrorNumber::SubscriptOutOfRange. A default-constructed array has no elements.
template <typename T>
class Array {
 public:
  Array() = default;

  // Zero-valued elements lowerBound..upperBound; upperBound may be lowerBound - 1 (no elements).
  Array(std::int32_t lowerBound, std::int32_t upperBound) { Redim(lowerBound, upperBound); }

  // The elements of `values`, numbered from `lowerBound`.
  static Array FromValues(std::vector<T> values, std::int32_t lowerBound) {
    Array array;
    array.lowerBound_ = lowerBound;
    array.elements_ = std::move(values);
    return array;
  }

  std::int32_t LowerBound() const noexcept { return lowerBound_; }
  std::int32_t UpperBound() const noexcept {
    return lowerBound_ + static_cast<std::int32_t>(elements_.size()) - 1;
  }

  T& operator()(std::int32_t subscript) { return elements_[IndexOf(subscript)]; }
  const T& operator()(std::int32_t subscript) const { return elements_[IndexOf(subscript)]; }

  // New bounds, all elements zero-valued.
  void Redim(std::int32_t lowerBound, std::int32_t upperBound) {
    elements_.assign(CountOf(lowerBound, upperBound), T{});
    lowerBound_ = lowerBound;
  }

  // New bounds; elements whose subscript exists in both ranges keep their values.
  void RedimPreserve(std::int32_t lowerBound, std::int32_t upperBound) {
    Array resized(lowerBound, upperBound);
    const std::int32_t first = std::max(lowerBound, LowerBound());
    const std::int32_t last = std::min(upperBound, UpperBound());
    for (std::int32_t i = first; i <= last; ++i) resized(i) = std::move((*this)(i));
    *this = std::move(resized);
  }

 private:
  static std::size_t CountOf(std::int32_t lowerBound, std::int32_t upperBound) {
    const std::int64_t count = std::int64_t{upperBound} - lowerBound + 1;
    if (count < 0) ThrowSubscriptOutOfRange();
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
