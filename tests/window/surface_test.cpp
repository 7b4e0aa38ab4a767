#include "window/surface.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <vector>

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Scroll bars ------------------------------------------------------------------------------

// A sheet that wants bars where it does not fit, or as a test says.
class Sheet : public StillContent {
 public:
  Sheet(std::int32_t width, std::int32_t height) : width_(width), height_(height) {}

  std::vector<SurfaceArea> given;
  std::function<bool(const SurfaceArea& area)> wantsHorizontal = [this](const SurfaceArea& area) {
    return area.width < width_;
  };

  void PutArea(const SurfaceArea& area) override { given.push_back(area); }
  void Draw(const SurfaceBitmap&, const SurfaceColors&) override {}
  ScrollRange HorizontalRange() const override { return {.wanted = wantsHorizontal(given.back())}; }
  ScrollRange VerticalRange() const override { return {.wanted = given.back().height < height_}; }

 private:
  std::int32_t width_;
  std::int32_t height_;
};

constexpr std::array<ControlDesign, 1> kControls{{{.name = "view", .kind = ControlKind::Surface}}};
constexpr SurfaceBars kNone{};
constexpr SurfaceBars kBoth{.horizontal = true, .vertical = true};

class SurfaceBarsTest : public ::testing::Test {
 protected:
  // 100 x 100 pixels, of which a bar takes 10.
  static SurfaceArea AreaBeside(const SurfaceBars& bars) {
    return {.width = bars.vertical ? 90 : 100, .height = bars.horizontal ? 90 : 100};
  }
  SurfaceBars Fit(const SurfaceBars& present) {
    surface.PutContent(sheet);
    return surface.FitBars(present, [this](const SurfaceBars& bars) {
      ++arranged;
      return AreaBeside(bars);
    });
  }

  ControlSet controls{kControls};
  Surface& surface = dynamic_cast<Surface&>(controls.Find("view"));
  std::shared_ptr<Sheet> sheet;
  int arranged = 0;
};

TEST_F(SurfaceBarsTest, AreThoseThatTheContentWants) {
  struct Row {
    std::int32_t width, height;
    SurfaceBars bars;
  };
  for (const Row& row : {
           Row{100, 100, kNone},
           Row{101, 80, {.horizontal = true}},
           Row{80, 101, {.vertical = true}},
           Row{95, 101, kBoth},  // the first bar leaves too little room for the other direction
           Row{101, 95, kBoth},
           Row{200, 200, kBoth},
       }) {
    for (const SurfaceBars& present : {kNone, kBoth, SurfaceBars{.vertical = true}}) {
      sheet = std::make_shared<Sheet>(row.width, row.height);
      const SurfaceBars bars = Fit(present);
      EXPECT_EQ(sheet->given.back(), AreaBeside(bars)) << "the content knows what it has";
      if (present != kNone) continue;
      EXPECT_EQ(bars, row.bars) << row.width << " x " << row.height;
    }
  }
}

TEST_F(SurfaceBarsTest, OfBeforeGoWhenNobodyWantsThemAnyMore) {
  sheet = std::make_shared<Sheet>(80, 80);
  EXPECT_EQ(Fit(kBoth), kNone);
  EXPECT_THAT(sheet->given, ElementsAre(AreaBeside(kBoth), AreaBeside(kNone)));
}

TEST_F(SurfaceBarsTest, ThatStayChangeNothing) {
  sheet = std::make_shared<Sheet>(200, 200);
  EXPECT_EQ(Fit(kBoth), kBoth);
  EXPECT_EQ(arranged, 1);
}

TEST_F(SurfaceBarsTest, OfAContentThatCannotDecideComeToAnEnd) {
  sheet = std::make_shared<Sheet>(80, 80);
  bool wants = false;
  sheet->wantsHorizontal = [&wants](const SurfaceArea&) { return wants = !wants; };
  EXPECT_EQ(Fit(kNone), (SurfaceBars{.horizontal = true}));
  EXPECT_LE(arranged, 4);
}

TEST_F(SurfaceBarsTest, OfNoContentStayAsTheyAre) {
  EXPECT_EQ(Fit(kBoth), kBoth);
  EXPECT_EQ(arranged, 0);
}

// --- Colours ----------------------------------------------------------------------------------

int LightnessOf(std::uint32_t color) {
  return static_cast<int>(color & 0xFF);  // of a grey
}

TEST(SurfaceColours, PartGroundEdgeAndPageInLightAndDarkThemes) {
  constexpr std::uint32_t kBlack = 0xFF000000;
  constexpr std::uint32_t kWhite = 0xFFFFFFFF;
  struct Row {
    std::uint32_t window, text;
  };
  for (const Row& row : {Row{0xFFEFEFEF, kBlack}, Row{0xFF353535, kWhite}}) {
    const SurfaceColors colors = SurfaceColorsFor(row.window, row.text, 0xFF123456);
    EXPECT_LT(LightnessOf(colors.ground), LightnessOf(row.window));
    EXPECT_GT(255 - LightnessOf(colors.ground), 30);
    EXPECT_GT(std::abs(LightnessOf(colors.edge) - LightnessOf(colors.ground)), 30);
    EXPECT_EQ(colors.highlight, 0xFF123456);
  }
}

TEST(SurfaceColours, MixEachChannelByItself) {
  const SurfaceColors colors = SurfaceColorsFor(0xFFFF8000, 0xFF00FF00, 0);
  EXPECT_EQ(colors.ground, 0xFFDF7000U);
  EXPECT_EQ(colors.edge, 0xFF8CA500U);
}

}  // namespace
}  // namespace pagivo
