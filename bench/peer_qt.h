// The report by Qt's own painter.
#pragma once

class QPainter;

namespace pagivo::bench {

// Draws report page `number`. The painter counts in twips from the paper's upper left corner.
void DrawReportPageWithQt(QPainter& painter, int number);

}  // namespace pagivo::bench
