// The component's windows in Qt 6 Widgets, for a host that links Pagivo::Qt.
#pragma once

#include "pagivo/export.h"
#include "pagivo/object.h"

class QWidget;

namespace pagivo {

// From their next showing on preview and dialogs are Qt windows. Uses the host's QApplication and
// makes one when there is no application object; that one stays until the process ends, and the
// host's C locale is what it was. Closing the windows never quits the application. Raises, changing
// nothing, ErrorNumber::InvalidArgument when there is no display to show windows on and when the
// application object that exists is no QApplication, and ErrorNumber::FileAccess when there are no
// fonts to show a document in. Calling it again does nothing new.
PAGIVO_EXPORT void UseQtWindows();

// A host window for PgPrint: answers "WindowState", "Top", "Left", "Height" and "Width" (in any
// case; twips, 15 to a logical pixel) of the window that `widget` is or lies in, with its frame: of
// a window that has only just been shown once it is on the screen, for which events are handled.
// Once the widget is gone every member raises ErrorNumber::InvalidArgument.
PAGIVO_EXPORT ObjectRef MakeHostForm(QWidget& widget);

}  // namespace pagivo
