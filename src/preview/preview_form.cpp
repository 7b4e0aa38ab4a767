#include "preview/preview_form.h"

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "state/module_state.h"
#include "values/conversions.h"
#include "values/errors.h"

namespace pagivo {

namespace {

// What a maximised host is larger than its preview, in twips.
constexpr double kSmallerThanHost = 100;

Variant HostMember(std::string_view name) {
  const ObjectRef host = State().HostForm;
  if (!host) throw Error(ErrorNumber::InvalidArgument, "Er is geen venster van het hoofdprogramma");
  return host->GetMember(name);
}

double HostLength(std::string_view name) {
  return ToDouble(HostMember(name));
}

bool HostIsMaximised() {
  const Variant state = HostMember("WindowState");
  return !state.IsNull() && ToDouble(state) == static_cast<double>(WindowState::Maximised);
}

// The host answers before the window is reached: it may do anything meanwhile, and discard the
// window that it is asked for.
void PlaceAsHost(void (frmAfdrukken::*put)(float), std::string_view member) {
  IgnoringErrors([&] {
    const float length = ToSingle(HostLength(member));
    (PreviewForm().*put)(length);
  });
}

// A host that hides its state counts as maximised; one that tells no size either is no window to
// lie over, and the preview stays where it is.
void PlaceOverMaximisedHost() {
  std::optional<float> height;
  std::optional<float> width;
  IgnoringErrors([&] { height = ToSingle(HostLength("Height") - kSmallerThanHost); });
  IgnoringErrors([&] { width = ToSingle(HostLength("Width") - kSmallerThanHost); });
  if (!height && !width) return;
  IgnoringErrors([] { PreviewForm().PutLeft(0); });
  IgnoringErrors([] { PreviewForm().PutTop(0); });
  if (height) IgnoringErrors([&] { PreviewForm().PutHeight(*height); });
  if (width) IgnoringErrors([&] { PreviewForm().PutWidth(*width); });
}

void PlaceOverHost() {
  PlaceAsHost(&frmAfdrukken::PutTop, "Top");
  PlaceAsHost(&frmAfdrukken::PutLeft, "Left");
  PlaceAsHost(&frmAfdrukken::PutHeight, "Height");
  PlaceAsHost(&frmAfdrukken::PutWidth, "Width");
}

}  // namespace

// A plain pointer, so that it is never destroyed: the windows' toolkit is gone before the process's
// statics are.
constinit std::shared_ptr<frmAfdrukken>* previewForm = nullptr;

frmAfdrukken& CreatePreviewForm() {
  previewForm =
      new std::shared_ptr<frmAfdrukken>(std::make_shared<frmAfdrukken>(CurrentPlatform()));
  return **previewForm;
}

std::shared_ptr<PrintEngine> PreviewEngine() {
  return PreviewForm().vsPrint();
}

void ReleasePreviewForm() {
  delete std::exchange(previewForm, nullptr);
}

void ToonVoorbeeld() {
  // A host may have come by its windows since the preview was made.
  IgnoringErrors([] { PreviewForm().UseWindows(CurrentPlatform().windows); });
  IgnoringErrors([] { PreviewForm().PutWindowState(WindowState::Normal); });
  if (TrueOnError(HostIsMaximised)) {
    PlaceOverMaximisedHost();
  } else {
    PlaceOverHost();
  }
  IgnoringErrors([] { PreviewForm().ShowModal(); });
}

}  // namespace pagivo
