// What the two print dialogs share: the page range and the number of copies.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "values/errors.h"
#include "window/form.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"

namespace pagivo {

// Works on the controls optAlles, optSelectie, lblVan, txtVan, lblTm, txtTm, txtAantal and
// vsbAantal of the dialog's table. The scroll bar holds the copies upside down, highest copies + 1
// - copies, so that its upper arrow raises them. What fails of that which the user does has not
// happened, and the dialog stays open.
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

  // The handler of what the user does.
  template <typename Action>
  static Control::Handler Attempt(Action action) {
    return [action] { IgnoringErrors(action); };
  }

  void EnableRange(bool enabled);
  // As many of them as the scroll bar has values for.
  void ShowCopies(std::int16_t copies);
  // The number that a box's text begins with, rounded; raises Error beyond 16 bits.
  static std::int16_t NumberIn(const TextBox& box);

 private:
  void txtAantal_Change();
  void vsbAantal_Change();

  std::int16_t highestCopies_;
};

}  // namespace pagivo
