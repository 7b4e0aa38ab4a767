#include "engine/native/pdf/content_stream.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>

#include "engine/native/document/pens_and_brushes.h"

namespace pagivo::native {
namespace {

using namespace std::string_view_literals;  // which are appended without counting them first

// Readers may refuse strings of 32,768 bytes and arrays of 8,192 elements.
constexpr std::size_t kLongestString = 8000;

// Three decimals tell the 256 levels apart.
std::int64_t ThousandthsOf(std::uint8_t level) {
  return (std::int64_t{level} * 1000 + 127) / 255;
}

std::string_view ByRule(FillRule rule, std::string_view nonZero, std::string_view evenOdd) {
  return rule == FillRule::NonZero ? nonZero : evenOdd;
}

// Operands and their operator, put together and then appended at once.
class Operation {
 public:
  Operation& Number(std::int64_t value, int decimals = 2) {
    end_ = WriteDecimal(end_, value, decimals);
    *end_++ = ' ';
    return *this;
  }

  Operation& Point(PdfPoint point) { return Number(point.x).Number(point.y); }

  // `name` is the operator and what follows it.
  template <std::size_t kSize>
  void AppendTo(std::string& bytes, const char (&name)[kSize]) {
    static_assert(kSize <= kLongestName);
    end_ = std::copy_n(name, kSize - 1, end_);
    bytes.append(text_.data(), static_cast<std::size_t>(end_ - text_.data()));
  }

 private:
  static constexpr std::size_t kMostNumbers = 6;
  static constexpr std::size_t kLongestName = 4;

