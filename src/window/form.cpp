#include "window/form.h"

#include <algorithm>
#include <utility>

#include "pagivo/error.h"
#include "window/key_codes.h"
#include "window/toolbar.h"

namespace pagivo {

namespace {

// Where a length begins that lies in the middle of another one, but within the screen as far as it
// fits, and rather with its beginning than with its end.
float Centred(float length, float from, float extent, float screenFrom, float screenExtent) {
  const float middle = from + (extent - length) / 2;
  return std::max(std::min(middle, screenFrom + screenExtent - length), screenFrom);
}

void ClickIfReachable(Control& button) {
  if (button.IsReachable()) button.Click();
}

// The control that Enter presses; null when there is none.
Control* EnterButton(const ControlSet& controls) {
  Control* focused = controls.Focused();
  if (focused != nullptr && focused->Kind() == ControlKind::Button) return focused;
  return controls.ButtonWith(ButtonRole::Default);
}

// The button that a key presses; null when there is none.
Control* ButtonFor(std::int16_t keyCode, const ControlSet& controls) {
  switch (keyCode) {
    case kKeyEnter:
      return EnterButton(controls);
    case kKeyEscape:
      return controls.ButtonWith(ButtonRole::Cancel);
    default:
      return nullptr;
  }
}

bool IsPressedByItsAccessKey(const Control& control) {
  return control.Kind() == ControlKind::Button || control.Kind() == ControlKind::OptionButton;
}

}  // namespace

Form::Form(std::shared_ptr<WindowSystem> windows, const FormDesign& design)
    : windows_(std::move(windows)), design_(design) {
  TakeDesign({});
}

FormPeer::~FormPeer() = default;

WindowSystem::~WindowSystem() = default;

Form::~Form() = default;

void Form::LoadNow() {
  const auto self = shared_from_this();
  // Set first: handlers reach controls, which would load the form again.
  loaded_ = true;
  try {
    peer_ = windows_->MakeFormPeer(*this);
    TakeDesign(peer_->FrameExtent());
    MakeControls();
    CreateControls();
    OnLoad();
    if (!loaded_) {
      throw Error(ErrorNumber::InvalidArgument,
                  "Het venster \"" + caption_ + "\" is tijdens het laden gesloten");
    }
    peer_->Update();
  } catch (...) {
    if (loaded_) Discard();
    throw;
  }
}

void Form::ShowModal() {
  Show(&FormPeer::ShowModal);
}

void Form::Open() {
  Show(&FormPeer::Open);
}

void Form::HandleEvents() {
  if (!visible_) return;
  const auto self = shared_from_this();
  PassOnFailure([this] { std::shared_ptr(peer_)->HandleEvents(); });
}

void Form::AwaitHiding() {
  if (!visible_) return;
  const auto self = shared_from_this();
  PassOnFailure([this] { std::shared_ptr(peer_)->Await(); });
}

void Form::Show(void (FormPeer::*showing)()) {
  const auto self = shared_from_this();
  Load();
  if (visible_) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het venster \"" + caption_ + "\" is al zichtbaar en kan niet nog eens open");
  }
  visible_ = true;
  PassOnFailure([&] { ShowBy(showing); });
}

template <typename Step>
void Form::PassOnFailure(Step step) {
  try {
    step();
  } catch (...) {
    Hide();
    OnShowingFailed();
    throw;
  }
}

void Form::ShowBy(void (FormPeer::*showing)()) {
  // Held on its own: the form gives it up when it is unloaded during the showing.
  const std::shared_ptr<FormPeer> peer = peer_;
  if (Toolbar* toolbar = controls_->ToolbarWithKeyboard()) toolbar->GiveKeyboardBack();
  if (!std::exchange(displayed_, true)) OnResize();
  if (visible_ && controls_->Focused() == nullptr) MoveFocus(false);
  if (visible_) (peer.get()->*showing)();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  peer_->Hide();
}

void Form::Unload(UnloadMode mode) {
  if (!loaded_) return;
  const auto self = shared_from_this();
  bool cancel = false;
  OnQueryUnload(cancel, mode);
  // The handler may have unloaded the form itself.
  if (cancel || !loaded_) return;
  Discard();
}

void Form::PutCaption(std::string caption) {
  Put(&Form::caption_, std::move(caption));
}

void Form::PutWindowState(WindowState state) {
  Put(&Form::windowState_, state);
  if (state != WindowState::Normal || visible_ || !normal_) return;
  const Placement normal = *std::exchange(normal_, std::nullopt);
  left_ = normal.left;
  top_ = normal.top;
  PutSize({.width = normal.width, .height = normal.height});
}

void Form::PutLeft(float left) {
  Load();
  placed_ = true;
  Put(&Form::left_, left);
}

void Form::PutTop(float top) {
  Load();
  placed_ = true;
  Put(&Form::top_, top);
}

void Form::PutWidth(float width) {
  Load();
  PutSize({.width = width, .height = height_});
}

void Form::PutHeight(float height) {
  Load();
  PutSize({.width = width_, .height = height});
}

void Form::PutSize(const Extent& size) {
  Load();
  if (size.width == width_ && size.height == height_) return;
  const auto self = shared_from_this();
  width_ = size.width;
  height_ = size.height;
  peer_->Update();
  OnResize();
}

Placement Form::PlacementOver(const Placement& below, const Placement& screen) const noexcept {
  if (placed_ || design_.sizable) return {left_, top_, width_, height_};
  return {.left = Centred(width_, below.left, below.width, screen.left, screen.width),
          .top = Centred(height_, below.top, below.height, screen.top, screen.height),
          .width = width_,
          .height = height_};
}

