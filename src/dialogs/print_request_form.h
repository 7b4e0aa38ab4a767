// What the two print dialogs share: the page range and the number of copies.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>

#include "engine/print_engine.h"
#include "state/module_state.h"
#include "values/errors.h"
#include "window/form.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"

namespace pagivo {

// How a dialog reaches the print engine, which belongs to a window above it: the engine of the
// present preview window, which is made when there is none. It is asked anew at every use, so that
// a window discarded meanwhile does no harm.
using EngineSource = std::function<std::shared_ptr<PrintEngine>()>;

// Works on the controls optAlles, optSelectie, lblVan, txtVan, lblTm, txtTm, txtAantal and
// vsbAantal of the dialog's table. The scroll bar holds the copies upside down, highest copies + 1
// - copies, so that its upper arrow raises them. A handler that fails has done nothing, and the
// dialog stays open.
class PrintRequestForm : public Form {
 protected:
  // `request` is read when the dialog is loaded, takes the user's choices and outlives the form.
  PrintRequestForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design,
                   PrintDialogRequest& request, std::int16_t highestCopies);

  void CreateControls() override;
  void OnShowingFailed() override;

  OptionButton& optAlles() { return Get<OptionButton>("optAlles"); }
  OptionButton& optSelectie() { return Get<OptionButton>("optSelectie"); }
  TextBox& txtVan() { return Get<TextBox>("txtVan"); }
  TextBox& txtTm() { return Get<TextBox>("txtTm"); }
  TextBox& txtAantal() { return Get<TextBox>("txtAantal"); }
  ScrollBar& vsbAantal() { return Get<ScrollBar>("vsbAantal"); }

  // Makes the handler of something that the user does.
  template <typename Action>
  static Control::Handler Attempt(Action action) {
    return [action] { IgnoringErrors(action); };
  }

  PrintDialogRequest& Request() const noexcept { return request_; }
  void EnableRange(bool enabled);
  // Shows the number in the box and, as far as its range goes, on the scroll bar.
  void ShowCopies(std::int16_t copies);
  // Answers the number that a box's text begins with, rounded. Raises Error beyond 16 bits.
  static std::int16_t NumberIn(const TextBox& box);

 private:
  void txtAantal_Change();
  void vsbAantal_Change();

  PrintDialogRequest& request_;
  std::int16_t highestCopies_;
};

}  // namespace pagivo
