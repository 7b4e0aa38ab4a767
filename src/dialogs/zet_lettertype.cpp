#include "dialogs/zet_lettertype.h"

#include "values/errors.h"

namespace pagivo {

void ZetLettertype(Form& dialog) {
  IgnoringErrors([&] {
    for (const auto& control : dialog.Controls().All()) {
      IgnoringErrors([&] { control->PutFontName("Tahoma"); });
      IgnoringErrors([&] { control->PutFontSize(8); });
    }
  });
}

}  // namespace pagivo
