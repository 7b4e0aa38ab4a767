// A window: its caption, placement and life.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/error.h"
#include "pagivo/export.h"
#include "window/control.h"
#include "window/window_system.h"

namespace pagivo {

enum class WindowState : std::int16_t { Normal = 0, Minimised = 1, Maximised = 2 };

// Why a form is asked to unload.
enum class UnloadMode : std::int16_t {
  ControlMenu = 0,  // the user closes the window: close box or system menu
  Code = 1,
  SystemShutdown = 2,
};

// How a form was designed: lengths in twips.
struct FormDesign {
  std::string_view caption;
  Extent client;
  bool sizable = false;
  bool keyPreview = false;  // sees keys before its controls do
  std::span<const ControlDesign> controls = {};
};

// Life: created (state only), loaded (with controls and a peer, load handler run, hidden), shown,
// hidden, unloaded. Changing a property of a form that is not loaded loads it, and so does reaching
// one of its controls; each load starts from the design. Forms live in shared pointers, so that one
// can be released while its own modal showing is under way.
class PAGIVO_EXPORT Form : public std::enable_shared_from_this<Form> {
 public:
  Form(std::shared_ptr<WindowSystem> windows, const FormDesign& design);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  // Makes the controls and runs the load handler without showing the form; nothing when it is
  // loaded already. When a step fails the form is unloaded again and the error passed on; a load
  // handler that unloads the form counts as failing.
  void Load() {
    if (!loaded_) LoadNow();
  }
  bool IsLoaded() const noexcept { return loaded_; }
  // Loads the form, shows it with the focus on its first control and returns when it has been
  // hidden or unloaded. The first showing after a load raises resize. Raises Error when it is
  // visible already; passes on the error of a handler, with the form hidden.
  void ShowModal();
  // Shows it in the same way but returns at once: the caller goes on with its work and lets the
  // user act now and then, with HandleEvents.
  void Open();
  // Handles what the user has done since. Passes on the error of a handler, with the form hidden.
  // Nothing when the form is not visible.
  void HandleEvents();
  // Returns when the form has been hidden or unloaded; at once when it is not visible. Passes on
  // errors as ShowModal does.
  void AwaitHiding();
  void Hide();
  // Asks the query-unload handler, which may refuse, hides the form and gives up its controls.
  // Nothing when it is not loaded.
  void Unload(UnloadMode mode = UnloadMode::Code);
  bool Visible() const noexcept { return visible_; }

  // Shows the form with that window system from its next showing on: a loaded form keeps its state
  // and gets new peers. Nothing while it is visible. Raises Error, changing nothing, when there is
  // no display.
  void UseWindows(std::shared_ptr<WindowSystem> windows);

  const FormDesign& Design() const noexcept { return design_; }
  const std::string& Caption() const noexcept { return caption_; }
  void PutCaption(std::string caption);
  WindowState GetWindowState() const noexcept { return windowState_; }
  // A hidden form that becomes normal again goes back to where it was before.
  void PutWindowState(WindowState state);

  // The window with its frame, in twips from the screen's top left.
  float Left() const noexcept { return left_; }
  float Top() const noexcept { return top_; }
  float Width() const noexcept { return width_; }
  float Height() const noexcept { return height_; }
  void PutLeft(float left);
  void PutTop(float top);
  // A size that differs from the present one raises resize.
  void PutWidth(float width);
  void PutHeight(float height);
  // Both at once, as the user does by dragging an edge.
  void PutSize(const Extent& size);
  // Where the window belongs when it is shown, and how large it is. A sizable window and one whose
  // left or top was put since it was loaded stand where these say. Any other dialog stands in the
  // middle of `below`, the window that it is shown over or else the screen, but whole on the screen
  // as far as it fits.
  Placement PlacementOver(const Placement& below, const Placement& screen) const noexcept;
  // Where the user or the window system has put the window, as its peer reports it. A client area
  // of another size raises resize.
  void TakePlacement(const Placement& window, const Extent& frame, WindowState state);
  // The user turns to another window of the program, which the visible form keeps from use: when
  // it is minimised it comes back, as it was before.
  void ComeBack();
  // The window without its frame.
  float ClientWidth() const noexcept { return width_ - frame_.width; }
  float ClientHeight() const noexcept { return height_ - frame_.height; }

  // The controls of the design's table, loading the form first. Until the form is unloaded.
  ControlSet& Controls();
  // One of them. Raises Error when there is none of this name and kind.
  template <typename Kind = Control>
  Kind& Get(std::string_view name) {
    auto* control = dynamic_cast<Kind*>(&Controls().Find(name));
    if (control == nullptr) ThrowTypeMismatch();
    return *control;
  }

  // A key of the user. While a toolbar has the keyboard the key is the toolbar's. Else it goes to
  // the form's key-down handler when the form previews keys; then Enter presses the default button
  // (or the one with the focus), Esc the cancel button, and Tab moves the focus. Any other key goes
  // to the control with the focus, as Enter and Esc do in a form without such buttons, then to the
  // form's handler of unused keys; and F10 or F6 takes the keyboard into the toolbar. Returns
  // whether anybody had a use for the key.
  bool PressKey(std::int16_t keyCode, std::int16_t shift = 0);
  // A letter with Alt: presses the control whose caption has it, or gives it the focus; a label or
  // frame gives the focus to what follows it in the tab order.
  void PressAccessKey(char letter);
  // To the next control of the tab order, or the one before.
  void MoveFocus(bool backwards);
  // The window is drawn: raises paint.
  void Paint();

 protected:
  // Makes what the form has beside the controls of its table, and connects their handlers.
  virtual void CreateControls() {}
  virtual void DestroyControls() {}

  // The form's own handlers.
  virtual void OnLoad() {}
  virtual void OnResize() {}
  virtual void OnPaint() {}
  // Sets keyCode to 0 when it consumes the key.
  virtual void OnKeyDown(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {}
  // A key that the control with the focus has no use for. Returns whether the form has one.
  virtual bool OnUnusedKey(std::int16_t /*keyCode*/, std::int16_t /*shift*/) { return false; }
  // A handler failed during the showing; the form is hidden.
  virtual void OnShowingFailed() {}
  virtual void OnQueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
  virtual void OnUnload() {}

 private:
  void LoadNow();
  void TakeDesign(const Extent& frame);
  void MakeControls();
  void MakeControlPeers();
  void ChangePeers();
  void RememberNormal(WindowState next);
  void Show(void (FormPeer::*showing)());
  void ShowBy(void (FormPeer::*showing)());
  // Hides the form when the step fails.
  template <typename Step>
  void PassOnFailure(Step step);
  bool PressInFocus(std::int16_t keyCode, std::int16_t shift);
  bool EnterToolbar(std::int16_t keyCode, std::int16_t shift);
  void Discard();
  // Changes one property of the loaded form and shows it.
  template <typename Value>
  void Put(Value Form::*property, Value value);

  std::shared_ptr<WindowSystem> windows_;
  FormDesign design_;
  std::shared_ptr<FormPeer> peer_;
  std::unique_ptr<ControlSet> controls_;
  Extent frame_;
  bool loaded_ = false;
  bool displayed_ = false;  // since it was loaded
  bool visible_ = false;
  bool placed_ = false;
  std::string caption_;
  WindowState windowState_ = WindowState::Normal;
  WindowState beforeMinimising_ = WindowState::Normal;
  std::optional<Placement> normal_;  // of a window that is minimised or maximised
  float left_ = 0;
  float top_ = 0;
  float width_ = 0;
  float height_ = 0;
};

}  // namespace pagivo
