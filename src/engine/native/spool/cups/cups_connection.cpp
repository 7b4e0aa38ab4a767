#include "engine/native/spool/cups/cups_connection.h"

#include <sys/socket.h>

#include <utility>

namespace pagivo::native {
namespace {

// How often libcups asks whether to wait on; seconds.
constexpr double kWaitingSlice = 0.05;

// libcups would ask on the terminal.
const char* NoPassword(const char* /*prompt*/, http_t* /*http*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/) {
  return nullptr;
}

// libcups makes an IPP status of whatever happens, and these two of a connection that broke.
CupsAnswer Judge(IppMessage message) {
  const ipp_status_t status = cupsLastError();
  const bool isThere = message || (status != IPP_STATUS_ERROR_INTERNAL &&
                                   status != IPP_STATUS_ERROR_SERVICE_UNAVAILABLE);
  return {.isThere = isThere, .status = status, .message = std::move(message)};
}

}  // namespace

CupsConnection::CupsConnection() {
  cupsSetPasswordCB2(NoPassword, nullptr);
  StartWaiting();
  http_.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                           static_cast<int>(kPatience.count()), nullptr));
  if (http_) {
    httpSetTimeout(http_.get(), kWaitingSlice, WaitOn, this);
  } else {
    wasSilent_ = Clock::now() >= deadline_;
  }
}

void CupsConnection::SetPatience(std::chrono::milliseconds patience, KeepWaiting keepWaiting) {
  patience_ = patience;
  keepWaiting_ = std::move(keepWaiting);
  StartWaiting();
}

int CupsConnection::WaitOn(http_t* /*http*/, void* self) {
  return static_cast<CupsConnection*>(self)->MayWait() ? 1 : 0;
}

bool CupsConnection::MayWait() {
  if (keepWaiting_ && !keepWaiting_()) wasCancelled_ = true;
  if (Clock::now() >= deadline_) wasSilent_ = true;
  return !wasCancelled_ && !wasSilent_;
}

CupsAnswer CupsConnection::Ask(IppMessage request, const std::string& resource) {
  if (!http_) return {};
  return Judge(IppMessage(cupsDoRequest(http_.get(), request.release(), resource.c_str())));
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

CupsAnswer CupsConnection::Answer(const std::string& resource) {
  StartWaiting();
  return Judge(IppMessage(cupsGetResponse(http_.get(), resource.c_str())));
}

}  // namespace pagivo::native
