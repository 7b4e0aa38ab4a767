#include "engine/native/pdf/pdf_syntax.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>

#include "values/characters.h"

namespace pagivo::native {
namespace {

constexpr std::string_view kDelimiters = "()<>[]{}/%";

bool IsPrintableAscii(char character) {
  return character >= ' ' && character <= '~';
}

bool IsRegular(char character) {
  return character > ' ' && kDelimiters.find(character) == std::string_view::npos;
}

// Keeps what begins with a regular character apart from what ends with one.
void Separate(std::string& out) {
  if (!out.empty() && IsRegular(out.back())) out.push_back(' ');
}

int CountDigits(std::uint64_t number) {
  constexpr int kMost = 20;
  int digits = 1;
  for (std::uint64_t power = 10; digits < kMost && number >= power; power *= 10) ++digits;
  return digits;
}

// The digits of the numbers below a thousand without zeros before them, and how many there are.
constexpr std::uint32_t kTripleCount = 1000;
constexpr auto kTriples = [] {
  std::array<std::array<char, 4>, kTripleCount> triples{};
  for (std::size_t number = 0; number < kTripleCount; ++number) {
    std::array<char, 4>& triple = triples[number];
    const std::size_t digits = number < 10 ? 1 : number < 100 ? 2 : 3;
    triple[3] = static_cast<char>(digits);
    for (std::size_t rest = number, i = digits; i-- > 0; rest /= 10) {
      triple[i] = static_cast<char>('0' + rest % 10);
    }
  }
  return triples;
}();

// Needs room for four.
char* WriteTriple(char* out, std::uint32_t number) {
  const std::array<char, 4>& triple = kTriples[number];
  std::memcpy(out, triple.data(), triple.size());
  return out + triple[3];
}

// What the two functions below write is less than these.
constexpr std::uint64_t kWholeEnd = std::uint64_t{kTripleCount} * kTripleCount;
constexpr std::uint64_t kHundredthsEnd = std::uint64_t{kTripleCount} * 100;

char* WriteWhole(char* out, std::uint32_t number) {
  if (number < kTripleCount) return WriteTriple(out, number);
  out = WriteTriple(out, number / kTripleCount);
  const std::uint32_t rest = number % kTripleCount;
  *out++ = static_cast<char>('0' + rest / 100);
  *out++ = static_cast<char>('0' + rest / 10 % 10);
  *out++ = static_cast<char>('0' + rest % 10);
  return out;
}

char* WriteHundredths(char* out, std::uint32_t hundredths) {
  const std::uint32_t whole = hundredths / 100;
  const std::uint32_t rest = hundredths % 100;
  if (whole != 0 || rest == 0) out = WriteTriple(out, whole);
  if (rest == 0) return out;
  *out++ = '.';
  *out++ = static_cast<char>('0' + rest / 10);
  if (rest % 10 != 0) *out++ = static_cast<char>('0' + rest % 10);
  return out;
}

// From the last digit to the first, for that is how they come out of a number.
char* WriteDigits(char* out, std::uint64_t rest, int decimals) {
  for (; decimals > 0 && rest % 10 == 0; rest /= 10) --decimals;

  const int point = decimals > 0 ? 1 : 0;
  char* const end = out + std::max(CountDigits(rest), decimals) + point;
  char* next = end;
  const auto putDigit = [&] {
    *--next = static_cast<char>('0' + rest % 10);
    rest /= 10;
  };
  for (int i = 0; i < decimals; ++i) putDigit();
  if (point != 0) *--next = '.';
  while (next != out) putDigit();
  return end;
}

void AppendUtf16Unit(std::string& out, char32_t unit) {
  AppendHexByte(out, static_cast<unsigned>(unit >> 8));
  AppendHexByte(out, static_cast<unsigned>(unit & 0xFF));
}

void AppendLetters(std::string& out, std::string_view text) {
  out.push_back('(');
  for (const char character : text) {
    if (character == '(' || character == ')' || character == '\\') out.push_back('\\');
    out.push_back(character);
  }
  out.push_back(')');
}

}  // namespace

void AppendDecimal(std::string& out, std::int64_t value, int decimals) {
  std::array<char, kLongestNumber> number;
  char* const begin = number.data();
  out.append(begin, static_cast<std::size_t>(WriteDecimal(begin, value, decimals) - begin));
}

// Most numbers of a page are whole or in hundredths, and small: their digits are looked up.
char* WriteDecimal(char* out, std::int64_t value, int decimals) {
  assert(decimals >= 0 && decimals <= 9);
  if (value < 0) *out++ = '-';
  const std::uint64_t number =
      value < 0 ? -static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  const auto small = static_cast<std::uint32_t>(number);  // the number itself where it is looked up
  if (decimals == 0 && number < kWholeEnd) return WriteWhole(out, small);
  if (decimals == 2 && number < kHundredthsEnd) return WriteHundredths(out, small);
  return WriteDigits(out, number, decimals);
}

std::u32string DecodeText(std::string_view text) {
  std::u32string codePoints;
  for (std::size_t i = 0; i < text.size();) {
    const DecodedCodePoint decoded = DecodeUtf8(text, i);
    codePoints.push_back(decoded.codePoint);
    i += decoded.length;
  }
  return codePoints;
}

void AppendHexByte(std::string& out, unsigned value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out.push_back(kDigits[value >> 4 & 0xF]);
  out.push_back(kDigits[value & 0xF]);
}

void AppendUtf16Hex(std::string& out, std::u32string_view text) {
  for (const char32_t codePoint : text) {
    if (codePoint < 0x10000) {
      AppendUtf16Unit(out, codePoint);
    } else {
      AppendUtf16Unit(out, 0xD800 + ((codePoint - 0x10000) >> 10));
      AppendUtf16Unit(out, 0xDC00 + ((codePoint - 0x10000) & 0x3FF));
    }
  }
}

void AppendObject(std::string& out, PdfName name) {
  out.push_back('/');
  for (const char character : name.text) {
    if (IsRegular(character) && IsPrintableAscii(character) && character != '#') {
      out.push_back(character);
    } else if (character != '\0') {
      out.push_back('#');
      AppendHexByte(out, static_cast<unsigned char>(character));
    }
  }
}

void AppendObject(std::string& out, PdfReference reference) {
  AppendObject(out, std::int64_t{reference.number});
  out += " 0 R";
}

void AppendObject(std::string& out, PdfDecimal decimal) {
  Separate(out);
  AppendDecimal(out, decimal.value, decimal.decimals);
}

void AppendObject(std::string& out, PdfText text) {
  if (std::ranges::all_of(text.text, IsPrintableAscii)) return AppendLetters(out, text.text);
  out += "<FEFF";
  AppendUtf16Hex(out, DecodeText(text.text));
  out.push_back('>');
}

void AppendObject(std::string& out, PdfBytes bytes) {
  out.push_back('<');
  for (const char byte : bytes.bytes) AppendHexByte(out, static_cast<unsigned char>(byte));
  out.push_back('>');
}

void AppendObject(std::string& out, const PdfArray& array) {
  out.append(array.bytes_).push_back(']');
}

void AppendObject(std::string& out, const PdfDictionary& dictionary) {
  out.append(dictionary.bytes_).append(">>");
}

void AppendObject(std::string& out, bool value) {
  Separate(out);
  out += value ? "true" : "false";
}

void AppendObject(std::string& out, std::int64_t number) {
  Separate(out);
  AppendInteger(out, number);
}

PdfDictionary& PdfDictionary::PutAll(const PdfDictionary& entries) {
  bytes_ += std::string_view(entries.bytes_).substr(2);  // without its opening brackets
  return *this;
}

}  // namespace pagivo::native
