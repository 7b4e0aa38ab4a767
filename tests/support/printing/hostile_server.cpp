#include "support/printing/hostile_server.h"

#include <poll.h>
#include <sys/socket.h>

#include <array>
#include <chrono>
#include <utility>

namespace pagivo {
namespace {

constexpr int kLookMilliseconds = 20;

bool Awaits(const LoopbackSocket& socket, short events) {
  pollfd wanted{.fd = socket.Descriptor(), .events = events, .revents = 0};
  return poll(&wanted, 1, kLookMilliseconds) > 0;
}

// Until nothing more comes. A socket that is closed with something unread takes back what it sent.
void ReadWhatCame(const LoopbackSocket& socket) {
  std::array<char, 4096> buffer{};
  while (Awaits(socket, POLLIN)) {
    if (recv(socket.Descriptor(), buffer.data(), buffer.size(), MSG_DONTWAIT) <= 0) return;
  }
}

}  // namespace

bool HostileServer::Guest::Send(std::string_view bytes) const {
  while (!bytes.empty() && !isEnding_) {
    if (!Awaits(socket_, POLLOUT)) continue;
    const auto sent =
        send(socket_.Descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return !isEnding_;
}

bool HostileServer::Guest::Drip(std::string_view bytes, int pause, int times) const {
  for (int time = 0; time < times; ++time) {
    std::this_thread::sleep_for(std::chrono::milliseconds(pause));
    if (!Send(bytes)) return false;
  }
  return true;
}

void HostileServer::Guest::KeepSilent() const {
  while (!isEnding_ && !Awaits(socket_, POLLRDHUP)) {
  }
}

HostileServer::HostileServer(Answer answer)
    : port_(listener_.Listen()), answer_(std::move(answer)), thread_([this] { Run(); }) {}

HostileServer::~HostileServer() {
  isEnding_ = true;
  thread_.join();
}

void HostileServer::Run() {
  while (!isEnding_) {
    if (!Awaits(listener_, POLLIN)) continue;
    LoopbackSocket socket = listener_.Accept();
    while (!isEnding_ && !Awaits(socket, POLLIN)) {
    }
    ReadWhatCame(socket);
    answer_(Guest(std::move(socket), isEnding_));
  }
}

}  // namespace pagivo
