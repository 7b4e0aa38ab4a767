// Whether the widgets on the screen show what the controls of a form say.
#pragma once

#include <QWidget>

#include "window/form.h"

namespace pagivo::testing {

// Compares every control with the widget of its name: rectangle in logical pixels (each edge at its
// nearest one), font, enabling, visibility and what its kind has beside that; and the focus.
void ExpectShown(Form& form, const QWidget& window);

}  // namespace pagivo::testing
