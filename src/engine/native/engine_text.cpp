// NativeEngine's font and text.
#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/native/fonts/font_library.h"
#include "engine/native/native_engine.h"
#include "engine/native/settings/checked_values.h"

namespace pagivo::native {
namespace {

Font& FindFont(const FontDescription& font) {
  return FontLibrary::Instance().Find(font.name, font.bold, font.italic);
}

double TwipsPerEmOf(const FontDescription& font) {
  return font.size * kTwipsPerPoint;
}

}  // namespace

// Nothing has changed when the recorder runs out of memory.
template <typename Value>
void NativeEngine::ChangeFont(Value FontDescription::*property, const Value& value) {
  if (font_.*property == value) return;
  FontDescription font = font_;
  font.*property = value;
  recorder_->SetFont(font);
  font_ = std::move(font);
  foundFont_ = nullptr;
}

void NativeEngine::PutFontName(const std::string& name) {
  ChangeFont(&FontDescription::name, name);
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

// Gives the position both coordinates. The text before it ends in the font that it was printed in,
// whatever has been put since.
void NativeEngine::SettlePrintPosition() {
  double x = position_.x.value_or(setup_.margins.left);
  if (position_.isAfterText) {
    const auto& [text, font] = recorder_->LastText();
    x += FindFont(*font).Width(text) * TwipsPerEmOf(*font);
  }
  position_ = {x, position_.y.value_or(setup_.margins.top), false};
}

void NativeEngine::PutText(const std::string& text) {
  RequireDrawing();
  SettlePrintPosition();
  const Place place{*position_.x, *position_.y};
  if (IsPlainLine(text)) {
    DrawPiece(place, text);
    position_.isAfterText = !text.empty();
  } else {
    const auto measure = [this](std::string_view piece) { return MeasurePiece(piece); };
    DrawLayout(place, LayOutText(text, measure));
  }
}

void NativeEngine::DrawLayout(Place place, const TextLayout& layout) {
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
  if (IsPlainLine(text)) return MeasurePiece(text);
  const auto measure = [this](std::string_view piece) { return MeasurePiece(piece); };
  double width = 0;
  for (const TextPiece& piece : LayOutText(text, measure).pieces) {
    width = std::max(width, piece.x + measure(piece.text));
  }
  return width;
}

double NativeEngine::GetTextHeight(const std::string& text) {
  return LineSpacing() * static_cast<double>(CountLines(text));
}

}  // namespace pagivo::native