void Form::TakePlacement(const Placement& window, const Extent& frame, WindowState state) {
  if (!loaded_) return;
  const auto self = shared_from_this();
  const Extent client{.width = ClientWidth(), .height = ClientHeight()};
  RememberNormal(state);
  left_ = window.left;
  top_ = window.top;
  width_ = window.width;
  height_ = window.height;
  frame_ = frame;
  windowState_ = state;
  if (ClientWidth() != client.width || ClientHeight() != client.height) OnResize();
}

// The present placement and state are those before the change to `next`.
void Form::RememberNormal(WindowState next) {
  if (next == WindowState::Normal) {
    normal_.reset();
  } else if (windowState_ == WindowState::Normal) {
    normal_ = {.left = left_, .top = top_, .width = width_, .height = height_};
  }
  if (next == WindowState::Minimised && windowState_ != next) beforeMinimising_ = windowState_;
}

void Form::ComeBack() {
  if (visible_ && windowState_ == WindowState::Minimised) PutWindowState(beforeMinimising_);
}

void Form::UseWindows(std::shared_ptr<WindowSystem> windows) {
  if (visible_ || windows == windows_) return;
  const std::shared_ptr<WindowSystem> before = std::exchange(windows_, std::move(windows));
  if (!loaded_) return;
  try {
    ChangePeers();
  } catch (...) {
    windows_ = before;
    throw;
  }
}

// The client area keeps its size. The peers that go refer to their window, which goes last.
void Form::ChangePeers() {
  const std::shared_ptr<FormPeer> next = windows_->MakeFormPeer(*this);
  const std::shared_ptr<FormPeer> before = std::exchange(peer_, next);
  const Extent frame = peer_->FrameExtent();
  width_ += frame.width - frame_.width;
  height_ += frame.height - frame_.height;
  frame_ = frame;
  MakeControlPeers();
  peer_->Update();
}

ControlSet& Form::Controls() {
  Load();
  return *controls_;
}

void Form::Paint() {
  const auto self = shared_from_this();
  if (loaded_) OnPaint();
}

void Form::TakeDesign(const Extent& frame) {
  frame_ = frame;
  caption_ = design_.caption;
  windowState_ = WindowState::Normal;
  normal_.reset();
  placed_ = false;
  left_ = 0;
  top_ = 0;
  width_ = design_.client.width + frame.width;
  height_ = design_.client.height + frame.height;
}

void Form::MakeControls() {
  controls_ = std::make_unique<ControlSet>(design_.controls);
  MakeControlPeers();
}

void Form::MakeControlPeers() {
  displayed_ = false;
  for (const auto& control : controls_->All()) {
    control->Attach(windows_->MakeControlPeer(*peer_, *control));
  }
}

void Form::Discard() {
  Hide();
  loaded_ = false;
  OnUnload();
  DestroyControls();
  controls_.reset();
  peer_.reset();
}

template <typename Value>
void Form::Put(Value Form::*property, Value value) {
  Load();
  this->*property = std::move(value);
  peer_->Update();
}

// --- The keyboard -------------------------------------------------------------------------------

bool Form::PressKey(std::int16_t keyCode, std::int16_t shift) {
  const auto self = shared_from_this();
  Toolbar* toolbar = loaded_ ? controls_->ToolbarWithKeyboard() : nullptr;
  if (toolbar != nullptr) {
    if (toolbar->PressKey(keyCode, shift)) return true;
    if (toolbar->ButtonWithKeyboard() != nullptr) return false;
  }
  if (design_.keyPreview) OnKeyDown(keyCode, shift);
  // The handler may have hidden or unloaded the form.
  if (keyCode == 0 || !visible_) return true;
  if (keyCode == kKeyTab) {
    MoveFocus((shift & kShiftKey) != 0);
    return true;
  }
  if (Control* button = ButtonFor(keyCode, *controls_); button != nullptr) {
    ClickIfReachable(*button);
    return true;
  }
  return PressInFocus(keyCode, shift) || (visible_ && EnterToolbar(keyCode, shift));
}

bool Form::PressInFocus(std::int16_t keyCode, std::int16_t shift) {
  Control* focused = controls_->Focused();
  if (focused == nullptr || !focused->IsReachable()) return false;
  if (focused->PressKey(keyCode, shift)) return true;
  return visible_ && OnUnusedKey(keyCode, shift);
}

bool Form::EnterToolbar(std::int16_t keyCode, std::int16_t shift) {
  if ((keyCode != kKeyF10 && keyCode != kKeyF6) || shift != 0) return false;
  return std::ranges::any_of(controls_->All(), [](const auto& control) {
    auto* toolbar = dynamic_cast<Toolbar*>(control.get());
    return toolbar != nullptr && toolbar->TakeKeyboard();
  });
}

void Form::PressAccessKey(char letter) {
  const auto self = shared_from_this();
  const auto controls = Controls().All();
  const auto found = std::ranges::find_if(controls, [letter](const auto& control) {
    return control->AccessKey() == letter && control->IsReachable();
  });
  if (found == controls.end()) return;
  // Held: the focus handler may unload the form.
  const auto control = (*found)->shared_from_this();
  Control* target =
      control->CanTakeFocus() ? control.get() : controls_->NextInTabOrder(control.get());
  if (target != nullptr) target->Focus();
  if (loaded_ && IsPressedByItsAccessKey(*control)) control->Click();
}

void Form::MoveFocus(bool backwards) {
  Control* next = controls_->NextInTabOrder(controls_->Focused(), backwards);
  if (next != nullptr) next->Focus();
}

}  // namespace pagivo
