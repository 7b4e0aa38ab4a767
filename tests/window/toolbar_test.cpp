#include "window/toolbar.h"

#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "window/control_set.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<MenuItem, 3> kMenu{{
    {.text = "&Groot", .key = "Groot"},
    {.text = "-", .key = "Streep"},
    {.text = "&Verborgen", .key = "Verborgen", .visible = false},
}};

constexpr std::array<ToolbarButton, 6> kButtons{{
    {.key = "Open", .toolTip = "Openen"},
    {.key = "Streep1", .style = ToolbarButton::Style::Separator},
    {.key = "Dicht", .enabled = false},
    {.key = "Vak", .style = ToolbarButton::Style::Placeholder, .width = 600},
    {.key = "Zoom", .style = ToolbarButton::Style::DropDown, .menu = kMenu},
    {.key = "Laatste"},
}};

constexpr std::array<ControlDesign, 1> kControls{{
    {.name = "tbProef", .kind = ControlKind::Toolbar, .buttons = kButtons},
}};

class CountingPeer : public ControlPeer {
 public:
  explicit CountingPeer(int& refreshes) : refreshes_(refreshes) {}
  void Update() override { ++refreshes_; }
  void Focus() override {}

 private:
  int& refreshes_;
};

class ToolbarButtons : public ::testing::Test {
 protected:
  ToolbarButtons() {
    toolbar.WhenButtonClicked([this](std::string_view key) { clicks.emplace_back(key); });
    toolbar.WhenMenuClicked([this](std::string_view key) { menuClicks.emplace_back(key); });
  }

  ControlSet controls{kControls};
  Toolbar& toolbar = dynamic_cast<Toolbar&>(controls.Find("tbProef"));
  std::vector<std::string> clicks;
  std::vector<std::string> menuClicks;
};

TEST_F(ToolbarButtons, AreThoseOfTheDesign) {
  ASSERT_EQ(toolbar.Buttons().size(), kButtons.size());
  EXPECT_EQ(toolbar.Buttons()[0].toolTip, "Openen");
  EXPECT_EQ(toolbar.Buttons()[1].style, ToolbarButton::Style::Separator);
  EXPECT_TRUE(toolbar.Buttons()[2].visible);
  EXPECT_FALSE(toolbar.Buttons()[2].enabled);
}

TEST_F(ToolbarButtons, AreFoundByTheirExactKey) {
  toolbar.Button("Dicht").visible = false;
  EXPECT_FALSE(toolbar.Buttons()[2].visible);
  EXPECT_THROW(toolbar.Button("dicht"), Error);
}

TEST_F(ToolbarButtons, AKeyThatNoButtonHasIsNamed) {
  try {
    toolbar.Button("Zoek");
    FAIL() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "De werkbalk heeft geen knop \"Zoek\"");
  }
}

TEST_F(ToolbarButtons, ShowTheirChangesAtARefresh) {
  int refreshes = 0;
  toolbar.Refresh();
  toolbar.Attach(std::make_unique<CountingPeer>(refreshes));
  toolbar.Button("Open").visible = false;
  EXPECT_EQ(refreshes, 0);
  toolbar.Refresh();
  EXPECT_EQ(refreshes, 1);
}

TEST_F(ToolbarButtons, StandInARow) {
  EXPECT_EQ(toolbar.LeftOf("Open"), 0);
  EXPECT_EQ(toolbar.LeftOf("Streep1"), 330);
  EXPECT_EQ(toolbar.LeftOf("Dicht"), 420);
  EXPECT_EQ(toolbar.LeftOf("Vak"), 750);
  EXPECT_EQ(toolbar.LeftOf("Zoom"), 1350);
  EXPECT_EQ(toolbar.LeftOf("Laatste"), 1875);
  EXPECT_THROW(toolbar.LeftOf("Zoek"), Error);
}

TEST_F(ToolbarButtons, AreAsWideAsTheirStyleAsks) {
  float left = 0;
  for (const ToolbarButton& button : toolbar.Buttons()) {
    EXPECT_EQ(toolbar.LeftOf(button), left) << button.key;
    left += Toolbar::WidthOf(button);
  }
}

TEST_F(ToolbarButtons, CloseTheGapOfAHiddenOne) {
  toolbar.Button("Open").visible = false;
  EXPECT_EQ(toolbar.LeftOf("Dicht"), 90);
}

TEST_F(ToolbarButtons, RaiseTheClickWithTheirKey) {
  toolbar.ClickButton("Open");
  toolbar.ClickButton("Zoom");
  EXPECT_THAT(clicks, ElementsAre("Open", "Zoom"));
}

TEST_F(ToolbarButtons, RaiseNothingWhenHiddenDisabledOrSeparating) {
  toolbar.Button("Laatste").visible = false;
  for (const auto* key : {"Dicht", "Laatste", "Streep1"}) toolbar.ClickButton(key);
  EXPECT_THAT(clicks, IsEmpty());
  EXPECT_THROW(toolbar.ClickButton("Zoek"), Error);
}

TEST_F(ToolbarButtons, RaiseTheMenuClickWithTheEntrysKey) {
  toolbar.ClickMenu("Groot");
  EXPECT_THAT(menuClicks, ElementsAre("Groot"));
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ToolbarButtons, HaveNoClickOnAHiddenEntryOrALine) {
  toolbar.ClickMenu("Streep");
  toolbar.ClickMenu("Verborgen");
  EXPECT_THAT(menuClicks, IsEmpty());
  EXPECT_THROW(toolbar.ClickMenu("Zoek"), Error);
}

TEST_F(ToolbarButtons, WithoutAHandlerClicksAreLost) {
  toolbar.WhenButtonClicked({});
  toolbar.ClickButton("Open");
  EXPECT_THAT(clicks, IsEmpty());
}

}  // namespace
}  // namespace pagivo
