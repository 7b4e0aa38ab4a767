#include "engine/native/pdf/content_stream.h"

#include <algorithm>
#include <cassert>

#include "engine/native/document/pens_and_brushes.h"

namespace pagivo::native {
namespace {

// Readers may refuse strings of 32,768 bytes and arrays of 8,192 elements.
constexpr std::size_t kLongestString = 8000;

// Three decimals tell the 256 levels apart.
std::int64_t ThousandthsOf(std::uint8_t level) {
  return (std::int64_t{level} * 1000 + 127) / 255;
}

std::string_view ByRule(FillRule rule, std::string_view nonZero, std::string_view evenOdd) {
  return rule == FillRule::NonZero ? nonZero : evenOdd;
}

// Operands and their operator, written where the content ends.
class Operation {
 public:
  explicit Operation(ContentBytes& bytes) : bytes_(bytes), end_(bytes.Room(kLongest)) {}

  Operation& Number(std::int64_t value, int decimals = 2) {
    end_ = WriteDecimal(end_, value, decimals);
    *end_++ = ' ';
    return *this;
  }

  Operation& Point(PdfPoint point) { return Number(point.x).Number(point.y); }

  // `name` is the operator and what follows it.
  void End(std::string_view name) {
    assert(name.size() <= kLongestName);
    bytes_.EndAt(std::ranges::copy(name, end_).out);
  }

 private:
  static constexpr std::size_t kMostNumbers = 6;
  static constexpr std::size_t kLongestName = 3;
  static constexpr std::size_t kLongest = kMostNumbers * (kLongestNumber + 1) + kLongestName;

  ContentBytes& bytes_;
  char* end_;
};

// Spelt as everywhere else in a file.
template <typename Object>
void AppendObject(ContentBytes& bytes, const Object& object) {
  std::string text;
  AppendObject(text, object);
  bytes += text;
}

}  // namespace

std::string FontName(std::uint16_t number) {
  return "F" + std::to_string(number);
}

void ContentStream::Begin() {
  bytes_.Clear();
  mode_ = Mode::Page;
  styles_ = {};
  font_ = -1;
  fontSize_ = 0;
  outlinesGlyphs_ = false;
  stringBegin_ = 0;
}

std::string_view ContentStream::Finish() {
  EndText();
  return bytes_.View();
}

// --- Styles -----------------------------------------------------------------------------------

void ContentStream::WriteColor(Color color, std::string_view grayOperator,
                               std::string_view rgbOperator) {
  const bool gray = RedOf(color) == GreenOf(color) && RedOf(color) == BlueOf(color);
  Operation operation(bytes_);
  operation.Number(ThousandthsOf(RedOf(color)), 3);
  if (!gray) {
    operation.Number(ThousandthsOf(GreenOf(color)), 3).Number(ThousandthsOf(BlueOf(color)), 3);
  }
  operation.End(gray ? grayOperator : rgbOperator);
}

void ContentStream::WriteFillColor(Color color) {
  WriteColor(color, "g\n", "rg\n");
  styles_.fill = color;
}

void ContentStream::WriteStroke(const StrokeStyle& style) {
  const StrokeStyle& old = styles_.stroke;
  if (old.color != style.color) WriteColor(style.color, "G\n", "RG\n");
  if (old.width != style.width) Operation(bytes_).Number(style.width).End("w\n");
  if (old.cap != style.cap) Operation(bytes_).Number(style.cap, 0).End("J\n");
  if (old.join != style.join) Operation(bytes_).Number(style.join, 0).End("j\n");
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
  Operation(bytes_).Number(style.dashPhase).End("d\n");
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
  Operation(bytes_).Point(point).End("m\n");
}

void ContentStream::LineTo(PdfPoint point) {
  assert(mode_ == Mode::Path);
  Operation(bytes_).Point(point).End("l\n");
}

void ContentStream::CurveTo(PdfPoint control1, PdfPoint control2, PdfPoint end) {
  assert(mode_ == Mode::Path);
  Operation(bytes_).Point(control1).Point(control2).Point(end).End("c\n");
}

void ContentStream::AddRectangle(PdfPoint corner, Hundredths width, Hundredths height) {
  if (mode_ != Mode::Path) BeginPath();
  Operation(bytes_).Point(corner).Point({width, height}).End("re\n");
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
  Operation(bytes_).Point({width, 0}).Point({0, height}).Point(origin).End("cm");
  AppendObject(bytes_, PdfName{name});
  bytes_ += " Do Q\n";
}

// --- Text -------------------------------------------------------------------------------------

void ContentStream::EndText() {
  assert(mode_ != Mode::Path && !inActualText_);
  if (mode_ == Mode::Page) return;
  EndString();
  bytes_ += "ET\n";
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
  bytes_ += " ";
  Operation(bytes_).Number(size, 3).End("Tf\n");
  font_ = number;
  fontSize_ = size;
}

// Td keeps the slant and moves along it, so slanted lines are placed by the whole matrix.
void ContentStream::StartLine(PdfPoint start, double slant) {
  assert(mode_ != Mode::Path);
  EndString();
  if (mode_ == Mode::Page) {
    bytes_ += "BT\n";
    mode_ = Mode::Text;
    lineStart_ = {};
    lineSlant_ = 0;
  }
  if (slant == 0 && lineSlant_ == 0) {
    const PdfPoint moved{start.x - lineStart_.x, start.y - lineStart_.y};
    Operation(bytes_).Point(moved).End("Td\n");
  } else {
    const PdfPoint up{RoundAway(slant * 100), 100};
    Operation(bytes_).Point({100, 0}).Point(up).Point(start).End("Tm\n");
  }
  lineStart_ = start;
  lineSlant_ = slant;
}

void ContentStream::MovePenBack(std::int64_t distance, int decimals) {
  if (mode_ != Mode::String) stringBegin_ = bytes_.Size() + 1;
  char* end = bytes_.Room(kLongestNumber + 2);
  *end++ = mode_ == Mode::String ? ')' : '[';
  end = WriteDecimal(end, distance, decimals);
  *end++ = '(';
  bytes_.EndAt(end);
  mode_ = Mode::String;
}

void ContentStream::OpenString() {
  assert(mode_ == Mode::Text);
  bytes_ += "[(";
  stringBegin_ = bytes_.Size();
  mode_ = Mode::String;
}

void ContentStream::EndString() {
  if (mode_ != Mode::String) return;
  bytes_ += ")]TJ\n";
  mode_ = Mode::Text;
}

std::size_t ContentStream::RoomInString() const noexcept {
  const std::size_t length = bytes_.Size() - stringBegin_;
  return length <= kLongestString ? kLongestString + 1 - length : 0;
}

void ContentStream::AddCode(std::uint16_t code, int bytes) {
  if (RoomInString() == 0) EndString();
  if (mode_ != Mode::String) OpenString();
  char* end = bytes_.Room(2);
  if (bytes == 2) *end++ = static_cast<char>(code >> 8);
  *end++ = static_cast<char>(code);
  bytes_.EndAt(end);
}

std::span<char> ContentStream::RoomForCodes(std::size_t most) {
  const std::size_t count = std::min(most, RoomInString());
  return {bytes_.Room(count), count};
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
