// The one preview window of the process.
#pragma once

#include <memory>

#include "preview/frm_afdrukken.h"

namespace pagivo {

// What PreviewForm() refers to, or null when there is none. Only PreviewForm() reads it.
extern std::shared_ptr<frmAfdrukken>* previewForm;
frmAfdrukken& CreatePreviewForm();

// When there is no window yet, one is created on the platform in use, but not loaded.
inline frmAfdrukken& PreviewForm() {
  return previewForm == nullptr ? CreatePreviewForm() : **previewForm;
}

// The engine of that window, which is created and loaded if need be.
std::shared_ptr<PrintEngine> PreviewEngine();

// Forgets the window, so that the next use creates a new one.
void ReleasePreviewForm();

// Places the preview window over the host's and shows it modally. `hostForm` is the host's
// variable: it is read anew for each member, because the host may put another window there. Errors
// are ignored.
void ToonVoorbeeld(const ObjectRef& hostForm);

}  // namespace pagivo
