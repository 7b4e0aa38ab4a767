// What the main window tells about the calculation.
#pragma once

#include <QWidget>

#include "input.h"
#include "results.h"

namespace plumeo {

// The project's name, with its number, version, date and client below it.
QWidget* MakeHeading(const Project& project);
// The highest concentrations around the stack.
QWidget* MakeKeyFigures(const Project& project, const Results& results);
// The receptors with what they are exposed to, and the judgement.
QWidget* MakeReceptorTable(const Project& project, const Results& results);

}  // namespace plumeo
