// The fonts of forms on this system.
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <string_view>

namespace pagivo::qt {

// The family, or the closest installed one that is no wider, so that captions fit the rectangles
// that they were designed for. `points` are 72nds of an inch of 96 logical pixels, whatever
// resolution the device claims.
QFont FontFor(std::string_view family, float points, const QPaintDevice& device);

}  // namespace pagivo::qt
