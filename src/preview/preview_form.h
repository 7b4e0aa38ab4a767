// The one preview window of the process.
#pragma once

#include <memory>

#include "preview/frm_afdrukken.h"

namespace pagivo {

// When there is no window yet, one is created on the platform in use, but not loaded.
frmAfdrukken& PreviewForm();

// The engine of that window, which is created and loaded if need be.
std::shared_ptr<PrintEngine> PreviewEngine();

// The same engine once Engine() has reached it, until the window is unloaded or forgotten: every
// statement of a document asks for it. Only Engine() reads it.
extern PrintEngine* reachedEngine;
PrintEngine& ReachEngine();

inline PrintEngine& Engine() {
  return reachedEngine == nullptr ? ReachEngine() : *reachedEngine;
}

// Forgets the window, so that the next use creates a new one.
void ReleasePreviewForm();

// Places the preview window over the host's and shows it modally. `hostForm` is the host's
// variable: it is read anew for each member, because the host may put another window there. Errors
// are ignored.
void ToonVoorbeeld(const ObjectRef& hostForm);

}  // namespace pagivo
