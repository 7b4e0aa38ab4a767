// NativeEngine's font and text.
#include <algorithm>
#include <functional>
#include <utility>

#include "engine/native/fonts/font_library.h"
#include "engine/native/native_engine.h"
#include "engine/native/settings/checked_values.h"

namespace pagivo::native {
namespace {

Font& FindFont(const FontDescription& font) {
  return FontLibrary::Instance().Find(font.name, font.bold, font.italic);
}

// Byte by byte: a name has often just been written, in pieces, and memcmp would have to wait until
// it can read them as one.
bool AreSame(const std::string& name, const std::string& other) {
  return std::equal(name.begin(), name.end(), other.begin(), other.end(), std::equal_to<char>());
}

double TwipsPerEmOf(const FontDescription& font) {
  return font.size * kTwipsPerPoint;
}

}  // namespace

// Nothing has changed when the recorder runs out of memory.
void NativeEngine::ChangeFontName(const std::string& name) {
  FontDescription font = font_;
  font.name = name;
  recorder_->SetFont(font);
  font_ = std::move(font);
  foundFont_ = nullptr;
}

// The recorder has the name already, so it needs no memory.
template <typename Value>
void NativeEngine::ChangeFont(Value FontDescription::*property, Value value) {
  if (font_.*property == value) return;
  font_.*property = value;
  recorder_->SetFont(font_);
  foundFont_ = nullptr;
}

void NativeEngine::PutFontName(const std::string& name) {
  if (!AreSame(name, font_.name)) ChangeFontName(name);
}

void NativeEngine::PutFontSize(float points) {
  const bool isPossible = points > 0 && points <= kMaximumFontSize;
  if (!isPossible) ThrowInvalidPropertyValue("FontSize");
  ChangeFont(&FontDescription::size, points);
}

void NativeEngine::PutFontBold(bool on) {
  ChangeFont(&FontDescription::bold, on);
}

void NativeEngine::PutFontItalic(bool on) {
  ChangeFont(&FontDescription::italic, on);
}

void NativeEngine::PutFontUnderline(bool on) {
  ChangeFont(&FontDescription::underline, on);
}

void NativeEngine::PutTextColor(const std::int32_t& color) {
  textColor_ = CheckedColor("TextColor", color);
  recorder_->SetTextColor(textColor_);
}

Font& NativeEngine::CurrentFont() {
  if (foundFont_ == nullptr) foundFont_ = FindFont(font_).shared_from_this();
  return *foundFont_;
}

double NativeEngine::MeasurePiece(std::string_view piece) {
  return piece.empty() ? 0 : CurrentFont().Width(piece) * TwipsPerEmOf(font_);
}

double NativeEngine::LineSpacing() {
  return CurrentFont().Metrics().lineSpacing * TwipsPerEmOf(font_);
}

void NativeEngine::PutCurrentX(const Variant& x) {
  position_.x = CheckedCoordinate("CurrentX", x);
  position_.isAfterText = false;
}

void NativeEngine::PutCurrentY(const Variant& y) {
  position_.y = CheckedCoordinate("CurrentY", y);
}

TextLayout NativeEngine::LayOut(const std::string& text) {
  return LayOutText(text, [this](std::string_view piece) { return MeasurePiece(piece); });
}

double NativeEngine::WidthOfLastText() const {
  const auto& [text, font] = recorder_->LastText();
  return FindFont(*font).Width(text) * TwipsPerEmOf(*font);
}

// Gives the position both coordinates. The text before it ends in the font that it was printed in,
// whatever has been put since.
NativeEngine::Place NativeEngine::SettlePrintPosition() {
  const double width = position_.isAfterText ? WidthOfLastText() : 0;
  const Place place{position_.x.value_or(setup_.margins.left) + width,
                    position_.y.value_or(setup_.margins.top)};
  position_ = {place.x, place.y, false};
  return place;
}

void NativeEngine::PutText(const std::string& text) {
  RequireDrawing();
  if (!IsPlainLine(text)) return DrawLines(text);
  DrawPiece(SettlePrintPosition(), text);
  position_.isAfterText = !text.empty();
}

void NativeEngine::DrawLines(const std::string& text) {
  const Place place = SettlePrintPosition();
  const TextLayout layout = LayOut(text);
  const double lineSpacing = LineSpacing();
  const auto placeOf = [&](const TextPiece& piece) {
    return Place{place.x + piece.x, place.y + static_cast<double>(piece.line) * lineSpacing};
  };
  for (const TextPiece& piece : layout.pieces) DrawPiece(placeOf(piece), piece.text);
  const TextPiece& last = layout.pieces.back();
  const auto [x, y] = placeOf(last);
  position_.x = x;
  position_.y = y;
  position_.isAfterText = !last.text.empty();
}

void NativeEngine::DrawPiece(Place place, std::string_view piece) {
  if (piece.empty()) return;
  recorder_->DrawText({static_cast<float>(place.x), static_cast<float>(place.y)}, piece);
}

double NativeEngine::GetTextWidth(const std::string& text) {
  return IsPlainLine(text) ? MeasurePiece(text) : WidthOfLines(text);
}

double NativeEngine::WidthOfLines(const std::string& text) {
  double width = 0;
  for (const TextPiece& piece : LayOut(text).pieces) {
    width = std::max(width, piece.x + MeasurePiece(piece.text));
  }
  return width;
}

double NativeEngine::GetTextHeight(const std::string& text) {
  return LineSpacing() * static_cast<double>(CountLines(text));
}

}  // namespace pagivo::native
