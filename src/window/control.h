// A control of a form: its state and its events.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "pagivo/export.h"
#include "window/control_design.h"
#include "window/window_system.h"

namespace pagivo {

class ControlSet;

// Frames, labels, picture boxes, buttons and surfaces are plain controls; the other kinds have
// classes of their own. A change of state is shown by the peer at once. Handlers may unload the
// form: a control lives until its own handler has returned.
class PAGIVO_EXPORT Control : public std::enable_shared_from_this<Control> {
 public:
  using Handler = std::function<void()>;

  // `design` and `controls`, to which it belongs, outlive its use.
  Control(ControlSet& controls, const ControlDesign& design);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const ControlDesign& Design() const noexcept { return design_; }
  std::string_view Name() const noexcept { return design_.name; }
  ControlKind Kind() const noexcept { return design_.kind; }
  // The control that it lies in; null when it lies on the form itself.
  Control* Container() const noexcept { return container_; }

  const std::string& Caption() const noexcept { return caption_; }
  void PutCaption(std::string caption);
  // The letter or digit behind the caption's first single &, in lower case; 0 when there is none.
  char AccessKey() const noexcept;

  // Twips, relative to the container.
  float Left() const noexcept { return placement_.left; }
  float Top() const noexcept { return placement_.top; }
  float Width() const noexcept { return placement_.width; }
  float Height() const noexcept { return placement_.height; }
  void PutLeft(float left);
  void PutTop(float top);
  void PutWidth(float width);
  void PutHeight(float height);

  bool Enabled() const noexcept { return enabled_; }
  void PutEnabled(bool enabled);
  bool Visible() const noexcept { return visible_; }
  void PutVisible(bool visible);
  // Enabled and visible, and all its containers too.
  bool IsReachable() const noexcept;
  // Reachable, and of a kind that takes the focus.
  bool CanTakeFocus() const noexcept;
  bool HasFocus() const noexcept;

  const std::string& FontName() const noexcept { return fontName_; }
  void PutFontName(std::string name);
  float FontSize() const noexcept { return fontSize_; }  // points
  void PutFontSize(float points);

  void WhenClicked(Handler handler) { clicked_ = std::move(handler); }
  void WhenChanged(Handler handler) { changed_ = std::move(handler); }
  void WhenFocused(Handler handler) { focused_ = std::move(handler); }

  // What a click of the user does: raises click, unless a kind has more to it.
  virtual void Click();
  // A key that the form has no use for itself. Whether the control had one; a peer whose own widget
  // edits text leaves the other keys to it.
  virtual bool PressKey(std::int16_t keyCode, std::int16_t shift);
  // Gives it the focus and raises focus gained when it did not have it. Raises Error when it cannot
  // take it.
  void Focus();

  void Attach(std::unique_ptr<ControlPeer> peer) { peer_ = std::move(peer); }
  // Draws it anew.
  void Refresh();

 protected:
  ControlSet& Siblings() const noexcept { return controls_; }
  // Runs a handler. The last thing that an operation does: the form may be gone afterwards.
  void RaiseClick();
  void RaiseChange();

 private:
  friend class ControlSet;

  template <typename Value>
  void Put(Value& property, Value value);
  void Raise(const Handler& handler);

  ControlSet& controls_;
  const ControlDesign& design_;
  Control* container_;
  std::string caption_;
  Placement placement_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string fontName_;
  float fontSize_;
  Handler clicked_;
  Handler changed_;
  Handler focused_;
  std::unique_ptr<ControlPeer> peer_;
};

}  // namespace pagivo
