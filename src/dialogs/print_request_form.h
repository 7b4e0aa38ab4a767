// What the two print dialogs share: the page range and the number of copies.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "window/form.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"

namespace pagivo {

// Works on the controls optAlles, optSelectie, lblVan, txtVan, lblTm, txtTm, txtAantal and
// vsbAantal of the dialog's table. The scroll bar holds the copies upside down, highest copies + 1
// - copies, so that its upper arrow raises them. A dialog whose handler fails is unloaded, so that
// none stays behind.
class PrintRequestForm : public Form {
 protected:
  PrintRequestForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design,
                   std::int16_t highestCopies);

  void CreateControls() override;
  void OnShowingFailed() override;

  OptionButton& optAlles() { return Get<OptionButton>("optAlles"); }
  OptionButton& optSelectie() { return Get<OptionButton>("optSelectie"); }
  TextBox& txtVan() { return Get<TextBox>("txtVan"); }
  TextBox& txtTm() { return Get<TextBox>("txtTm"); }
  TextBox& txtAantal() { return Get<TextBox>("txtAantal"); }
  ScrollBar& vsbAantal() { return Get<ScrollBar>("vsbAantal"); }

  void EnableRange(bool enabled);
  // Raises Error when the scroll bar has no value for so many copies.
  void ShowCopies(std::int16_t copies);
  // The number that a box's text begins with, rounded; raises Error beyond 16 bits.
  static std::int16_t NumberIn(const TextBox& box);

 private:
  void txtAantal_Change();
  void vsbAantal_Change();

  std::int16_t highestCopies_;
};

}  // namespace pagivo
