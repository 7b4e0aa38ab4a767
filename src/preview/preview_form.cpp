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

// A plain pointer, so that it is never destroyed: the windows' toolkit is gone before the process's
// statics are.
constinit std::shared_ptr<frmAfdrukken>* previewForm = nullptr;

// What a maximised host is larger than its preview, in twips.
constexpr double kSmallerThanHost = 100;

// The copy holds it while it answers, for it may make the host remember another window.
Variant HostMember(const ObjectRef& hostForm, std::string_view name) {
  const ObjectRef host = hostForm;  // NOLINT(performance-unnecessary-copy-initialization)
  if (!host) throw Error(ErrorNumber::InvalidArgument, "Er is geen venster van het hoofdprogramma");
  return host->GetMember(name);
}

double HostLength(const ObjectRef& hostForm, std::string_view name) {
  return ToDouble(HostMember(hostForm, name));
}

bool IsMaximised(const ObjectRef& hostForm) {
  const Variant state = HostMember(hostForm, "WindowState");
  return !state.IsNull() && ToDouble(state) == static_cast<double>(WindowState::Maximised);
}

// The host answers before the window is reached: it may do anything meanwhile, and discard the
// window that it is asked for.
void PlaceAsHost(const ObjectRef& hostForm, void (frmAfdrukken::*put)(float),
                 std::string_view member) {
  IgnoringErrors([&] {
    const float length = ToSingle(HostLength(hostForm, member));
    (PreviewForm().*put)(length);
  });
}

// A host that hides its state counts as maximised; one that tells no size either is no window to
// lie over, and the preview stays where it is.
void PlaceOverMaximisedHost(const ObjectRef& hostForm) {
  std::optional<float> height;
  std::optional<float> width;
  IgnoringErrors([&] { height = ToSingle(HostLength(hostForm, "Height") - kSmallerThanHost); });
  IgnoringErrors([&] { width = ToSingle(HostLength(hostForm, "Width") - kSmallerThanHost); });
  if (!height && !width) return;
  IgnoringErrors([] { PreviewForm().PutLeft(0); });
  IgnoringErrors([] { PreviewForm().PutTop(0); });
  if (height) IgnoringErrors([&] { PreviewForm().PutHeight(*height); });
  if (width) IgnoringErrors([&] { PreviewForm().PutWidth(*width); });
}

void PlaceOverHost(const ObjectRef& hostForm) {
  PlaceAsHost(hostForm, &frmAfdrukken::PutTop, "Top");
  PlaceAsHost(hostForm, &frmAfdrukken::PutLeft, "Left");
  PlaceAsHost(hostForm, &frmAfdrukken::PutHeight, "Height");
  PlaceAsHost(hostForm, &frmAfdrukken::PutWidth, "Width");
}

}  // namespace

constinit PrintEngine* reachedEngine = nullptr;

frmAfdrukken& PreviewForm() {
  if (previewForm == nullptr) {
    previewForm = new std::shared_ptr<frmAfdrukken>(
        std::make_shared<frmAfdrukken>(CurrentPlatform(), State()));
  }
  return **previewForm;
}

std::shared_ptr<PrintEngine> PreviewEngine() {
  return PreviewForm().vsPrint();
}

PrintEngine& ReachEngine() {
  PrintEngine& engine = *PreviewForm().vsPrint();
  reachedEngine = &engine;
  return engine;
}

void ReleasePreviewForm() {
  reachedEngine = nullptr;
  delete std::exchange(previewForm, nullptr);
}

void ToonVoorbeeld(const ObjectRef& hostForm) {
  // A host may have come by its windows since the preview was made.
  IgnoringErrors([] { PreviewForm().UseWindows(CurrentPlatform().windows); });
  IgnoringErrors([] { PreviewForm().PutWindowState(WindowState::Normal); });
  if (TrueOnError([&] { return IsMaximised(hostForm); })) {
    PlaceOverMaximisedHost(hostForm);
  } else {
    PlaceOverHost(hostForm);
  }
  IgnoringErrors([] { PreviewForm().ShowModal(); });
}

}  // namespace pagivo
