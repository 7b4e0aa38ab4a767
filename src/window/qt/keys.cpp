#include "window/qt/keys.h"

#include <algorithm>
#include <array>

#include "window/key_codes.h"

namespace pagivo::qt {

namespace {

struct KeyRow {
  int key;
  std::int16_t code;
};

// Keys whose code is not their letter or digit.
constexpr std::array<KeyRow, 51> kKeys{{
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, kKeyTab},       {Qt::Key_Backtab, kKeyTab},
    {Qt::Key_Clear, 12},       {Qt::Key_Return, kKeyEnter},  {Qt::Key_Enter, kKeyEnter},
    {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},        {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},       {Qt::Key_CapsLock, 20},       {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, 32},       {Qt::Key_PageUp, kKeyPageUp}, {Qt::Key_PageDown, kKeyPageDown},
    {Qt::Key_End, kKeyEnd},    {Qt::Key_Home, kKeyHome},     {Qt::Key_Left, kKeyLeft},
    {Qt::Key_Up, kKeyUp},      {Qt::Key_Right, kKeyRight},   {Qt::Key_Down, kKeyDown},
    {Qt::Key_Print, 44},       {Qt::Key_Insert, 45},         {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},        {Qt::Key_Meta, 91},           {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},    {Qt::Key_ScrollLock, 145},    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},         {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},      {Qt::Key_Less, 188},          {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},        {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},      {Qt::Key_Question, 191},      {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219},   {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},  {Qt::Key_Bar, 220},           {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},    {Qt::Key_QuoteDbl, 222},
}};

// Keys of the number pad that have a code of their own there.
constexpr std::array<KeyRow, 6> kPadKeys{{
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},
    {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},
    {Qt::Key_Comma, 110},
    {Qt::Key_Slash, 111},
}};

constexpr std::int16_t kPadZero = 96;
constexpr std::int16_t kF1 = 112;

template <typename Table>
std::int16_t Find(const Table& table, int key) {
  const auto row = std::ranges::find(table, key, &KeyRow::key);
  return row == table.end() ? std::int16_t{0} : row->code;
}

bool IsDigit(int key) {
  return key >= Qt::Key_0 && key <= Qt::Key_9;
}

std::int16_t PadCodeOf(int key) {
  if (IsDigit(key)) return static_cast<std::int16_t>(kPadZero + key - Qt::Key_0);
  return Find(kPadKeys, key);
}

}  // namespace

std::int16_t KeyCodeOf(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers.testFlag(Qt::KeypadModifier)) {
    if (const std::int16_t code = PadCodeOf(key); code != 0) return code;
  }
  // Letters and digits are their own codes.
  if (IsDigit(key) || (key >= Qt::Key_A && key <= Qt::Key_Z)) return static_cast<std::int16_t>(key);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
    return static_cast<std::int16_t>(kF1 + key - Qt::Key_F1);
  }
  return Find(kKeys, key);
}

std::int16_t ShiftStateOf(Qt::KeyboardModifiers modifiers) {
  int state = 0;
  if (modifiers.testFlag(Qt::ShiftModifier)) state |= kShiftKey;
  if (modifiers.testFlag(Qt::ControlModifier)) state |= kControlKey;
  if (modifiers.testFlag(Qt::AltModifier)) state |= kAltKey;
  return static_cast<std::int16_t>(state);
}

char AccessLetterOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers =
      event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
  const int key = event.key();
  if (modifiers != Qt::AltModifier) return 0;
  if (IsDigit(key)) return static_cast<char>(key);
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return static_cast<char>(key - Qt::Key_A + 'a');
  return 0;
}

}  // namespace pagivo::qt
