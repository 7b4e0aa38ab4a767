// The font of the dialogs.
#pragma once

#include "values/errors.h"
#include "window/form.h"

namespace pagivo {

// Gives every control of the dialog the font "Tahoma", 8 points. Errors are ignored.
inline void ZetLettertype(Form& dialog) {
  IgnoringErrors([&] {
    for (const auto& control : dialog.Controls().All()) {
      IgnoringErrors([&] { control->PutFontName("Tahoma"); });
      IgnoringErrors([&] { control->PutFontSize(8); });
    }
  });
}

}  // namespace pagivo
