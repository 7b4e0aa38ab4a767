#include "engine/native/spool/cups/cups_print_job.h"

#include <algorithm>
#include <array>
#include <utility>

#include "engine/native/spool/cups/cups_print_server.h"
#include "engine/native/spool/print_failures.h"
#include "values/characters.h"
#include "values/errors.h"

namespace pagivo::native {
namespace {

constexpr const char* kFormat = "application/pdf";
constexpr std::size_t kLongestName = 255;  // bytes, as IPP has it
constexpr const char* kUnnamed = "Document";

// Control characters are spaces, and no character is cut in two.
std::string JobName(std::string title) {
  std::ranges::replace_if(
      title, [](unsigned char byte) { return byte < ' ' || byte == 0x7F; }, ' ');
  if (title.empty()) return kUnnamed;
  if (title.size() <= kLongestName) return title;
  std::size_t length = kLongestName;
  while (length > 0 && ContinuesUtf8(title[length])) --length;
  return title.substr(0, length);
}

void AddInteger(ipp_t* collection, const char* name, int value) {
  ippAddInteger(collection, IPP_TAG_ZERO, IPP_TAG_INTEGER, name, value);
}

IppMessage MediaCollection(const JobTicket& ticket) {
  const IppMessage size(ippNew());
  AddInteger(size.get(), "x-dimension", ticket.size.width);
  AddInteger(size.get(), "y-dimension", ticket.size.height);
  IppMessage media(ippNew());
  ippAddCollection(media.get(), IPP_TAG_ZERO, "media-size", size.get());
  if (ticket.margins) {
    AddInteger(media.get(), "media-left-margin", ticket.margins->left);
    AddInteger(media.get(), "media-top-margin", ticket.margins->top);
    AddInteger(media.get(), "media-right-margin", ticket.margins->right);
    AddInteger(media.get(), "media-bottom-margin", ticket.margins->bottom);
  }
  return media;
}

void AddKeyword(ipp_t* request, const char* name, const char* value) {
  AddText(request, IPP_TAG_JOB, IPP_TAG_KEYWORD, name, value);
}

IppMessage NewJobQuestion(ipp_op_t operation, const CupsJob& job) {
  IppMessage request = NewRequest(operation, job.printerUri);
  ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job.id);
  return request;
}

}  // namespace

IppMessage NewJobRequest(const Printer& printer, const JobTicket& ticket) {
  IppMessage request = NewRequest(IPP_OP_CREATE_JOB, printer.uri);
  AddText(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", JobName(ticket.title));
  ippAddInteger(request.get(), IPP_TAG_JOB, IPP_TAG_INTEGER, "copies", ticket.copies);
  if (ticket.copies > 1) {
    AddKeyword(request.get(), "multiple-document-handling", "separate-documents-collated-copies");
  }
  AddKeyword(request.get(), "print-scaling", "none");
  ippAddCollection(request.get(), IPP_TAG_JOB, "media-col", MediaCollection(ticket).get());
  return request;
}

IppMessage CancelJobRequest(const CupsJob& job) {
  return NewJobQuestion(IPP_OP_CANCEL_JOB, job);
}

std::string ResourceOf(const std::string& printerUri) {
  std::array<char, 64> scheme{};
  std::array<char, HTTP_MAX_HOST> user{};
  std::array<char, HTTP_MAX_HOST> host{};
  std::array<char, HTTP_MAX_URI> resource{};
  int port = 0;
  httpSeparateURI(HTTP_URI_CODING_NONE, printerUri.c_str(), scheme.data(), scheme.size(),
                  user.data(), user.size(), host.data(), host.size(), &port, resource.data(),
                  resource.size());
  return resource.data();
}

CupsPrintJob::CupsPrintJob(CupsPrintServer& server, std::unique_ptr<CupsConnection> connection,
                           CupsJob job, KeepWaiting keepWaiting)
    : server_(server),
      connection_(std::move(connection)),
      job_(std::move(job)),
      resource_(ResourceOf(job_.printerUri)) {
  connection_->SetPatience(kPatience, std::move(keepWaiting));
}

CupsPrintJob::~CupsPrintJob() {
  if (connection_) Cancel();
}

void CupsPrintJob::Begin() {
  const IppMessage request = NewJobQuestion(IPP_OP_SEND_DOCUMENT, job_);
  AddText(request.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", kFormat);
  ippAddBoolean(request.get(), IPP_TAG_OPERATION, "last-document", 1);
  isBegun_ = true;
  if (!connection_->Begin(request, resource_)) Fail();
}

void CupsPrintJob::Send(std::span<const std::uint8_t> bytes) {
  if (!isBegun_) Begin();
  if (!connection_->Send(bytes)) Fail();
}

void CupsPrintJob::PrintPage(const Document& document, std::int32_t page) {
  if (!file_) {
    file_.emplace(document, document.Title(),
                  [this](std::span<const std::uint8_t> bytes) { Send(bytes); });
  }
  file_->WritePage(page);
}

void CupsPrintJob::Finish() {
  file_->Finish();
  file_.reset();
  if (!connection_->Finish().IsSuccess()) Fail();
  connection_.reset();
}

void CupsPrintJob::Fail() {
  const bool isCancelled = connection_->WasCancelled();
  server_.NoteSilence(*connection_);
  Cancel();
  if (isCancelled) ThrowPrintingCancelled();
  ThrowConnectionLost(job_.printer);
}

// The job's own connection goes first: the server does not cancel what it is still reading.
void CupsPrintJob::Cancel() noexcept {
  connection_.reset();
  if (!std::exchange(isTakenBack_, true)) IgnoringErrors([this] { server_.TakeBack(job_); });
}

}  // namespace pagivo::native
