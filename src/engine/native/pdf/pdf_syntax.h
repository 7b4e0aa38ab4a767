// How PDF spells its objects: as short as can be, with a blank only between two objects that would
// otherwise run together.
#pragma once

#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pagivo::native {

// --- Numbers: no exponent, no locale, no more digits than they need ---------------------------

// `value` / 10^decimals without trailing zeros and without a zero before the point: -5 with two
// decimals is "-.05". At most nine decimals.
void AppendDecimal(std::string& out, std::int64_t value, int decimals);

inline void AppendInteger(std::string& out, std::int64_t number) {
  AppendDecimal(out, number, 0);
}

// The same into memory that has room for the longest number; gives where it ends.
inline constexpr std::size_t kLongestNumber = 21;
char* WriteDecimal(char* out, std::int64_t value, int decimals);

// Hundredths of the unit in use, the resolution of every position in a file: 0.005 pt is a
// twentieth of the thinnest line's width.
using Hundredths = std::int64_t;

// As std::llround, which would be a call. The largest number below a half takes no number to the
// next whole one that is not halfway there, and halves get there because their sum is rounded up.
inline std::int64_t RoundAway(double value) {
  return static_cast<std::int64_t>(value + std::copysign(0.49999999999999994, value));
}

inline void AppendHundredths(std::string& out, Hundredths value) {
  AppendDecimal(out, value, 2);
}

// --- Texts ------------------------------------------------------------------------------------

// The code points of a UTF-8 text; bytes that are no UTF-8 stand for U+FFFD.
std::u32string DecodeText(std::string_view text);

// UTF-16, most significant byte first, as hexadecimal digits.
void AppendUtf16Hex(std::string& out, std::u32string_view text);

void AppendHexByte(std::string& out, unsigned value);

// --- Objects ----------------------------------------------------------------------------------

// Characters that a name cannot hold are written as #xx, null characters are left out.
struct PdfName {
  std::string_view text;
};

// Another object of the file. Number 0 is none.
struct PdfReference {
  std::uint32_t number = 0;
};

// `value` / 10^decimals.
struct PdfDecimal {
  std::int64_t value = 0;
  int decimals = 2;
};

// UTF-8. In letters when all are printable ASCII, else as UTF-16 with its byte order mark.
struct PdfText {
  std::string_view text;
};

// Bytes that are no text, in hexadecimal digits.
struct PdfBytes {
  std::string_view bytes;
};

class PdfArray;
class PdfDictionary;

// Each appends the object to `out`.
void AppendObject(std::string& out, PdfName name);
void AppendObject(std::string& out, PdfReference reference);
void AppendObject(std::string& out, PdfDecimal decimal);
void AppendObject(std::string& out, PdfText text);
void AppendObject(std::string& out, PdfBytes bytes);
void AppendObject(std::string& out, const PdfArray& array);
void AppendObject(std::string& out, const PdfDictionary& dictionary);
void AppendObject(std::string& out, bool value);
void AppendObject(std::string& out, std::int64_t number);
void AppendObject(std::string& out, const char* text) = delete;  // a name or a text?

template <std::integral Integer>
void AppendObject(std::string& out, Integer number) {
  AppendObject(out, static_cast<std::int64_t>(number));
}

// Grows at its end.
class PdfArray {
 public:
  template <typename Object>
  PdfArray& Add(const Object& object) {
    AppendObject(bytes_, object);
    return *this;
  }

 private:
  friend void AppendObject(std::string& out, const PdfArray& array);
  std::string bytes_ = "[";  // not yet closed
};

// Grows at its end. A key must not be put twice.
class PdfDictionary {
 public:
  template <typename Object>
  PdfDictionary& Put(std::string_view key, const Object& object) {
    AppendObject(bytes_, PdfName{key});
    AppendObject(bytes_, object);
    return *this;
  }

  PdfDictionary& PutAll(const PdfDictionary& entries);

 private:
  friend void AppendObject(std::string& out, const PdfDictionary& dictionary);
  std::string bytes_ = "<<";  // not yet closed
};

}  // namespace pagivo::native
