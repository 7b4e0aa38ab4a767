// What the two setup dialogs share: the paper, its orientation, a message, OK and Annuleren, as
// rows of their control tables and as the form that works on them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/native/settings/page_setup.h"
#include "engine/native/spool/media.h"
#include "window/combo_box.h"
#include "window/form.h"
#include "window/option_button.h"

namespace pagivo::native {

// Twips. Frames lie this far from the window's edges and from each other.
inline constexpr float kDialogGap = 120;
inline constexpr float kDialogWidth = 6612;
inline constexpr float kFrameWidth = kDialogWidth - 2 * kDialogGap;

// Two rows in a frame: a label in the left column, what it is for in the right one, over the width
// that is left. Tops allow for labels that are less high than boxes.
inline constexpr float kFrameOfTwoRows = 1212;
inline constexpr float kLabelColumn = 120;
inline constexpr float kLabelWidth = 1020;
inline constexpr float kValueColumn = 1200;
inline constexpr float kValueWidth = kFrameWidth - kValueColumn - kDialogGap;
inline constexpr float kFirstRow = 390;
inline constexpr float kSecondRow = 810;
inline constexpr float kBesideComboBox = 60;
inline constexpr float kBesideTextBox = 45;
inline constexpr float kBesideOption = 30;

// The paper and its orientation, in a frame at `top`.
constexpr auto PaperControls(float top) {
  return std::array<ControlDesign, 6>{{
      {.name = "paperFrame",
       .kind = ControlKind::Frame,
       .caption = "Papier",
       .placement = {kDialogGap, top, kFrameWidth, kFrameOfTwoRows}},
      {.name = "paperLabel",
       .kind = ControlKind::Label,
       .caption = "&Formaat:",
       .placement = {kLabelColumn, kFirstRow + kBesideComboBox, kLabelWidth, 252},
       .container = "paperFrame"},
      {.name = "paper",
       .kind = ControlKind::ComboBox,
       .placement = {kValueColumn, kFirstRow, kValueWidth, 315},
       .container = "paperFrame"},
      {.name = "orientationLabel",
       .kind = ControlKind::Label,
       .caption = "Afdrukstand:",
       .placement = {kLabelColumn, kSecondRow + kBesideOption, kLabelWidth, 252},
       .container = "paperFrame"},
      {.name = "portrait",
       .kind = ControlKind::OptionButton,
       .caption = "&Staand",
       .placement = {kValueColumn, kSecondRow, 1332, 252},
       .container = "paperFrame"},
      {.name = "landscape",
       .kind = ControlKind::OptionButton,
       .caption = "&Liggend",
       .placement = {2640, kSecondRow, 1332, 252},
       .container = "paperFrame"},
  }};
}

inline constexpr float kClosingHeight = 600 + kDialogGap;

// The message and the buttons, at the foot of the window from `top` on.
constexpr auto ClosingControls(float top) {
  return std::array<ControlDesign, 3>{{
      {.name = "message", .kind = ControlKind::Label, .placement = {kDialogGap, top, 3732, 600}},
      {.name = "ok",
       .kind = ControlKind::Button,
       .caption = "OK",
       .placement = {4017, top + 270, 1200, 330},
       .role = ButtonRole::Default},
      {.name = "cancel",
       .kind = ControlKind::Button,
       .caption = "Annuleren",
       .placement = {5292, top + 270, 1200, 330},
       .role = ButtonRole::Cancel},
  }};
}

// One table of several parts. The tab order is that of the rows; surfaces, which only show
// something here, take no part in it.
template <std::size_t... Counts>
constexpr auto JoinControls(const std::array<ControlDesign, Counts>&... parts) {
  std::array<ControlDesign, (Counts + ...)> table{};
  auto end = table.begin();
  ((end = std::ranges::copy(parts, end).out), ...);
  std::int16_t tabIndex = 0;
  for (ControlDesign& control : table) {
    if (control.kind != ControlKind::Surface) control.tabIndex = tabIndex++;
  }
  return table;
}

// Works on the controls paper, portrait, landscape, message, ok and cancel of the dialog's table.
// Starts from the page setup in force; OK applies what the user changed, all or nothing, and closes
// the dialog. What fails while the dialog is shown stands in its message and leaves it open: no
// error leaves a handler.
class PaperForm : public Form {
 public:
  // The dialog was closed by OK.
  bool IsConfirmed() const noexcept { return confirmed_; }

 protected:
  // `owner` outlives the form.
  PaperForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design, PageSetupOwner& owner);

  void CreateControls() override;
  void OnLoad() override;
  void OnShowingFailed() override { Unload(); }

  // The user chose another paper or turned it; raised while the dialog is loaded, too.
  virtual void OnPaperChosen() {}
  // Says in the message and with the focus what is wrong with the user's entries, if anything is.
  virtual bool EntriesAreValid() { return true; }
  // Puts what the user changed, and nothing else, into `setup`: the host may have changed the rest
  // while the dialog was shown.
  virtual void PutChanges(PageSetup& setup);

  PageSetupOwner& Owner() const noexcept { return owner_; }
  // The setup in force when the dialog was loaded.
  const PageSetup& Before() const noexcept { return before_; }
  // Lists the papers that a printer with that media takes; the chosen one stays chosen.
  void ListPapers(PrinterMedia media);
  // By the printer whose papers are listed.
  bool ChosenPaperIsSupported() const { return SupportsPaper(media_, chosenPaper_); }
  // Twips, as the page is turned.
  Extent ChosenPage();
  // An empty message gives its place to the remark, if there is any.
  void ShowMessage(std::string message);
  void PutRemark(std::string remark) { remark_ = std::move(remark); }
  // Runs what the user caused, with no message before it and its failure as the message after it.
  template <typename Action>
  void Attempt(Action action);

 private:
  ComboBox& paper() { return Get<ComboBox>("paper"); }
  OptionButton& landscape() { return Get<OptionButton>("landscape"); }

  void paper_Click();
  void ok_Click();

  std::vector<std::int32_t> PapersToList() const;
  Extent SizeOf(std::int32_t code) const;

  PageSetupOwner& owner_;
  PageSetup before_;
  PrinterMedia media_;
  std::vector<std::int32_t> papers_;  // codes, in the order of the list
  std::int32_t chosenPaper_ = 0;
  bool confirmed_ = false;
  std::string remark_;
};

template <typename Action>
void PaperForm::Attempt(Action action) {
  try {
    ShowMessage({});
    action();
  } catch (const std::exception& failure) {
    ShowMessage(failure.what());
  }
}

}  // namespace pagivo::native
