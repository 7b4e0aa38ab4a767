#include "support/printing/test_print_server.h"

#include <cups/cups.h>
#include <sys/socket.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "support/printing/loopback.h"

namespace pagivo {
namespace {

namespace fs = std::filesystem;

const TestPrinterDesign kColorDesign{
    .name = TestPrintServer::kColorPrinter,
    .hasColor = true,
    .media = {{"iso_a4_210x297mm", 21000, 29700, 400, 300, 500, 600},
              {"iso_a5_148x210mm", 14800, 21000, 400, 300, 500, 600},
              {"na_letter_8.5x11in", 21590, 27940, 635, 635, 635, 635}},
    .customRange = {{"custom_min_90x120mm", 9000, 12000, 400, 300, 500, 600},
                    {"custom_max_216x356mm", 21600, 35600, 400, 300, 500, 600}}};

const TestPrinterDesign kDrawingDesign{
    .name = TestPrintServer::kDrawingPrinter,
    .hasColor = false,
    .media = {{"iso_a3_297x420mm", 29700, 42000, 500, 500, 500, 500},
              {"na_ledger_11x17in", 27940, 43180, 500, 500, 500, 500},
              {"iso_a4_210x297mm", 21000, 29700, 500, 500, 500, 500}},
    .customRange = {}};

// Anybody in this test may do anything; nobody else hears of this server.
constexpr const char* kServerSettings = R"(LogLevel info
Browsing Off
BrowseLocalProtocols none
WebInterface No
DirtyCleanInterval 0
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
JobPrivateAccess all
JobPrivateValues none
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
)";

constexpr const char* kBusSettings = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>test</type><auth>EXTERNAL</auth><policy context="default">
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
<allow user="*"/></policy><listen>)";

int CountLines(const std::string& file, const std::string& part) {
  int count = 0;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.find(part) != std::string::npos) ++count;
  }
  return count;
}

}  // namespace

void UsePrintServer(const std::string& address) {
  if (address.empty()) {
    unsetenv("CUPS_SERVER");
  } else {
    setenv("CUPS_SERVER", address.c_str(), 1);
  }
  cupsSetServer(nullptr);  // libcups reads the environment once
}

// The server's filters run as another user, who must get at its files.
TestPrintServer::TestPrintServer() : port_(FreePort()) {
  fs::permissions(folder_.Path(),
                  fs::perms::owner_all | fs::perms::others_exec | fs::perms::others_read);
  StartBus();
  const std::string bus = "unix:path=" + folder_.FileNamed("bus");
  color_ = std::make_unique<TestPrinter>(kColorDesign, folder_.FileNamed("color"), bus);
  drawing_ = std::make_unique<TestPrinter>(kDrawingDesign, folder_.FileNamed("drawing"), bus);
  WriteSettings();
  Start();
  AddQueue(kColorPrinter, *color_);
  AddQueue(kDrawingPrinter, *drawing_);
  MakeDefault(kColorPrinter);
}

// The server before the printers that it may be talking to.
TestPrintServer::~TestPrintServer() {
  Stop();
}

void TestPrintServer::StartBus() {
  const std::string socket = folder_.FileNamed("bus");
  const std::string settings = folder_.FileNamed("bus.conf");
  WriteText(settings, kBusSettings + ("unix:path=" + socket) + "</listen></busconfig>");
  bus_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"dbus-daemon", "--config-file=" + settings, "--nofork",
                               "--nopidfile"},
      Log("bus"));
  for (int tick = 0; tick < 500 && !fs::exists(socket); ++tick) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

void TestPrintServer::WriteSettings() const {
  const auto folder = [&](const std::string& name) {
    fs::create_directories(folder_.FileNamed(name));
    return " " + folder_.FileNamed(name) + "\n";
  };
  std::string files = "ServerRoot" + folder("settings") + "RequestRoot" + folder("spool") +
                      "CacheDir" + folder("cache") + "StateDir" + folder("state") + "TempDir" +
                      folder("temporary") + "Printcap\nAccessLog " + Log("access") + "\nErrorLog " +
                      Log("error") + "\nPageLog " + Log("page") + "\nSyncOnClose No\n";
  if (getuid() == 0) files += "User lp\nGroup lp\nSystemGroup root\n";
  WriteText(folder_.FileNamed("settings/cups-files.conf"), files);
  WriteText(folder_.FileNamed("settings/cupsd.conf"),
            "Listen 127.0.0.1:" + std::to_string(port_) + "\n" + kServerSettings);
}

