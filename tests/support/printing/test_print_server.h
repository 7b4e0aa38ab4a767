// A print server of a test's own, with real printers behind it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "support/printing/child_process.h"
#include "support/printing/guarded_folder.h"
#include "support/printing/test_printer.h"

namespace pagivo {

// Sends this process's printing to the server at host:port; empty for the machine's own.
void UsePrintServer(const std::string& address);

// A cupsd on a free loopback port with folders of its own, and two queues to real IPP printers. The
// machine's print server, its settings and its printers are not touched. As ippeveprinter wants a
// system bus, which a container has none of, there is a private one. Everything ends with the
// object.
class TestPrintServer {
 public:
  static constexpr const char* kColorPrinter = "Kleur-A4";       // the server's default
  static constexpr const char* kDrawingPrinter = "Tekening-A3";  // no colour, large paper

  TestPrintServer();
  ~TestPrintServer();

  int Port() const noexcept { return port_; }
  std::string Address() const { return "127.0.0.1:" + std::to_string(port_); }
  TestPrinter& Color() noexcept { return *color_; }
  TestPrinter& Drawing() noexcept { return *drawing_; }

  void Stop();
  void Start();
  // It stands still, with its connections, until it goes on.
  void Freeze();
  void Continue();
  bool IsFrozen() const noexcept { return isFrozen_; }

  // Queues.
  void AddQueue(const std::string& queue, const TestPrinter& printer);
  void RemoveQueue(const std::string& queue);
  void MakeDefault(const std::string& queue);
  void Pause(const std::string& queue) { Command({"cupsdisable", queue}); }
  void Resume(const std::string& queue) { Command({"cupsenable", queue}); }
  void Reject(const std::string& queue) { Command({"cupsreject", queue}); }
  void Accept(const std::string& queue) { Command({"cupsaccept", queue}); }
  void Deny(const std::string& queue, const std::string& user);
  void AllowEverybody(const std::string& queue);
  void CancelAllJobs() { Command({"cancel", "-a", "-x"}); }

  // The titles of the jobs that the server has and has not printed.
  std::vector<std::string> WaitingJobs() const;
  // What the documents of all jobs that it has take on its disk, and what of others has arrived.
  std::uintmax_t DocumentBytes() const;
  // Waits until the server has nothing left to print, for at most a minute: printers that are busy
  // are tried again after ten seconds.
  void AwaitQuiet() const;

 private:
  void StartBus();
  void WriteSettings() const;
  void Command(std::vector<std::string> command) const;
  std::string Log(const std::string& name) const { return folder_.FileNamed(name + ".log"); }

  GuardedFolder folder_;
  int port_;
  std::unique_ptr<ChildProcess> bus_;
  std::unique_ptr<TestPrinter> color_;
  std::unique_ptr<TestPrinter> drawing_;
  std::unique_ptr<ChildProcess> server_;
  bool isFrozen_ = false;
};

}  // namespace pagivo
