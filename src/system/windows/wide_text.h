// Texts as Windows takes them, in UTF-16. Ours are in UTF-8 (see utf8.h).
#pragma once

#include <string>
#include <string_view>

namespace pagivo {

// A byte that is no UTF-8, and half of a surrogate pair, become U+FFFD.
std::wstring ToWide(std::string_view text);
std::string FromWide(std::wstring_view text);

void AppendWide(std::wstring& text, char32_t codePoint);

}  // namespace pagivo
