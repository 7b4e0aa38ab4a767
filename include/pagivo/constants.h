// The numbers of the interface by name: ScaleMode::Millimetres, PaperSize::A4, PenStyle::Dash.
#pragma once

#include <cstdint>

namespace pagivo {

// The host's units, for VsPPSetScaleMode.
namespace ScaleMode {
inline constexpr std::int16_t Twips = 1;  // 1/1440 inch
inline constexpr std::int16_t Points = 2;
inline constexpr std::int16_t Pixels = 3;      // of the screen
inline constexpr std::int16_t Characters = 4;  // cells of 120 x 240 twips
inline constexpr std::int16_t Inches = 5;
inline constexpr std::int16_t Millimetres = 6;
inline constexpr std::int16_t Centimetres = 7;
}  // namespace ScaleMode

// For VsPPSetOrientation, and what VsPPGetOrientation answers.
namespace Orientation {
inline constexpr std::int16_t Portrait = 1;
inline constexpr std::int16_t Landscape = 2;
}  // namespace Orientation

// Codes of paper sizes, for VsPPSetPaperSize; VsPPGetPaperSizes lists those that it has names for.
namespace PaperSize {
inline constexpr std::int16_t Letter = 1;
inline constexpr std::int16_t LetterSmall = 2;
inline constexpr std::int16_t Tabloid = 3;
inline constexpr std::int16_t Ledger = 4;
inline constexpr std::int16_t Legal = 5;
inline constexpr std::int16_t Statement = 6;
inline constexpr std::int16_t Executive = 7;
inline constexpr std::int16_t A3 = 8;
inline constexpr std::int16_t A4 = 9;
inline constexpr std::int16_t A4Small = 10;
inline constexpr std::int16_t A5 = 11;
inline constexpr std::int16_t B4 = 12;
inline constexpr std::int16_t B5 = 13;
inline constexpr std::int16_t Folio = 14;
inline constexpr std::int16_t Quarto = 15;
inline constexpr std::int16_t Inches10x14 = 16;
inline constexpr std::int16_t Inches11x17 = 17;
inline constexpr std::int16_t Note = 18;
inline constexpr std::int16_t Envelope9 = 19;
inline constexpr std::int16_t Envelope10 = 20;
inline constexpr std::int16_t Envelope11 = 21;
inline constexpr std::int16_t Envelope12 = 22;
inline constexpr std::int16_t Envelope14 = 23;
inline constexpr std::int16_t SheetC = 24;
inline constexpr std::int16_t SheetD = 25;
inline constexpr std::int16_t SheetE = 26;
inline constexpr std::int16_t EnvelopeDL = 27;
inline constexpr std::int16_t EnvelopeC5 = 28;
inline constexpr std::int16_t EnvelopeC3 = 29;
inline constexpr std::int16_t EnvelopeC4 = 30;
inline constexpr std::int16_t EnvelopeC6 = 31;
inline constexpr std::int16_t EnvelopeC65 = 32;
inline constexpr std::int16_t EnvelopeB4 = 33;
inline constexpr std::int16_t EnvelopeB5 = 34;
inline constexpr std::int16_t EnvelopeB6 = 35;
inline constexpr std::int16_t EnvelopeItaly = 36;
inline constexpr std::int16_t EnvelopeMonarch = 37;
inline constexpr std::int16_t EnvelopePersonal = 38;  // 3 5/8 x 6 1/2 inch
inline constexpr std::int16_t FanfoldUS = 39;
inline constexpr std::int16_t FanfoldGerman = 40;
inline constexpr std::int16_t FanfoldGermanLegal = 41;
// What the code reads after a page's or paper's measures have been put.
inline constexpr std::int16_t UserDefined = 256;
}  // namespace PaperSize

// How a pen draws: varDrawStyle.
namespace PenStyle {
inline constexpr std::int32_t Solid = 0;
inline constexpr std::int32_t Dash = 1;
inline constexpr std::int32_t Dot = 2;
inline constexpr std::int32_t DashDot = 3;
inline constexpr std::int32_t DashDotDot = 4;
inline constexpr std::int32_t Invisible = 5;
inline constexpr std::int32_t InsideSolid = 6;
}  // namespace PenStyle

// How a figure is filled: varFillStyle.
namespace BrushStyle {
inline constexpr std::int32_t Solid = 0;
inline constexpr std::int32_t Transparent = 1;
inline constexpr std::int32_t Horizontal = 2;
inline constexpr std::int32_t Vertical = 3;
inline constexpr std::int32_t UpwardDiagonal = 4;
inline constexpr std::int32_t DownwardDiagonal = 5;
inline constexpr std::int32_t Cross = 6;
inline constexpr std::int32_t DiagonalCross = 7;
}  // namespace BrushStyle

// A colour of its parts, 0 to 255 each.
constexpr std::int32_t Rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return red | green << 8 | blue << 16;
}

namespace Color {
inline constexpr std::int32_t Black = Rgb(0, 0, 0);
inline constexpr std::int32_t White = Rgb(255, 255, 255);
inline constexpr std::int32_t Red = Rgb(255, 0, 0);
inline constexpr std::int32_t Green = Rgb(0, 255, 0);
inline constexpr std::int32_t Blue = Rgb(0, 0, 255);
inline constexpr std::int32_t Yellow = Rgb(255, 255, 0);
inline constexpr std::int32_t Cyan = Rgb(0, 255, 255);
inline constexpr std::int32_t Magenta = Rgb(255, 0, 255);
inline constexpr std::int32_t Maroon = Rgb(128, 0, 0);
inline constexpr std::int32_t DarkGreen = Rgb(0, 128, 0);
inline constexpr std::int32_t Navy = Rgb(0, 0, 128);
inline constexpr std::int32_t Olive = Rgb(128, 128, 0);
inline constexpr std::int32_t Teal = Rgb(0, 128, 128);
inline constexpr std::int32_t Purple = Rgb(128, 0, 128);
inline constexpr std::int32_t Gray = Rgb(128, 128, 128);
inline constexpr std::int32_t Silver = Rgb(192, 192, 192);
}  // namespace Color

}  // namespace pagivo
