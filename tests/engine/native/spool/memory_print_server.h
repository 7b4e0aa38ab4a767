// A print server in memory: it has the printers that a test gives it, and keeps what it is sent.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/native/document/document.h"
#include "engine/native/spool/print_failures.h"
#include "engine/native/spool/print_server.h"
#include "support/trace/trace_player.h"

namespace pagivo::native {

struct MemoryJob {
  JobTicket ticket;
  std::vector<std::string> pages;  // as TracePage has them
  bool isFinished = false;
  bool isCancelled = false;
};

class MemoryPrintServer final : public PrintServer {
 public:
  std::vector<Printer> printers;
  std::map<std::string, PrinterMedia> media;
  std::string defaultPrinter;
  bool isAway = false;
  // The job of this number (from 1) loses its connection at its first page; 0 for none.
  std::size_t failingJob = 0;
  // Runs when a job is opened, and before it is finished.
  std::function<void()> meanwhile = [] {};

  std::vector<std::shared_ptr<MemoryJob>> jobs;
  int questions = 0;

  const std::vector<Printer>& Printers() override {
    Answer();
    return printers;
  }
  std::string DefaultPrinter() override {
    Answer();
    return defaultPrinter;
  }
  const PrinterMedia& MediaOf(const std::string& printer) override {
    Answer();
    return media[printer];
  }
  void Refresh() noexcept override {}
  void TellOfCancelledJobs(std::chrono::milliseconds /*patience*/) noexcept override {}

  std::unique_ptr<PrintJob> OpenJob(const JobTicket& ticket, const KeepWaiting&) override {
    Answer();
    jobs.push_back(std::make_shared<MemoryJob>());
    jobs.back()->ticket = ticket;
    meanwhile();
    return std::make_unique<OpenedJob>(*this, jobs.back(), jobs.size() == failingJob);
  }

 private:
  class OpenedJob final : public PrintJob {
   public:
    OpenedJob(MemoryPrintServer& server, std::shared_ptr<MemoryJob> job, bool isFailing)
        : server_(server), job_(std::move(job)), isFailing_(isFailing) {}
    void PrintPage(const Document& document, std::int32_t page) override {
      if (isFailing_) ThrowConnectionLost(job_->ticket.printer);
      job_->pages.push_back(TracePage(document, page));
    }
    void Finish() override {
      server_.meanwhile();
      job_->isFinished = true;
    }
    void Cancel() noexcept override { job_->isCancelled = true; }

   private:
    MemoryPrintServer& server_;
    std::shared_ptr<MemoryJob> job_;
    bool isFailing_;
  };

  void Answer() {
    ++questions;
    if (isAway) ThrowNoServer();
  }
};

}  // namespace pagivo::native
