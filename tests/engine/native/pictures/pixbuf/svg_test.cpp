// SVG: what is drawn of it, and what is refused before anything is drawn.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"
#include "support/pictures/picture_files.h"

namespace pagivo::native {
namespace {

std::string Drawing(const std::string& content, const std::string& prologue = {}) {
  return prologue +
         "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
         "viewBox='0 0 100 100'>" +
         content + "</svg>";
}

std::string Repeated(const std::string& text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

std::string WhyRefused(const Bytes& bytes) {
  try {
    DecodePicture(bytes);
    return "none";
  } catch (const Error& error) {
    return error.what();
  }
}

testing::AssertionResult IsRefused(const Bytes& bytes, const std::string& reason) {
  const std::string refusal = WhyRefused(bytes);
  if (refusal.ends_with(reason)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "refused for: " << refusal;
}

// Red, green, blue and alpha at a place from 0 to 100.
using Rgba = std::array<int, 4>;
Rgba ColorAt(const PictureImage& picture, int x, int y) {
  const PictureImage::Pixels pixels = *picture.GetPixels();
  const std::size_t channels = pixels.hasAlpha ? 4 : 3;
  const auto at =
      static_cast<std::size_t>(pixels.height * y / 100 * pixels.width + pixels.width * x / 100) *
      channels;
  return {pixels.data.at(at), pixels.data.at(at + 1), pixels.data.at(at + 2),
          pixels.hasAlpha ? pixels.data.at(at + 3) : 255};
}
Rgba ColorIn(const std::string& svg, int x = 50, int y = 50) {
  return ColorAt(*DecodePicture(TextBytes(svg)), x, y);
}

constexpr Rgba kRed{255, 0, 0, 255};
constexpr Rgba kGreen{0, 128, 0, 255};
constexpr Rgba kNothing{0, 0, 0, 0};

// A PNG that announces 30000 x 30000 pixels, in base 64.
constexpr const char* kBomb =
    "iVBORw0KGgoAAAANSUhEUgAAdTAAAHUwCAIAAADpRW/tAAAACElEQVR4nAMAAAAAAUgGid"
    "IAAAAASUVORK5CYII=";
// A red PNG of 8 x 8 pixels.
constexpr const char* kRedSquare =
    "iVBORw0KGgoAAAANSUhEUgAAAAgAAAAICAIAAABLbSncAAAAEklEQVR4nGP4z8CAFWEXHbQS"
    "ACj/P8Fu7N9hAAAAAElFTkSuQmCC";

std::string Image(const std::string& address, const std::string& reference = "xlink:href") {
  return "<image width='100' height='100' " + reference + "=\"" + address + "\"/>";
}

Bytes Base64Decoded(const std::string& base64) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  Bytes decoded;
  std::uint32_t bits = 0;
  int count = 0;
  for (const char c : base64.substr(0, base64.find('='))) {
    bits = bits << 6 | static_cast<std::uint32_t>(kDigits.find(c));
    count += 6;
    if (count < 8) continue;
    count -= 8;
    decoded.push_back(static_cast<std::uint8_t>(bits >> count));
  }
  return decoded;
}

std::string Percent(const Bytes& bytes) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : bytes) text += {'%', kHex[byte >> 4], kHex[byte & 15]};
  return text;
}

Bytes InUtf16(const std::string& text) {
  Bytes bytes{0xFF, 0xFE};
  for (const char c : text) {
    bytes.push_back(static_cast<std::uint8_t>(c));
    bytes.push_back(0);
  }
  return bytes;
}

// The same picture in a drawing, spelt in every way.
std::vector<Bytes> Spellings(const std::string& base64) {
  const std::string plain = "data:image/png;base64," + base64;
  const std::string broken = base64.substr(0, 20) + "\n \t" + base64.substr(20);
  return {TextBytes(Drawing(Image(plain))),
          TextBytes(Drawing(Image(plain, "href"))),
          TextBytes(Drawing("<g xmlns:l='http://www.w3.org/1999/xlink'>" + Image(plain, "l:href") +
                            "</g>")),
          TextBytes(Drawing(Image("data:image/png;base&#54;4," + base64))),
          TextBytes(Drawing(Image("&#x64;ata&#58;image/png;&#98;ase64&#44;" + base64))),
          TextBytes(Drawing(Image("DATA:IMAGE/PNG;BASE64," + base64))),
          TextBytes(Drawing(Image("  data:image/png ; base64 ,  " + broken))),
          TextBytes(Drawing(Image("data:image/png;base64,%69" + base64.substr(1)))),
          TextBytes(Drawing(Image("data:image/png," + Percent(Base64Decoded(base64))))),
          InUtf16(Drawing(Image(plain))),
          TextBytes(Drawing(Image("&a;&b;"),
                            "<!DOCTYPE svg [<!ENTITY a 'data:image/png;base'>"
                            "<!ENTITY b '64," +
                                base64 + "'>]>")),
          TextBytes(Drawing("&a;",
                            "<!DOCTYPE svg [<!ENTITY a \"<image width='100' height='100' "
                            "xlink:href='" +
                                plain + "'/>\">]>"))};
}

TEST(SvgDrawing, GivesItsPixels) {
  const auto picture = LoadPictureFile(PicturePath("colors.svg"));
  EXPECT_EQ(picture->GetPixels()->width, 1024);
  EXPECT_EQ(picture->GetPixels()->height, 512);
  EXPECT_FALSE(picture->GetPixels()->hasAlpha);
  EXPECT_EQ(ColorAt(*picture, 1, 1), (Rgba{255, 0, 0, 255}));
  EXPECT_EQ(ColorAt(*picture, 99, 1), (Rgba{0, 255, 0, 255}));
  EXPECT_EQ(ColorAt(*picture, 1, 99), (Rgba{0, 0, 255, 255}));
  EXPECT_EQ(ColorAt(*picture, 99, 99), (Rgba{255, 255, 255, 255}));
}

TEST(SvgDrawing, IsTheSameFromItsBytes) {
  const auto picture = LoadPictureFile(PicturePath("colors.svg"));
  EXPECT_EQ(DecodePicture(PictureFile("colors.svg"))->GetPixels()->data,
            picture->GetPixels()->data);
}

TEST(PictureAlpha, OfSvgIsKeptStraight) {
  const auto picture = LoadPictureFile(PicturePath("alpha.svg"));
  ASSERT_TRUE(picture->GetPixels()->hasAlpha);
  EXPECT_EQ(ColorAt(*picture, 99, 1)[3], 0);
  EXPECT_EQ(ColorAt(*picture, 1, 99), (Rgba{0, 0, 255, 128}));
}

TEST(PictureSize, OfSvgIsAtThreeHundredDotsAnInchWithinBounds) {
  const auto sizeOf = [](const std::string& attributes) {
    const auto picture =
        DecodePicture(TextBytes("<svg xmlns='http://www.w3.org/2000/svg' " + attributes +
                                "><rect width='20' height='10'/></svg>"));
    return std::pair(picture->GetPixels()->width, picture->GetPixels()->height);
  };
  EXPECT_EQ(sizeOf("width='5in' height='4in'"), std::pair(1500, 1200));
  EXPECT_EQ(sizeOf("width='1in' height='1in'"), std::pair(1024, 1024));
  EXPECT_EQ(sizeOf("width='100in' height='50in'"), std::pair(4096, 2048));
  EXPECT_EQ(sizeOf("viewBox='0 0 3 1'"), std::pair(1024, 341));
  EXPECT_EQ(sizeOf("width='1e9' height='1'"), std::pair(4096, 1));
  EXPECT_EQ(sizeOf(""), std::pair(1024, 512));
}

TEST(SvgPicture, ThatIsTooLargeIsRefusedHoweverItIsSpelt) {
  int number = 0;
  for (const Bytes& bytes : Spellings(kBomb)) {
    EXPECT_TRUE(IsRefused(bytes, "te groot")) << "spelling " << number;
    ++number;
  }
}

TEST(SvgPicture, IsDrawnHoweverItIsSpelt) {
  int number = 0;
  for (const Bytes& bytes : Spellings(kRedSquare)) {
    EXPECT_EQ(ColorAt(*DecodePicture(bytes), 50, 50), kRed) << "spelling " << number;
    ++number;
  }
}

TEST(SvgPicture, ThatIsAnSvgIsNotDrawn) {
  const std::string inner =
      "data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' width='9' height='9'%3E"
      "%3Crect width='9' height='9'/%3E%3C/svg%3E";
  EXPECT_EQ(ColorIn(Drawing("<image width='100' height='100' href=\"" + inner + "\"/>")), kNothing);
}

TEST(SvgPicture, ThatIsBrokenLeavesTheRestOfTheDrawing) {
  const std::string broken = std::string(kRedSquare).substr(0, 60);
  EXPECT_EQ(ColorIn(Drawing("<rect width='100' height='100' fill='green'/>" +
                            Image("data:image/png;base64," + broken))),
            kGreen);
}

TEST(SvgPicture, OfTooManyPixelsTogetherAreRefused) {
  const std::string image = Image("data:image/png," + Percent(PngOfSize(4096, 2049)));
  EXPECT_TRUE(IsRefused(TextBytes(Drawing(Repeated(image, 2))), "te groot"));
}

// Small drawings that would take minutes, or all memory.

struct Bomb {
  const char* name;
  std::string svg;
};

std::string UseOfUse() {
  std::string defs = "<path id='a0' d='M1 1h1v1z'/>";
  for (int level = 1; level < 12; ++level) {
    const std::string one = "<use xlink:href='#a" + std::to_string(level - 1) + "'/>";
    defs += "<g id='a" + std::to_string(level) + "'>" + Repeated(one, 10) + "</g>";
  }
  return Drawing("<defs>" + defs + "</defs><use xlink:href='#a11'/>");
}

std::string Zigzag(int corners) {
  std::string path = "M0 0";
  for (int i = 0; i < corners; ++i) {
    path += "L" + std::to_string(i * 97 % 100) + (i % 2 == 0 ? " 100" : " 0");
  }
  return path;
}

std::string Nested(const std::string& attributes, int count) {
  return Repeated("<g " + attributes + ">", count) + "<rect width='9' height='9'/>" +
         Repeated("</g>", count);
}

std::vector<Bomb> Bombs() {
  const std::string whole = "<rect width='100' height='100' ";
  return {
      {"ElementsUsedOverAndOver", UseOfUse()},
      {"APathThatCrossesItself", Drawing("<path d='" + Zigzag(20000) + "'/>")},
      {"AStrokeThatCrossesItself",
       Drawing("<path fill='none' stroke='red' d='" + Zigzag(5000) + "'/>")},
      {"FineDashes",
       Drawing("<path fill='none' stroke='red' stroke-width='.1' stroke-dasharray='.05' "
               "d='" +
               Zigzag(1000) + "'/>")},
      {"DashesFarOutside", Drawing("<path stroke='red' stroke-dasharray='.1' "
                                   "d='M0 0h400000h-400000h400000h-400000h400000'/>")},
      {"ClipPathsThatCross",
       Drawing("<clipPath id='c'><path d='" + Zigzag(8000) + "'/></clipPath><path d='" +
               Zigzag(8000) + "' clip-path='url(#c)'/>")},
      {"NestedOpacity", Drawing(Nested("opacity='.99'", 250))},
      {"NestedMasks", Drawing("<mask id='m'><rect width='9' height='9' fill='white'/></mask>" +
                              Nested("mask='url(#m)'", 250))},
      {"OpacityByStyleSheet",
       Drawing("<style>rect.a { opacity: .5 }</style>" + Repeated(whole + "class='a'/>", 1000))},
      {"MasksInMasks",
       Drawing("<mask id='m'>" + Repeated(whole + "mask='url(#n)'/>", 40) + "</mask><mask id='n'>" +
               Repeated(whole + "opacity='.5'/>", 40) + "</mask>" + whole + "mask='url(#m)'/>")},
      {"ALargePatternTile",
       Drawing("<pattern id='p' width='30000' height='30000' patternUnits='userSpaceOnUse'>" +
               whole + "/></pattern>" + whole + "fill='url(#p)'/>")},
      {"PatternsInPatterns",
       Drawing("<pattern id='p' width='50' height='50' patternUnits='userSpaceOnUse'>" +
               Repeated(whole + "fill='url(#q)'/>", 50) +
               "</pattern><pattern id='q' width='5' height='5' patternUnits='userSpaceOnUse'>" +
               whole + "/></pattern>" + whole + "fill='url(#p)'/>")},
      {"Markers", Drawing("<marker id='m' overflow='visible'>" + Repeated(whole + "/>", 100) +
                          "</marker><path marker-mid='url(#m)' d='" + Zigzag(1000) + "'/>")},
      {"Gradients", Drawing("<radialGradient id='g'><stop offset='0'/><stop offset='1'/>"
                            "</radialGradient>" +
                            Repeated(whole + "fill='url(#g)'/>", 1000))},
      {"GradientsInACircle", Drawing("<linearGradient id='g' xlink:href='#h'/>"
                                     "<linearGradient id='h' xlink:href='#g'/>" +
                                     whole + "fill='url(#g)'/>")},
      {"ManyFonts",
       [] {
         std::string texts;
         for (int i = 0; i < 1000; ++i) {
           texts += "<text font-family='F" + std::to_string(i) + "'>a</text>";
         }
         return Drawing(texts);
       }()},
      {"LongText", Drawing("<text>" + std::string(200000, 'a') + "</text>")},
  };
}

TEST(SvgWork, IsBoundedBeforeAnythingIsDrawn) {
  for (const Bomb& bomb : Bombs()) {
    EXPECT_TRUE(IsRefused(TextBytes(bomb.svg), "te ingewikkeld")) << bomb.name;
  }
}

TEST(SvgWork, OfTooManyElementsIsRefused) {
  EXPECT_TRUE(IsRefused(TextBytes(Drawing(Repeated("<g/>", 200000))), "te groot"));
}

TEST(SvgWork, OfTooManyRulesIsRefused) {
  const std::string sheet = "<style>" + Repeated(".a{fill:red}", 4000) + "</style>";
  EXPECT_TRUE(IsRefused(TextBytes(Drawing(sheet + Repeated("<g/>", 10000))), "te groot"));
}

TEST(SvgWork, OfElementsThatLieBesideEachOtherIsNoneTooMuch) {
  std::string map;
  for (int i = 0; i < 10000; ++i) {
    map += "<path fill='red' d='M" + std::to_string(i % 100) + " " + std::to_string(i / 100) +
           "h1v1h-1z'/>";
  }
  EXPECT_EQ(ColorIn(Drawing(map)), kRed);
}

TEST(SvgWork, ThatIsMuchMakesFewerPixels) {
  const std::string large =
      "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9' width='20in' height='20in'>" +
      Repeated("<rect width='9' height='9' opacity='.5'/>", 25) + "</svg>";
  EXPECT_EQ(DecodePicture(TextBytes(large))->GetPixels()->width, 2048);
}

// What stays as it was.

TEST(SvgDrawing, TakesStyleSheetsIntoAccount) {
  const std::string shape = "<g class='dark side'><rect id='r' width='100' height='100'/></g>";
  const auto color = [&shape](const std::string& sheet) {
    return ColorIn(Drawing("<style>" + sheet + "</style>" + shape));
  };
  EXPECT_EQ(color("rect { fill: red }"), kRed);
  EXPECT_EQ(color("/* all */ * { fill: red; }"), kRed);
  EXPECT_EQ(color(".dark{fill:red}"), kRed);
  EXPECT_EQ(color("g.dark > #r, .none { fill: red }"), kRed);
  EXPECT_EQ(color("svg .side rect { fill: red }"), kRed);
  EXPECT_EQ(color("svg > rect { fill: red }"), (Rgba{0, 0, 0, 255}));
  EXPECT_EQ(color("#r { fill: red } rect { fill: green }"), kRed);
  EXPECT_EQ(color("rect { fill: red !important } #r { fill: green }"), kRed);
  EXPECT_EQ(color("@import url('a.css'); @media print { rect { fill: green } } rect { fill: red }"),
            kRed);
  EXPECT_EQ(color("<![CDATA[ rect { fill: red } ]]>"), kRed);
}

TEST(SvgDrawing, PrefersTheStyleOfTheElementItself) {
  const std::string sheet = "<style>rect { fill: green }</style>";
  EXPECT_EQ(ColorIn(Drawing(sheet + "<rect width='100' height='100' fill='blue'/>")), kGreen);
  EXPECT_EQ(ColorIn(Drawing(sheet + "<rect width='100' height='100' style='fill: red'/>")), kRed);
}

TEST(SvgDrawing, FollowsReferencesWithinTheFile) {
  const std::string square = "width='100' height='100' ";
  EXPECT_EQ(
      ColorIn(Drawing("<symbol id='s' viewBox='0 0 1 1'><rect width='1' height='1' fill='red'/>"
                      "</symbol><use xlink:href='#s' " +
                      square + "/>")),
      kRed);
  EXPECT_EQ(
      ColorIn(Drawing("<linearGradient id='g'><stop stop-color='red'/></linearGradient><rect " +
                      square + "fill='url(#g)'/>")),
      kRed);
  EXPECT_EQ(
      ColorIn(Drawing("<pattern id='p' width='.5' height='.5'><rect " + square +
                      "fill='red'/></pattern><rect " + square + "style=\"fill: url('#p')\"/>")),
      kRed);
  EXPECT_EQ(ColorIn(Drawing("<clipPath id='c'><rect width='40' height='40'/></clipPath><rect " +
                            square + "clip-path='url(#c)' fill='red'/>")),
            kNothing);
  EXPECT_EQ(ColorIn(Drawing("<mask id='m'><rect " + square + "fill='white'/></mask><rect " +
                            square + "mask='url(#m)' fill='red'/>")),
            kRed);
}

TEST(SvgDrawing, TransformsHoweverItIsWritten) {
  const std::string square = "<rect x='-50' y='-50' width='10' height='10' fill='red' ";
  for (const char* transform :
       {"transform='translate(95,95)'", "transform='matrix(1 0 0 1 95 95)'",
        "transform=' translate( 95 ), translate(0 95)'", "transform='rotate(180)scale(1.1)'",
        "style='transform: translate(95px, 95px)'",
        "style='transform: rotate(180deg) scale(1.1)'"}) {
    EXPECT_EQ(ColorIn(Drawing(square + transform + "/>")), kRed) << transform;
  }
}

TEST(SvgDrawing, GoesAsFarAsPathDataIsSuch) {
  EXPECT_EQ(ColorIn(Drawing("<path fill='red' d='M0 0H100V100H0 oh 5 5'/>"), 50, 20), kRed);
}

TEST(SvgDrawing, KnowsEntitiesOfItsOwn) {
  EXPECT_EQ(
      ColorIn(Drawing("<rect width='100' height='100' style='&st0;'/>",
                      "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' 'http://www.w3.org/a.dtd' ["
                      "<!ENTITY st0 'fill:red'>]>")),
      kRed);
}

TEST(SvgDrawing, ReadsNoEntityOfAnotherFile) {
  const ScratchFolder folder;
  const std::string path = WriteInto(folder, "vorm.xml",
                                     TextBytes("<rect xmlns='http://www.w3.org/2000/"
                                               "svg' width='100' height='100'/>"));
  const std::string svg =
      Drawing("<g>&e;</g>", "<!DOCTYPE svg [<!ENTITY e SYSTEM 'file://" + path + "'>]>");
  try {
    EXPECT_EQ(ColorIn(svg), kNothing);
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
  }
}

}  // namespace
}  // namespace pagivo::native