  std::array<char, kMostNumbers*(kLongestNumber + 1) + kLongestName> text_;
  char* end_ = text_.data();
};

}  // namespace

std::string FontName(std::uint16_t number) {
  return "F" + std::to_string(number);
}

void ContentStream::Begin() {
  bytes_.clear();
  mode_ = Mode::Page;
  styles_ = {};
  font_ = -1;
  fontSize_ = 0;
  outlinesGlyphs_ = false;
  stringBegin_ = 0;
}

std::string_view ContentStream::Finish() {
  EndText();
  return bytes_;
}

// --- Styles -----------------------------------------------------------------------------------

void ContentStream::AppendColor(Color color, std::string_view grayOperator,
                                std::string_view rgbOperator) {
  const bool gray = RedOf(color) == GreenOf(color) && RedOf(color) == BlueOf(color);
  AppendDecimal(bytes_, ThousandthsOf(RedOf(color)), 3);
  bytes_.push_back(' ');
  if (!gray) {
    AppendDecimal(bytes_, ThousandthsOf(GreenOf(color)), 3);
    bytes_.push_back(' ');
    AppendDecimal(bytes_, ThousandthsOf(BlueOf(color)), 3);
    bytes_.push_back(' ');
  }
  bytes_ += gray ? grayOperator : rgbOperator;
}

void ContentStream::WriteFillColor(Color color) {
  AppendColor(color, "g\n", "rg\n");
  styles_.fill = color;
}

void ContentStream::WriteStroke(const StrokeStyle& style) {
  const StrokeStyle& old = styles_.stroke;
  if (old.color != style.color) AppendColor(style.color, "G\n", "RG\n");
  if (old.width != style.width) {
    AppendHundredths(bytes_, style.width);
    bytes_ += " w\n";
  }
  if (old.cap != style.cap) {
    AppendInteger(bytes_, style.cap);
    bytes_ += " J\n";
  }
  if (old.join != style.join) {
    AppendInteger(bytes_, style.join);
    bytes_ += " j\n";
  }
  const bool dashed = !DashMultiples(style.dash).empty();
  const bool wasDashed = !DashMultiples(old.dash).empty();
  const bool measuresDiffer = old.width != style.width || old.dashPhase != style.dashPhase;
  if (old.dash != style.dash ? dashed || wasDashed : dashed && measuresDiffer) WriteDash(style);
  styles_.stroke = style;
}

void ContentStream::WriteDash(const StrokeStyle& style) {
  PdfArray dashes;
  for (const float multiple : DashMultiples(style.dash)) {
    dashes.Add(PdfDecimal{static_cast<Hundredths>(multiple * static_cast<float>(style.width))});
  }
  AppendObject(bytes_, dashes);
  AppendHundredths(bytes_, style.dashPhase);
  bytes_ += " d\n";
}

void ContentStream::SetFillColor(Color color) {
  EndText();
  if (styles_.fill != color) WriteFillColor(color);
}

void ContentStream::SetStroke(const StrokeStyle& style) {
  EndText();
  if (styles_.stroke != style) WriteStroke(style);
}

// --- Figures ----------------------------------------------------------------------------------

void ContentStream::BeginPath() {
  EndText();
  mode_ = Mode::Path;
}

void ContentStream::MoveTo(PdfPoint point) {
  if (mode_ != Mode::Path) BeginPath();
  Operation().Point(point).AppendTo(bytes_, "m\n");
}

void ContentStream::LineTo(PdfPoint point) {
  assert(mode_ == Mode::Path);
  Operation().Point(point).AppendTo(bytes_, "l\n");
}

void ContentStream::CurveTo(PdfPoint control1, PdfPoint control2, PdfPoint end) {
  assert(mode_ == Mode::Path);
  Operation().Point(control1).Point(control2).Point(end).AppendTo(bytes_, "c\n");
}

void ContentStream::AddRectangle(PdfPoint corner, Hundredths width, Hundredths height) {
  if (mode_ != Mode::Path) BeginPath();
  Operation().Point(corner).Point({width, height}).AppendTo(bytes_, "re\n");
}

void ContentStream::ClosePath() {
  assert(mode_ == Mode::Path);
  bytes_ += "h\n";
}

void ContentStream::PaintPath(std::string_view paintOperator) {
  assert(mode_ == Mode::Path);
  bytes_ += paintOperator;
  mode_ = Mode::Page;
}

void ContentStream::Stroke() {
  PaintPath("S\n");
}

void ContentStream::Fill(FillRule rule) {
  PaintPath(ByRule(rule, "f\n", "f*\n"));
}

void ContentStream::FillAndStroke(FillRule rule) {
  PaintPath(ByRule(rule, "B\n", "B*\n"));
}

void ContentStream::SaveState() {
  EndText();
  bytes_ += "q\n";
  savedStyles_ = styles_;
}

void ContentStream::Clip(FillRule rule) {
  PaintPath(ByRule(rule, "W n\n", "W* n\n"));
}

// No glyph is drawn between the two, so the styles of glyphs stay as they are.
void ContentStream::RestoreState() {
  assert(mode_ == Mode::Page);
  bytes_ += "Q\n";
  styles_ = savedStyles_;
}

void ContentStream::DrawImage(std::string_view name, PdfPoint origin, Hundredths width,
                              Hundredths height) {
  EndText();
  bytes_ += "q ";
  Operation().Point({width, 0}).Point({0, height}).Point(origin).AppendTo(bytes_, "cm");
  AppendObject(bytes_, PdfName{name});
  bytes_ += " Do Q\n";
}

// --- Text -------------------------------------------------------------------------------------

void ContentStream::EndText() {
  assert(mode_ != Mode::Path && !inActualText_);
  if (mode_ == Mode::Page) return;
  EndString();
  bytes_ += "ET\n"sv;
  mode_ = Mode::Page;
}

void ContentStream::SetTextColor(Color color) {
  if (styles_.fill == color) return;
  EndString();
  WriteFillColor(color);
}

void ContentStream::OutlineGlyphs(const StrokeStyle& style) {
  if (outlinesGlyphs_ && styles_.stroke == style) return;
  EndString();
  if (!outlinesGlyphs_) bytes_ += "2 Tr\n";
  outlinesGlyphs_ = true;
  WriteStroke(style);
}

void ContentStream::FillGlyphs() {
  if (!outlinesGlyphs_) return;
  EndString();
  bytes_ += "0 Tr\n";
  outlinesGlyphs_ = false;
}

void ContentStream::WriteFont(std::uint16_t number, std::int64_t size) {
  EndString();
  AppendObject(bytes_, PdfName{FontName(number)});
  AppendObject(bytes_, PdfDecimal{size, 3});
  bytes_ += " Tf\n"sv;
  font_ = number;
  fontSize_ = size;
}

// Td keeps the slant and moves along it, so slanted lines are placed by the whole matrix.
void ContentStream::StartLine(PdfPoint start, double slant) {
  assert(mode_ != Mode::Path);
  EndString();
  if (mode_ == Mode::Page) {
    bytes_ += "BT\n"sv;
    mode_ = Mode::Text;
    lineStart_ = {};
    lineSlant_ = 0;
  }
  if (slant == 0 && lineSlant_ == 0) {
    const PdfPoint moved{start.x - lineStart_.x, start.y - lineStart_.y};
    Operation().Point(moved).AppendTo(bytes_, "Td\n");
  } else {
    const PdfPoint up{std::llround(slant * 100), 100};
    Operation().Point({100, 0}).Point(up).Point(start).AppendTo(bytes_, "Tm\n");
  }
  lineStart_ = start;
  lineSlant_ = slant;
}

void ContentStream::MovePenBack(std::int64_t distance, int decimals) {
  std::array<char, kLongestNumber + 2> text;
  text[0] = mode_ == Mode::String ? ')' : '[';
  char* end = WriteDecimal(text.data() + 1, distance, decimals);
  *end++ = '(';
  if (mode_ != Mode::String) stringBegin_ = bytes_.size() + 1;
  mode_ = Mode::String;
  bytes_.append(text.data(), static_cast<std::size_t>(end - text.data()));
}

void ContentStream::OpenString() {
  assert(mode_ == Mode::Text);
  bytes_ += "[("sv;
  stringBegin_ = bytes_.size();
  mode_ = Mode::String;
}

void ContentStream::EndString() {
  if (mode_ != Mode::String) return;
  bytes_ += ")]TJ\n"sv;
  mode_ = Mode::Text;
}

std::size_t ContentStream::RoomInString() const noexcept {
  const std::size_t length = bytes_.size() - stringBegin_;
  return length <= kLongestString ? kLongestString + 1 - length : 0;
}

void ContentStream::AddCode(std::uint16_t code, int bytes) {
  if (RoomInString() == 0) EndString();
  if (mode_ != Mode::String) OpenString();
  if (bytes == 2) bytes_.push_back(static_cast<char>(code >> 8));
  bytes_.push_back(static_cast<char>(code));
}

void ContentStream::BeginActualText(std::string_view text) {
  EndString();
  assert(mode_ == Mode::Text && !inActualText_);
  AppendObject(bytes_, PdfName{"Span"});
  AppendObject(bytes_, PdfDictionary().Put("ActualText", PdfText{text}));
  bytes_ += "BDC\n";
  inActualText_ = true;
}

void ContentStream::EndActualText() {
  assert(inActualText_);
  EndString();
  bytes_ += "EMC\n";
  inActualText_ = false;
}

}  // namespace pagivo::native