void TestPrintServer::Freeze() {
  server_->Send(SIGSTOP);
  isFrozen_ = true;
}

void TestPrintServer::Continue() {
  server_->Send(SIGCONT);
  isFrozen_ = false;
}

void TestPrintServer::Stop() {
  server_.reset();
}

void TestPrintServer::Start() {
  server_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"cupsd", "-f", "-c", folder_.FileNamed("settings/cupsd.conf"), "-s",
                               folder_.FileNamed("settings/cups-files.conf")},
      Log("server"),
      std::vector<std::string>{"DBUS_SYSTEM_BUS_ADDRESS=unix:path=" + folder_.FileNamed("bus")});
  AwaitListener(port_, Log("error"));
}

// The tools take the server's address after their name.
void TestPrintServer::Command(std::vector<std::string> command) const {
  command.insert(command.begin() + 1, {"-h", Address()});
  RunProgram(command, Log("commands"));
}

// The server asks the printer for its properties in a thread of its own, and does not survive the
// queue's removal before that has ended.
void TestPrintServer::AddQueue(const std::string& queue, const TestPrinter& printer) {
  const std::string message = "Printer \"" + queue + "\" is now available";
  const auto timesSaid = [&] { return CountLines(Log("error"), message); };
  const int before = timesSaid();
  Command({"lpadmin", "-p", queue, "-E", "-v", printer.Address(), "-m", "everywhere"});
  for (int tick = 0; tick < 1000 && timesSaid() == before; ++tick) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

void TestPrintServer::RemoveQueue(const std::string& queue) {
  Command({"lpadmin", "-x", queue});
}

void TestPrintServer::Deny(const std::string& queue, const std::string& user) {
  Command({"lpadmin", "-p", queue, "-u", "deny:" + user});
}

void TestPrintServer::AllowEverybody(const std::string& queue) {
  Command({"lpadmin", "-p", queue, "-u", "allow:all"});
}

void TestPrintServer::MakeDefault(const std::string& queue) {
  Command({"lpadmin", "-d", queue});
}

// Not by lpstat, as tests ask many times a second.
std::vector<std::string> TestPrintServer::WaitingJobs() const {
  const std::unique_ptr<http_t, void (*)(http_t*)> connection(
      httpConnect2("127.0.0.1", port_, nullptr, AF_INET, HTTP_ENCRYPTION_NEVER, 1, 5000, nullptr),
      httpClose);
  if (!connection) throw std::runtime_error("no print server on port " + std::to_string(port_));
  cups_job_t* jobs = nullptr;
  const int count = cupsGetJobs2(connection.get(), &jobs, nullptr, 0, CUPS_WHICHJOBS_ACTIVE);
  if (count < 0) throw std::runtime_error(cupsLastErrorString());
  std::vector<std::string> titles;
  for (int index = 0; index < count; ++index) titles.emplace_back(jobs[index].title);
  cupsFreeJobs(count, jobs);
  return titles;
}

// Besides documents there are jobs, files that begin with a c. Any may go while others are counted.
std::uintmax_t TestPrintServer::DocumentBytes() const {
  std::uintmax_t bytes = 0;
  for (const auto& entry : fs::directory_iterator(folder_.FileNamed("spool"))) {
    std::error_code gone;
    const bool isJob = entry.path().filename().string().starts_with('c');
    const std::uintmax_t size = isJob ? 0 : fs::file_size(entry.path(), gone);
    if (!gone) bytes += size;
  }
  return bytes;
}

void TestPrintServer::AwaitQuiet() const {
  for (int tick = 0; tick < 1200; ++tick) {
    if (WaitingJobs().empty()) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  throw std::runtime_error("the print server does not come to rest");
}

}  // namespace pagivo
