#include <pagivo/pg_print.h>

int main() {
  pagivo::PgPrint print;
  print.VsPPInit();
  print.VsPPSetScaleMode(pagivo::ScaleMode::Millimetres);
  print.VsPPPrint("Goedemorgen", 25, 30, "Arial", 24, true);
  print.VsPPLine(25, 42, 185, 42, {.color = pagivo::Color::Navy, .drawWidth = 20});
  print.VsPPNewPage();
  print.VsPPFinish("Eerste document");
  print.VSPDF("eerste.pdf");
}
