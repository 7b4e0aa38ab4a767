#include <pagivo/pg_print.h>

int main() {
  pagivo::PgPrint print;
  print.VsPPInit();
  print.VsPPSetScaleMode(6);  // millimetres
  print.VsPPPrint("Goedemorgen", 25, 30, "Arial", 24, true);
  print.VsPPLine(25, 42, 185, 42);
  print.VsPPNewPage();
  print.VsPPFinish("Eerste document");
  print.VSPDF("eerste.pdf");
}
