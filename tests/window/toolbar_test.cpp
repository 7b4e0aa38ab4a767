#include "window/toolbar.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "pagivo/error.h"

namespace pagivo {
namespace {

constexpr std::array<ToolbarButton, 3> kButtons{{
    {.key = "Open", .toolTip = "Openen"},
    {.key = "", .style = ToolbarButton::Style::Separator},
    {.key = "Dicht", .enabled = false},
}};

class CountingPeer : public ToolbarPeer {
 public:
  explicit CountingPeer(int& refreshes) : refreshes_(refreshes) {}
  void Refresh() override { ++refreshes_; }

 private:
  int& refreshes_;
};

TEST(Toolbar, HoldsItsButtonsAsDesigned) {
  const Toolbar toolbar(kButtons);
  ASSERT_EQ(toolbar.Buttons().size(), 3U);
  EXPECT_EQ(toolbar.Buttons()[0].toolTip, "Openen");
  EXPECT_EQ(toolbar.Buttons()[1].style, ToolbarButton::Style::Separator);
  EXPECT_TRUE(toolbar.Buttons()[2].visible);
  EXPECT_FALSE(toolbar.Buttons()[2].enabled);
}

TEST(Toolbar, FindsAButtonByItsExactKey) {
  Toolbar toolbar(kButtons);
  toolbar.Button("Dicht").visible = false;
  EXPECT_FALSE(toolbar.Buttons()[2].visible);
  EXPECT_THROW(toolbar.Button("dicht"), Error);
}

TEST(Toolbar, NamesTheKeyThatNoButtonHas) {
  Toolbar toolbar(kButtons);
  try {
    toolbar.Button("Zoek");
    FAIL() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "De werkbalk heeft geen knop \"Zoek\"");
  }
}

TEST(Toolbar, ShowsItsButtonsAtARefresh) {
  int refreshes = 0;
  Toolbar toolbar(kButtons);
  toolbar.Refresh();
  toolbar.Attach(std::make_unique<CountingPeer>(refreshes));
  toolbar.Refresh();
  EXPECT_EQ(refreshes, 1);
}

}  // namespace
}  // namespace pagivo
