// The font of the dialogs.
#pragma once

#include "window/form.h"

namespace pagivo {

// Gives every control of the dialog the font "Tahoma", 8 points. Errors are ignored.
void ZetLettertype(Form& dialog);

}  // namespace pagivo
