// The page setup dialog: the paper, its orientation and the margins, with a picture of the page.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include "engine/native/setup/page_picture.h"
#include "engine/native/setup/paper_form.h"
#include "window/text_box.h"

namespace pagivo::native {

// Margins are shown in millimetres with one decimal. A margin whose box still has what was shown is
// no change, however much the showing rounded it. The picture follows every choice and every entry
// that is a margin.
class PageSetupForm final : public PaperForm {
 public:
  PageSetupForm(std::shared_ptr<WindowSystem> windows, PageSetupOwner& owner);

 private:
  enum Side : std::size_t { LeftSide, RightSide, TopSide, BottomSide };
  static constexpr std::size_t kSides = 4;

  // Millimetres.
  struct MarginEntry {
    double shown = 0;    // when the dialog was loaded
    double entered = 0;  // the last entry that was a margin
  };

  void CreateControls() override;
  void OnLoad() override;
  void OnPaperChosen() override { ShowPicture(); }
  bool EntriesAreValid() override;
  void PutChanges(PageSetup& setup) override;

  TextBox& BoxOf(std::size_t side);
  void margin_Change(std::size_t side);
  bool EntryIsValid(std::size_t side);
  bool LeavesRoom(Side first, Side second, double extent, std::string_view message);
  void Refuse(std::size_t side, std::string message);
  void ShowPicture();

  std::array<MarginEntry, kSides> margins_;
  std::shared_ptr<PagePicture> picture_ = std::make_shared<PagePicture>();
};

}  // namespace pagivo::native
