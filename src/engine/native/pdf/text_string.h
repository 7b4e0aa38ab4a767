// Texts as PDF spells them.
#pragma once

#include <string>
#include <string_view>

namespace pagivo::native {

// The code points of a UTF-8 text; bytes that are no UTF-8 stand for U+FFFD.
std::u32string DecodeText(std::string_view text);

// UTF-16, most significant byte first, as hexadecimal digits.
void AppendUtf16Hex(std::string& out, std::u32string_view text);

// A text string object: in letters when all are printable ASCII, else as hexadecimal UTF-16 with
// its byte order mark.
void AppendTextString(std::string& out, std::string_view text);

// A name object made of `text`; characters that a name cannot hold are written as #xx.
void AppendName(std::string& out, std::string_view text);

void AppendHexByte(std::string& out, unsigned value);

}  // namespace pagivo::native
