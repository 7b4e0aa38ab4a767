// NativeEngine's font and text.
#include <algorithm>
#include <cmath>

#include "engine/native/checked_values.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/native_engine.h"

namespace pagivo::native {
namespace {

Font& FindFont(const FontDescription& font) {
  return FontLibrary::Instance().Find(font.name, font.bold, font.italic);
}

double TwipsPerEmOf(const FontDescription& font) {
  return font.size * kTwipsPerPoint;
}

Point PointOf(double x, double y) {
  return {static_cast<float>(x), static_cast<float>(y)};
}

}  // namespace

void NativeEngine::PutFontName(const std::string& name) {
  if (name == font_.name) return;
  font_.name = name;
  foundFont_ = nullptr;
}

void NativeEngine::PutFontSize(float points) {
  const bool isPossible = points > 0 && points <= kMaximumFontSize;
  if (!isPossible) ThrowInvalidValue("FontSize");
  font_.size = points;
}

void NativeEngine::PutFontBold(bool on) {
  if (on != font_.bold) foundFont_ = nullptr;
  font_.bold = on;
}

void NativeEngine::PutFontItalic(bool on) {
  if (on != font_.italic) foundFont_ = nullptr;
  font_.italic = on;
}

void NativeEngine::PutFontUnderline(bool on) {
  font_.underline = on;
}

void NativeEngine::PutTextColor(const std::int32_t& color) {
  textColor_ = CheckedColor("TextColor", color);
}

Font& NativeEngine::CurrentFont() {
  if (foundFont_ == nullptr) foundFont_ = &FindFont(font_);
  return *foundFont_;
}

double NativeEngine::MeasurePiece(std::string_view piece) {
  return piece.empty() ? 0 : CurrentFont().Width(piece) * TwipsPerEmOf(font_);
}

double NativeEngine::LineSpacing() {
  return CurrentFont().Metrics().lineSpacing * TwipsPerEmOf(font_);
}

void NativeEngine::MoveToMargins() {
  position_.x = margins_.left;
  position_.y = margins_.top;
  position_.lastPiece.clear();
}

void NativeEngine::PutCurrentX(const Variant& x) {
  position_.x = CheckedCoordinate("CurrentX", x);
  position_.lastPiece.clear();
}

void NativeEngine::PutCurrentY(const Variant& y) {
  position_.y = CheckedCoordinate("CurrentY", y);
}

// In the font of the text that was printed, whatever has been put since.
void NativeEngine::SettlePrintPosition() {
  if (position_.lastPiece.empty()) return;
  position_.x +=
      FindFont(position_.lastFont).Width(position_.lastPiece) * TwipsPerEmOf(position_.lastFont);
  position_.lastPiece.clear();
}

void NativeEngine::PutText(const std::string& text) {
  RequireDrawing();
  SettlePrintPosition();
  if (IsPlainLine(text)) {
    DrawPiece(position_.x, position_.y, text);
    RememberLastPiece(text);
  } else {
    DrawLayout(LayOutText(text, [this](std::string_view piece) { return MeasurePiece(piece); }));
  }
}

void NativeEngine::DrawLayout(const TextLayout& layout) {
  const double lineSpacing = LineSpacing();
  const auto topOf = [&](const TextPiece& piece) {
    return position_.y + static_cast<double>(piece.line) * lineSpacing;
  };
  for (const TextPiece& piece : layout.pieces) {
    DrawPiece(position_.x + piece.x, topOf(piece), piece.text);
  }
  const TextPiece& last = layout.pieces.back();
  position_.y = topOf(last);
  position_.x += last.x;
  RememberLastPiece(last.text);
}

void NativeEngine::DrawPiece(double x, double y, std::string_view piece) {
  if (piece.empty()) return;
  recorder_->SetFont(font_);
  recorder_->SetTextColor(textColor_);
  recorder_->DrawText(PointOf(x, y), piece);
}

void NativeEngine::RememberLastPiece(const std::string& piece) {
  position_.lastFont = font_;
  position_.lastPiece = piece;
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
