#include "engine/native/spool/cups/cups_connection.h"

#include <sys/socket.h>

#include <utility>

namespace pagivo::native {
namespace {

// How long libcups waits for a piece of an answer before it asks whether to wait on: short where a
// user may lose patience. But within the body of an answer to a question it does not ask, and gives
// the answer up.
constexpr std::chrono::milliseconds kSliceOfJob{50};
constexpr std::chrono::milliseconds kSliceOfQuestion = CupsConnection::kPatience / 2;

double SecondsOf(std::chrono::duration<double> time) {
  return time.count();
}

// libcups would ask on the terminal.
const char* NoPassword(const char* /*prompt*/, http_t* /*http*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/) {
  return nullptr;
}

// What libcups reads an answer from; it takes fewer bytes than it wanted for a failure.
ssize_t ReadFrom(void* http, ipp_uchar_t* buffer, size_t length) {
  size_t count = 0;
  while (count < length) {
    const ssize_t read = httpRead2(static_cast<http_t*>(http),
                                   reinterpret_cast<char*>(buffer) + count, length - count);
    if (read <= 0) break;
    count += static_cast<size_t>(read);
  }
  return static_cast<ssize_t>(count);
}

}  // namespace

CupsConnection::CupsConnection(std::chrono::milliseconds patience) : patience_(patience) {
  cupsSetPasswordCB2(NoPassword, nullptr);
  StartWaiting();
  http_.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                           static_cast<int>(patience.count()), nullptr));
  if (http_) {
    httpSetTimeout(http_.get(), SecondsOf(patience / 2), WaitOn, this);
  } else {
    wasSilent_ = Clock::now() >= deadline_;
  }
}

void CupsConnection::SetPatience(std::chrono::milliseconds patience, KeepWaiting keepWaiting) {
  patience_ = patience;
  keepWaiting_ = std::move(keepWaiting);
  httpSetTimeout(http_.get(), SecondsOf(kSliceOfJob), WaitOn, this);
}

int CupsConnection::WaitOn(http_t* /*http*/, void* self) {
  return static_cast<CupsConnection*>(self)->MayWait() ? 1 : 0;
}

bool CupsConnection::MayWait() {
  if (keepWaiting_ && !keepWaiting_()) wasCancelled_ = true;
  if (Clock::now() >= deadline_) wasSilent_ = true;
  return !wasCancelled_ && !wasSilent_;
}

// libcups makes an IPP status of whatever happens, and these two of a connection that broke.
bool CupsConnection::HasAnswered() noexcept {
  const ipp_status_t status = cupsLastError();
  return status != IPP_STATUS_ERROR_INTERNAL && status != IPP_STATUS_ERROR_SERVICE_UNAVAILABLE;
}

CupsAnswer CupsConnection::Ask(IppMessage request, const std::string& resource) {
  if (!http_) return {};
  IppMessage message(cupsDoRequest(http_.get(), request.release(), resource.c_str()));
  const bool isThere = message || HasAnswered();
  // The pause within an answer that libcups does not ask about.
  if (!isThere && Clock::now() > deadline_ - patience_ + kSliceOfQuestion) wasSilent_ = true;
  return {.isThere = isThere, .status = cupsLastError(), .message = std::move(message)};
}

bool CupsConnection::Begin(const IppMessage& request, const std::string& resource) {
  StartWaiting();
  return cupsSendRequest(http_.get(), request.get(), resource.c_str(), CUPS_LENGTH_VARIABLE) ==
         HTTP_STATUS_CONTINUE;
}

bool CupsConnection::Send(std::span<const std::uint8_t> bytes) {
  StartWaiting();
  return cupsWriteRequestData(http_.get(), reinterpret_cast<const char*>(bytes.data()),
                              bytes.size()) == HTTP_STATUS_CONTINUE;
}

// Not by libcups's own function, which gives up an answer that pauses for longer than a slice.
CupsAnswer CupsConnection::Finish() {
  StartWaiting();
  httpWrite2(http_.get(), "", 0);
  http_status_t status = HTTP_STATUS_CONTINUE;
  while (status == HTTP_STATUS_CONTINUE) status = httpUpdate(http_.get());
  if (status != HTTP_STATUS_OK) return {};
  IppMessage message(ippNew());
  ipp_state_t state = IPP_STATE_IDLE;
  while (state != IPP_STATE_DATA && state != IPP_STATE_ERROR) {
    state = ippReadIO(http_.get(), ReadFrom, 1, nullptr, message.get());
  }
  if (state == IPP_STATE_ERROR) return {};
  return {
      .isThere = true, .status = ippGetStatusCode(message.get()), .message = std::move(message)};
}

}  // namespace pagivo::native
