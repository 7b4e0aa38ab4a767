// Plumeo's main window: the outcomes, and three buttons that hand over the report.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>

#include "input.h"
#include "pagivo/pg_print.h"
#include "report.h"
#include "results.h"

namespace plumeo {

class MainWindow : public QWidget {
 public:
  MainWindow(const Project& project, const Results& results, const ReportOptions& options);

 private:
  QPushButton* MakeButton(const QString& caption, const QString& purpose,
                          void (MainWindow::*action)());

  void Preview();
  void Print();
  void WritePdf();

  // Composes the report, hands it to `use` and discards it.
  void WithReport(const std::function<void(pagivo::PgPrint& print)>& use);
  void Tell(const QString& text) { status_->setText(text); }

  const Project& project_;
  const Results& results_;
  const ReportOptions options_;
  QLabel* status_;
};

}  // namespace plumeo
