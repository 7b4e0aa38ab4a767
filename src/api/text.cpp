// Text and its font.
#include <string_view>

#include "api/engine_access.h"
#include "pagivo/pg_print.h"
#include "values/characters.h"

namespace pagivo {

namespace {

// Runs the statement for an argument that was not left out.
template <typename Statement>
void WhenPresent(const Variant& argument, Statement&& statement) {
  if (!argument.IsMissing()) IgnoringErrors(std::forward<Statement>(statement));
}

void PutCurrentX(const Variant& x) {
  WhenPresent(x, [&] { Engine().PutCurrentX(ScaledX(x)); });
}

void PutCurrentY(const Variant& y) {
  WhenPresent(y, [&] { Engine().PutCurrentY(ScaledY(y)); });
}

// Most names come as texts, which need no copy.
void PutFontName(const Variant& name) {
  WhenPresent(name, [&] {
    PrintEngine& engine = Engine();
    if (const auto* text = name.GetIf<std::string>()) return engine.PutFontName(*text);
    engine.PutFontName(ToText(name));
  });
}

void PutFontSize(const Variant& size) {
  WhenPresent(size, [&] { Engine().PutFontSize(ToSingle(size)); });
}

void PutBold(const Variant& bold) {
  WhenPresent(bold, [&] { Engine().PutFontBold(ToBoolean(bold)); });
}

void PutItalic(const Variant& italic) {
  WhenPresent(italic, [&] { Engine().PutFontItalic(ToBoolean(italic)); });
}

void PutUnderline(const Variant& underline) {
  WhenPresent(underline, [&] { Engine().PutFontUnderline(ToBoolean(underline)); });
}

// Uses what remains of a text after trimming; most texts need no copy.
using Trimming = std::string_view (*)(std::string_view text);
template <Trimming kTrim, typename Use>
auto WithTrimmed(const std::string& text, Use&& use) {
  const std::string_view part = kTrim(text);
  return part.size() == text.size() ? use(text) : use(std::string(part));
}

template <Trimming kTrim>
void PrintText(const std::string& text) {
  IgnoringErrors([&] {
    WithTrimmed<kTrim>(text, [](const std::string& printed) { Engine().PutText(printed); });
  });
}

template <Trimming kTrim>
double WidthOf(const std::string& text) {
  return WithTrimmed<kTrim>(
      text, [](const std::string& measured) { return Engine().GetTextWidth(measured); });
}

}  // namespace

void PgPrint::VsPPPrint(const TextArgument& varText, const Variant& varX, const Variant& varY,
                        const Variant& varFontName, const Variant& varSize, const Variant& varBold,
                        const Variant& varUnderline, const Variant& varItalic) {
  PutCurrentX(varX);
  PutCurrentY(varY);
  PutFontName(varFontName);
  PutFontSize(varSize);
  PutBold(varBold);
  PutItalic(varItalic);
  PutUnderline(varUnderline);
  PrintText<TrimRight>(varText);
}

void PgPrint::VsPPPrintR(const TextArgument& varText, const Variant& varX, const Variant& varY,
                         const Variant& varFontName, const Variant& varSize, const Variant& varBold,
                         const Variant& varUnderline, const Variant& varItalic) {
  if (!varX.IsMissing()) {
    // Measured in the font in force before this call's own takes effect, and trimmed on the other
    // side than the printed text: hosts lay out their tables by both.
    const double width = ReadOrZero([&] { return WidthOf<TrimRight>(varText); });
    IgnoringErrors([&] { Engine().PutCurrentX(ToDouble(ScaledX(varX)) - width); });
  }
  PutCurrentY(varY);
  PutFontName(varFontName);
  PutFontSize(varSize);
  PutBold(varBold);
  PutItalic(varItalic);
  PutUnderline(varUnderline);
  PrintText<TrimLeft>(varText);
}

void PgPrint::VsPPSetFont(const Variant& FontName, const Variant& FontSize, const Variant& FontBold,
                          const Variant& FontUnderline, const Variant& FontItalic) {
  PutFontName(FontName);
  PutFontSize(FontSize);
  PutBold(FontBold);
  PutUnderline(FontUnderline);
  PutItalic(FontItalic);
}

std::string PgPrint::VsPPGetFontName() {
  return ReadOrZero([] { return Engine().GetFontName(); });
}

Variant PgPrint::VsPPGetFontSize() {
  return ReadOrZero([] { return Variant(Engine().GetFontSize()); });
}

std::int32_t PgPrint::VsPPTextWidth(const TextArgument& Tekst) {
  return ReadOrZero([&] { return ToLong(Engine().GetTextWidth(Tekst)); });
}

std::int32_t PgPrint::VsPPTextHeight(const TextArgument& Tekst) {
  return ReadOrZero([&] { return ToLong(Engine().GetTextHeight(Tekst)); });
}

}  // namespace pagivo
