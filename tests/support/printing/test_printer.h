// Real IPP printers that keep what they are sent.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/printing/child_process.h"

namespace pagivo {

// Hundredths of a millimetre.
struct TestMedium {
  std::string keyword;  // as print servers name it
  int width = 0;
  int height = 0;
  int leftMargin = 0;
  int topMargin = 0;
  int rightMargin = 0;
  int bottomMargin = 0;
};

struct TestPrinterDesign {
  std::string name;  // of its queue
  bool hasColor = false;
  std::vector<TestMedium> media;  // the first is the default
  // The custom sizes it takes, from the first to the second; none when empty.
  std::vector<TestMedium> customRange;
};

// What a printer received of a job.
struct ReceivedJob {
  std::string pdfFile;
  std::string name;
  int copies = 1;
  std::string media;  // the media-col, as the printer's command gets it
};

// An ippeveprinter process on a free port.
class TestPrinter {
 public:
  // Its files lie in the folder, which must be empty; the bus stands in for the system's.
  TestPrinter(const TestPrinterDesign& design, const std::string& folder,
              const std::string& busAddress);

  const std::string& Name() const noexcept { return name_; }
  std::string Address() const;
  // In the order of arrival.
  std::vector<ReceivedJob> ReceivedJobs() const;
  void ForgetJobs();

 private:
  std::string name_;
  std::string folder_;
  int port_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace pagivo
