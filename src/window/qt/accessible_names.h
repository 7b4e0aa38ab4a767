// What screen readers call the controls of a form.
#pragma once

#include "window/qt/form_window.h"

namespace pagivo::qt {

// Gives every control's widget its name: what its design says, its caption, or the label before it
// in the tab order, which is also told to belong to it.
void NameControls(const FormWindow& window);

}  // namespace pagivo::qt
