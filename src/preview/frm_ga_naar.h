// The go-to-page dialog of the preview.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/platform.h"
#include "state/module_state.h"
#include "window/combo_box.h"
#include "window/form.h"

namespace pagivo {

// Lists the contents table and leaves the page that the user asks for in `result`, 0 for none;
// closing it by its close box leaves the 0 of its load. A dialog whose handler fails is unloaded.
class frmGaNaar : public Form {
 public:
  // `contents` and `result` outlive the form.
  frmGaNaar(const Platform& platform, const ContentsTable& contents, std::int16_t& result);

  // Opens with that text in its box, to be typed on.
  void BeginWith(std::string_view text) { cboGaNaar().PutText(text); }

 private:
  void CreateControls() override;
  void OnLoad() override;
  void OnUnload() override;
  void OnShowingFailed() override;

  void cmdOK_Click();
  void cmdAnnuleren_Click();

  ComboBox& cboGaNaar() { return Get<ComboBox>("cboGaNaar"); }
  void PlaceButtons();

  const ContentsTable& contents_;
  std::int16_t& result_;
};

// Answers the shared instance, which is created on first use and released when the dialog unloads.
frmGaNaar& GoToDialog(const ContentsTable& contents, std::int16_t& result);

}  // namespace pagivo
