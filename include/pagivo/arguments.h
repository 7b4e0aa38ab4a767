// What the methods of PgPrint take where hosts hold one kind of value in several types. A host
// writes texts, numbers and variables and never names these classes.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

#include "pagivo/export.h"
#include "pagivo/variant.h"

namespace pagivo {

// A text: a std::string, which is borrowed for the call, or a literal (null is the empty text), a
// std::string_view or whatever else makes a std::string.
class TextArgument {
 public:
  TextArgument(const std::string& text) noexcept : text_(&text) {}
  TextArgument(const char* text) : own_(text == nullptr ? "" : text), text_(&own_) {}
  template <typename T>
  requires(std::constructible_from<std::string, const T&> &&
           !std::convertible_to<const T&, const char*>) TextArgument(const T& text)
      : own_(text), text_(&own_) {}
  TextArgument(const TextArgument&) = delete;
  TextArgument& operator=(const TextArgument&) = delete;

  operator const std::string&() const noexcept { return *text_; }

 private:
  std::string own_;
  const std::string* text_;
};

// A 16-bit Integer: any number, rounded as everywhere, exact halves to the even neighbour. One
// outside 16 bits fails the method that reads it with ErrorNumber::Overflow, which most methods
// ignore as they do any other failure.
class PAGIVO_EXPORT IntegerArgument {
 public:
  IntegerArgument(std::int32_t value) noexcept : value_(value) {}
  template <Number T>
  IntegerArgument(T value) noexcept : value_(static_cast<double>(value)) {}

  operator std::int16_t() const;

 private:
  double value_;
};

template <typename T>
concept IntegerHolder =
    std::signed_integral<T> && !std::is_const_v<T> && sizeof(T) >= sizeof(std::int16_t);

// A 16-bit Integer that the method changes as well. A variable of a signed whole type of 16 bits or
// more then holds what the method put there, and so does a Variant, in its own kind; a plain value
// serves as well, and nothing is heard of it again.
class PAGIVO_EXPORT IntegerVariable {
 public:
  template <IntegerHolder T>
  IntegerVariable(T& variable) noexcept
      : value_(variable),
        variable_(&variable),
        put_([](void* held, std::int16_t value) { *static_cast<T*>(held) = value; }) {}
  template <Number T>
  IntegerVariable(const T& value) noexcept : value_(value) {}
  // Raises what Variant::ToInteger raises.
  IntegerVariable(Variant& variable);

  operator std::int16_t() const { return value_; }
  IntegerVariable& operator=(std::int16_t value);

 private:
  IntegerArgument value_;
  void* variable_ = nullptr;
  void (*put_)(void* variable, std::int16_t value) = nullptr;
};

}  // namespace pagivo
