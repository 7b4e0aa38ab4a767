#include "dialogs/print_request_form.h"

#include <string>
#include <utility>

#include "values/conversions.h"
#include "values/integer_arithmetic.h"

namespace pagivo {

PrintRequestForm::PrintRequestForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design,
                                   std::int16_t highestCopies)
    : Form(std::move(windows), design), highestCopies_(highestCopies) {}

void PrintRequestForm::CreateControls() {
  optAlles().WhenClicked([this] { EnableRange(false); });
  optSelectie().WhenClicked([this] { EnableRange(true); });
  txtAantal().WhenChanged([this] { txtAantal_Change(); });
  vsbAantal().WhenChanged([this] { vsbAantal_Change(); });
  for (TextBox* box : {&txtAantal(), &txtVan(), &txtTm()}) {
    box->WhenFocused([box] { box->SelectAll(); });
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
  vsbAantal().PutValue(CheckedInteger(highestCopies_ + 1 - copies));
}

std::int16_t PrintRequestForm::NumberIn(const TextBox& box) {
  return ToInteger(LeadingNumber(box.Text()));
}

void PrintRequestForm::txtAantal_Change() {
  const double copies = LeadingNumber(txtAantal().Text());
  if (copies < 1) {
    txtAantal().PutText("1");
  } else if (copies > highestCopies_) {
    txtAantal().PutText(std::to_string(highestCopies_));
  }
  vsbAantal().PutValue(ToInteger(highestCopies_ + 1 - LeadingNumber(txtAantal().Text())));
}

void PrintRequestForm::vsbAantal_Change() {
  txtAantal().PutText(std::to_string(highestCopies_ + 1 - vsbAantal().Value()));
}

}  // namespace pagivo
