// The component's windows in Qt 6 Widgets, for a host that links Pagivo::Qt.
#pragma once

#include "pagivo/export.h"
#include "pagivo/object.h"

class QWidget;

namespace pagivo {

// From now on preview and dialogs are Qt windows. Uses the host's QApplication and makes one when
// there is no application object; that one stays until the process ends, and the host's C locale is
// what it was. Closing the windows never quits the application. Raises
// ErrorNumber::InvalidArgument, changing nothing, when there is no display to show windows on and
// when the application object that exists is no QApplication. Calling it again does nothing new.
PAGIVO_EXPORT void UseQtWindows();

// A host window for PgPrint: answers "WindowState", "Top", "Left", "Height" and "Width" (in any
// case; twips, 15 to a logical pixel) of the window that `widget` is or lies in, with its frame.
// Once the widget is gone every member raises ErrorNumber::InvalidArgument.
PAGIVO_EXPORT ObjectRef MakeHostForm(QWidget& widget);

}  // namespace pagivo
