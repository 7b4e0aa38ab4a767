#include "dialogs/print_request_form.h"

#include <algorithm>
#include <string>
#include <utility>

#include "values/conversions.h"
#include "values/number_text.h"

namespace pagivo {

namespace {

// A number beyond all others is none.
double CopiesIn(const TextBox& box) {
  double copies = 0;
  IgnoringErrors([&] { copies = LeadingNumber(box.Text()); });
  return copies;
}

// A click selects the whole text too, for it is to be replaced; dragging selects a part.
void SelectWhole(TextBox& box) {
  if (box.SelectionLength() == 0) box.SelectAll();
}

}  // namespace

PrintRequestForm::PrintRequestForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design,
                                   PrintDialogRequest& request, std::int16_t highestCopies)
    : Form(std::move(windows), design), request_(request), highestCopies_(highestCopies) {}

void PrintRequestForm::CreateControls() {
  optAlles().WhenClicked(Attempt([this] { EnableRange(false); }));
  optSelectie().WhenClicked(Attempt([this] { EnableRange(true); }));
  txtAantal().WhenChanged(Attempt([this] { txtAantal_Change(); }));
  vsbAantal().WhenChanged(Attempt([this] { vsbAantal_Change(); }));
  for (TextBox* box : {&txtAantal(), &txtVan(), &txtTm()}) {
    box->WhenFocused(Attempt([box] { box->SelectAll(); }));
    box->WhenClicked(Attempt([box] { SelectWhole(*box); }));
  }
}

void PrintRequestForm::OnShowingFailed() {
  Unload();
}

void PrintRequestForm::EnableRange(bool enabled) {
  for (const std::string_view name : {"lblVan", "txtVan", "lblTm", "txtTm"}) {
    Get(name).PutEnabled(enabled);
  }
}

void PrintRequestForm::ShowCopies(std::int16_t copies) {
  txtAantal().PutText(std::to_string(copies));
  const int shown = std::clamp<int>(copies, 1, highestCopies_);
  vsbAantal().PutValue(static_cast<std::int16_t>(highestCopies_ + 1 - shown));
}

std::int16_t PrintRequestForm::NumberIn(const TextBox& box) {
  return ToInteger(LeadingNumber(box.Text()));
}

void PrintRequestForm::txtAantal_Change() {
  const double copies = CopiesIn(txtAantal());
  if (copies < 1) {
    txtAantal().PutText("1");
    // To be typed over.
    txtAantal().SelectAll();
  } else if (copies > highestCopies_) {
    txtAantal().PutText(std::to_string(highestCopies_));
  }
  vsbAantal().PutValue(ToInteger(highestCopies_ + 1 - CopiesIn(txtAantal())));
}

void PrintRequestForm::vsbAantal_Change() {
  txtAantal().PutText(std::to_string(highestCopies_ + 1 - vsbAantal().Value()));
}

}  // namespace pagivo
