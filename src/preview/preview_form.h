// The one preview window of the process.
#pragma once

#include <memory>

#include "preview/frm_afdrukken.h"

namespace pagivo {

// What PreviewForm() refers to; null: there is none. For PreviewForm() alone.
extern std::shared_ptr<frmAfdrukken>* previewForm;
frmAfdrukken& CreatePreviewForm();

// Created, not loaded, on the platform in use when there is none.
inline frmAfdrukken& PreviewForm() {
  return previewForm == nullptr ? CreatePreviewForm() : **previewForm;
}

// The engine of that window, which is created and loaded if need be.
std::shared_ptr<PrintEngine> PreviewEngine();

// Sets the reference to none: the next use creates a new window.
void ReleasePreviewForm();

// Places the preview window over the host's and shows it modally. Errors are ignored.
void ToonVoorbeeld();

}  // namespace pagivo
