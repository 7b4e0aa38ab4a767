#include "support/printing/loopback.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <stdexcept>
#include <utility>

#include "support/read_file.h"

namespace pagivo {
namespace {

constexpr int kTickMilliseconds = 20;
constexpr std::chrono::milliseconds kStutter{166};

sockaddr_in LoopbackAddress(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

bool HasInput(const LoopbackSocket& socket) {
  pollfd wanted{.fd = socket.Descriptor(), .events = POLLIN, .revents = 0};
  return poll(&wanted, 1, kTickMilliseconds) > 0;
}

std::string Receive(const LoopbackSocket& from) {
  std::array<char, 4096> buffer{};
  const auto count = recv(from.Descriptor(), buffer.data(), buffer.size(), 0);
  return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

bool Send(const LoopbackSocket& to, const std::string& bytes) {
  const auto count = send(to.Descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
  return count == static_cast<ssize_t>(bytes.size());
}

// Bytes passed on; 0 when a side has closed.
std::size_t Pass(const LoopbackSocket& from, const LoopbackSocket& to) {
  const std::string bytes = Receive(from);
  return Send(to, bytes) ? bytes.size() : 0;
}

}  // namespace

LoopbackSocket::LoopbackSocket() : descriptor_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {}

LoopbackSocket::~LoopbackSocket() {
  if (descriptor_ >= 0) close(descriptor_);
}

LoopbackSocket::LoopbackSocket(LoopbackSocket&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)) {}

int LoopbackSocket::Listen() {
  sockaddr_in address = LoopbackAddress(0);
  socklen_t size = sizeof address;
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  if (bind(descriptor_, generic, size) != 0 || listen(descriptor_, 16) != 0 ||
      getsockname(descriptor_, generic, &size) != 0) {
    throw std::runtime_error("no free port");
  }
  return ntohs(address.sin_port);
}

bool LoopbackSocket::ConnectTo(int port) {
  const sockaddr_in address = LoopbackAddress(port);
  return connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

LoopbackSocket LoopbackSocket::Accept() {
  return LoopbackSocket(accept4(descriptor_, nullptr, nullptr, SOCK_CLOEXEC));
}

int FreePort() {
  return LoopbackSocket().Listen();
}

void AwaitListener(int port, const std::string& logFile) {
  for (int tick = 0; tick < 10'000 / kTickMilliseconds; ++tick) {
    if (LoopbackSocket().ConnectTo(port)) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(kTickMilliseconds));
  }
  throw std::runtime_error("nobody listens on port " + std::to_string(port) + ": " +
                           ReadFile(logFile));
}

FaultyRelay::FaultyRelay(int targetPort, std::size_t bytesBeforeFault, RelayFault fault)
    : port_(listener_.Listen()),
      targetPort_(targetPort),
      bytesBeforeFault_(bytesBeforeFault),
      fault_(fault),
      thread_([this] { Run(); }) {}

FaultyRelay::~FaultyRelay() {
  isEnding_ = true;
  thread_.join();
}

void FaultyRelay::Run() {
  while (!isEnding_) {
    if (HasInput(listener_)) Relay(listener_.Accept());
  }
}

void FaultyRelay::Relay(const LoopbackSocket& client) {
  LoopbackSocket server;
  if (!server.ConnectTo(targetPort_)) return;
  std::array<pollfd, 2> ends{{{.fd = client.Descriptor(), .events = POLLIN, .revents = 0},
                              {.fd = server.Descriptor(), .events = POLLIN, .revents = 0}}};
  std::size_t sent = 0;
  while (!isEnding_ && sent <= bytesBeforeFault_) {
    if (poll(ends.data(), ends.size(), kTickMilliseconds) <= 0) continue;
    if (ends[0].revents != 0) {
      const std::size_t passed = Pass(client, server);
      if (passed == 0) return;
      sent += passed;
    }
    if (ends[1].revents != 0 && !PassAnswer(server, client)) return;
  }
  if (sent > bytesBeforeFault_) BreakDown(client);
}

// The head of an answer passes whole.
bool FaultyRelay::PassAnswer(const LoopbackSocket& server, const LoopbackSocket& client) const {
  const bool isOnAnswers = fault_ == RelayFault::Stutter || fault_ == RelayFault::Unfinished;
  const std::string bytes = Receive(server);
  if (!isOnAnswers || bytes.empty() || bytes.ends_with("\r\n\r\n")) {
    return !bytes.empty() && Send(client, bytes);
  }
  if (!Send(client, bytes.substr(0, bytes.size() - 1))) return false;
  if (fault_ == RelayFault::Unfinished) AwaitLeaving(client);
  std::this_thread::sleep_for(kStutter);
  return Send(client, bytes.substr(bytes.size() - 1));
}

void FaultyRelay::AwaitLeaving(const LoopbackSocket& client) const {
  pollfd leaving{.fd = client.Descriptor(), .events = POLLRDHUP, .revents = 0};
  while (!isEnding_ && leaving.revents == 0) poll(&leaving, 1, kTickMilliseconds);
}

// A silent relay reads nothing, so that the other side can write no more either, until it leaves.
void FaultyRelay::BreakDown(const LoopbackSocket& client) {
  ++faults_;
  if (fault_ == RelayFault::Silence) AwaitLeaving(client);
}

}  // namespace pagivo
