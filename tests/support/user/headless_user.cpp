#include "support/user/headless_user.h"

#include <memory>
#include <string>

#include "values/characters.h"
#include "window/combo_box.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"
#include "window/toolbar.h"

namespace pagivo {

namespace {

std::string_view FirstCharacter(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && ContinuesUtf8(text[length])) ++length;
  return text.substr(0, length);
}

// A list's text has no insertion point here: what is typed goes to its end.
void TypeCharacter(Control& control, std::string_view character) {
  if (auto* list = dynamic_cast<ComboBox*>(&control)) {
    return list->PutText(list->Text() + std::string(character));
  }
  dynamic_cast<TextBox&>(control).Type(character);
}

}  // namespace

// A box is clicked in its middle, where a short text is over.
void HeadlessUser::Click(std::string_view name) {
  const auto control = form_.Get(name).shared_from_this();
  if (!control->IsReachable()) return;
  if (auto* box = dynamic_cast<TextBox*>(control.get())) {
    box->Press(box->Text().size());
  } else if (control->CanTakeFocus()) {
    control->Focus();
  }
  // The focus handler may have unloaded the form.
  if (form_.IsLoaded()) control->Click();
}

void HeadlessUser::ClickToolbar(std::string_view toolbar, std::string_view button) {
  if (auto& bar = form_.Get<Toolbar>(toolbar); bar.IsReachable()) bar.ClickButton(button);
}

void HeadlessUser::ClickToolbarMenu(std::string_view toolbar, std::string_view item) {
  if (auto& bar = form_.Get<Toolbar>(toolbar); bar.IsReachable()) bar.ClickMenu(item);
}

void HeadlessUser::Replace(std::string_view name, std::string_view text) {
  Control& control = form_.Get(name);
  if (!Reach(control)) return;
  if (control.Kind() == ControlKind::ComboBox) return form_.Get<ComboBox>(name).PutText(text);
  auto& box = form_.Get<TextBox>(name);
  box.SelectAll();
  box.Type(text);
}

void HeadlessUser::Type(std::string_view name, std::string_view text) {
  const auto held = form_.Get(name).shared_from_this();
  if (!Reach(*held)) return;
  while (!text.empty()) {
    const std::string_view key = FirstCharacter(text);
    TypeCharacter(*held, key);
    text.remove_prefix(key.size());
  }
}

void HeadlessUser::Erase(std::string_view name) {
  auto& box = form_.Get<TextBox>(name);
  if (!Reach(box)) return;
  box.SelectAll();
  box.Backspace();
}

void HeadlessUser::PressKey(std::int16_t keyCode, std::int16_t shift) {
  form_.PressKey(keyCode, shift);
}

void HeadlessUser::PressAccessKey(char letter) {
  form_.PressAccessKey(letter);
}

void HeadlessUser::Pick(std::string_view comboBox, std::int32_t item) {
  auto& box = form_.Get<ComboBox>(comboBox);
  if (Reach(box)) box.PutListIndex(item);
}

void HeadlessUser::Scroll(std::string_view scrollBar, std::int16_t value) {
  auto& bar = form_.Get<ScrollBar>(scrollBar);
  if (Reach(bar)) bar.PutValue(value);
}

void HeadlessUser::ClickUpArrow(std::string_view scrollBar) {
  auto& bar = form_.Get<ScrollBar>(scrollBar);
  if (Reach(bar)) bar.StepUp();
}

void HeadlessUser::ClickDownArrow(std::string_view scrollBar) {
  auto& bar = form_.Get<ScrollBar>(scrollBar);
  if (Reach(bar)) bar.StepDown();
}

void HeadlessUser::Resize(const Extent& size) {
  form_.PutSize(size);
  form_.Paint();
}

void HeadlessUser::Close() {
  form_.Unload(UnloadMode::ControlMenu);
}

bool HeadlessUser::Reach(Control& control) {
  const auto held = control.shared_from_this();
  if (!control.IsReachable()) return false;
  if (control.CanTakeFocus()) control.Focus();
  return true;
}

}  // namespace pagivo
