// What the engine's two dialogs share: the paper, its orientation, a message, OK and Annuleren.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "engine/native/setup/engine_changes.h"
#include "engine/print_engine.h"
#include "window/combo_box.h"
#include "window/form.h"
#include "window/option_button.h"

namespace pagivo::native {

// Works on the controls paper, portrait, landscape, message, ok and cancel of the dialog's table.
// Starts from the engine's settings; OK puts those that the user changed, all or none, and closes
// the dialog. What fails while the dialog is shown stands in its message and leaves it open: no
// error leaves a handler.
class PaperForm : public Form {
 public:
  // The dialog was closed by OK.
  bool IsConfirmed() const noexcept { return confirmed_; }

 protected:
  // `engine` outlives the form.
  PaperForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design, PrintEngine& engine);

  void CreateControls() override;
  void OnLoad() override;
  void OnShowingFailed() override { Unload(); }

  // The user chose another paper or turned it; raised while the dialog is loaded, too.
  virtual void OnPaperChosen() {}
  // Says in the message and with the focus what is wrong with the user's entries, if anything is.
  virtual bool EntriesAreValid() { return true; }
  // The changes that the user asked for.
  virtual void AddChanges(EngineChanges& changes);

  PrintEngine& Engine() const noexcept { return engine_; }
  // Lists the papers that the engine's printer takes; the chosen one stays chosen.
  void ListPapers();
  // By the engine's printer.
  bool ChosenPaperIsSupported() const;
  // Twips, as the page is turned.
  Extent ChosenPage();
  // An empty one gives its place to the remark, if there is any.
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

  void AddPaperChange(EngineChanges& changes);
  void AddOrientationChange(EngineChanges& changes);
  std::vector<std::int32_t> PapersToList() const;
  Extent SizeOf(std::int32_t code) const;

  PrintEngine& engine_;
  std::vector<std::int32_t> papers_;  // codes, in the order of the list
  std::int32_t chosenPaper_ = 0;
  std::int32_t enginePaper_ = 0;
  bool engineIsLandscape_ = false;
  Extent enginePage_;  // as it is turned
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
