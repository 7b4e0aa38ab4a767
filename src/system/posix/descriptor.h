// An open file or connection of the system's, which is closed with its holder.
#pragma once

#include <unistd.h>

#include <utility>

namespace pagivo {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) noexcept : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, kNone)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ != kNone) close(number_);
  }

  explicit operator bool() const noexcept { return number_ != kNone; }
  int Number() const noexcept { return number_; }

 private:
  static constexpr int kNone = -1;

  int number_ = kNone;
};

}  // namespace pagivo
