// Qt's keys as the key codes and shift states that windows report.
#pragma once

#include <QKeyEvent>
#include <cstdint>

namespace pagivo::qt {

// The key code of a key; 0 for a key that has none.
std::int16_t KeyCodeOf(int key, Qt::KeyboardModifiers modifiers);

std::int16_t ShiftStateOf(Qt::KeyboardModifiers modifiers);

// The letter or digit, in lower case, that is pressed together with Alt alone; 0 for another key.
char AccessLetterOf(const QKeyEvent& event);

}  // namespace pagivo::qt
