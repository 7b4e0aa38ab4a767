// Values that a document keeps once and refers to by a small index.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace pagivo::native {

// Indices count from 0 in the order of first use; a value stays where it is until the table goes.
template <typename Value, typename Hash>
class InternTable {
 public:
  std::uint32_t IndexOf(const Value& value) {
    const auto known = indices_.find(value);
    if (known != indices_.end()) return known->second;
    MakeRoom();  // first, so that nothing fails once the value is in the map
    const auto entry = indices_.emplace(value, static_cast<std::uint32_t>(values_.size())).first;
    values_.push_back(&entry->first);
    return entry->second;
  }

  const Value& operator[](std::uint32_t index) const { return *values_[index]; }
  std::size_t Count() const noexcept { return values_.size(); }

  // An estimate of what the table holds, what the values point to not included.
  std::size_t Bytes() const noexcept {
    return values_.capacity() * sizeof(Value*) +
           indices_.size() * (sizeof(Value) + 4 * sizeof(void*));
  }

 private:
  void MakeRoom() {
    if (values_.size() == values_.capacity()) values_.reserve(2 * values_.size() + 8);
  }

  std::unordered_map<Value, std::uint32_t, Hash> indices_;
  std::vector<const Value*> values_;
};

}  // namespace pagivo::native
