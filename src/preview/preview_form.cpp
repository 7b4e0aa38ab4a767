#include "preview/preview_form.h"

#include <memory>
#include <string_view>

#include "state/module_state.h"
#include "values/conversions.h"
#include "values/errors_ignored.h"

namespace pagivo {

namespace {

// What a maximised host is larger than its preview, in twips.
constexpr double kSmallerThanHost = 100;

std::shared_ptr<frmAfdrukken>& Instance() {
  // Never destroyed: its windows' toolkit is gone before the process's statics are.
  static auto& instance = *new std::shared_ptr<frmAfdrukken>;
  return instance;
}

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

void PlaceOverMaximisedHost() {
  IgnoringErrors([] { PreviewForm().PutLeft(0); });
  IgnoringErrors([] { PreviewForm().PutTop(0); });
  IgnoringErrors(
      [] { PreviewForm().PutHeight(ToSingle(HostLength("Height") - kSmallerThanHost)); });
  IgnoringErrors([] { PreviewForm().PutWidth(ToSingle(HostLength("Width") - kSmallerThanHost)); });
}

void PlaceOverHost() {
  IgnoringErrors([] { PreviewForm().PutTop(ToSingle(HostLength("Top"))); });
  IgnoringErrors([] { PreviewForm().PutLeft(ToSingle(HostLength("Left"))); });
  IgnoringErrors([] { PreviewForm().PutHeight(ToSingle(HostLength("Height"))); });
  IgnoringErrors([] { PreviewForm().PutWidth(ToSingle(HostLength("Width"))); });
}

}  // namespace

frmAfdrukken& PreviewForm() {
  std::shared_ptr<frmAfdrukken>& instance = Instance();
  if (!instance) instance = std::make_shared<frmAfdrukken>(CurrentPlatform());
  return *instance;
}

void ReleasePreviewForm() {
  Instance().reset();
}

void ToonVoorbeeld() {
  IgnoringErrors([] { PreviewForm().PutWindowState(WindowState::Normal); });
  if (TrueOnError(HostIsMaximised)) {
    PlaceOverMaximisedHost();
  } else {
    PlaceOverHost();
  }
  IgnoringErrors([] { PreviewForm().ShowModal(); });
}

}  // namespace pagivo
