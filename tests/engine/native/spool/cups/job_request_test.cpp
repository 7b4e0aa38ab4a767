// What a print server is asked for a job.
#include <gtest/gtest.h>

#include "engine/native/spool/cups/cups_print_job.h"

namespace pagivo::native {
namespace {

const Printer kPrinter{.name = "Balie",
                       .uri = "ipp://localhost/printers/Balie",
                       .deviceAddress = {},
                       .stateReasons = {}};

JobTicket TicketNamed(const std::string& title, int copies = 1) {
  return {
      .printer = "Balie", .title = title, .copies = copies, .size = {21000, 29700}, .margins = {}};
}

std::string TextIn(const IppMessage& request, const char* name) {
  return TextOf(Find(request.get(), name));
}

TEST(JobRequest, GoesToThePrinter) {
  const IppMessage request = NewJobRequest(kPrinter, TicketNamed("Rapport"));
  EXPECT_EQ(ippGetOperation(request.get()), IPP_OP_CREATE_JOB);
  EXPECT_EQ(TextIn(request, "printer-uri"), kPrinter.uri);
  EXPECT_EQ(TextIn(request, "job-name"), "Rapport");
}

TEST(JobRequest, AsksThatPagesAreNotScaled) {
  EXPECT_EQ(TextIn(NewJobRequest(kPrinter, TicketNamed("Rapport")), "print-scaling"), "none");
}

TEST(JobRequest, AsksForCopiesAsWholeSets) {
  const IppMessage request = NewJobRequest(kPrinter, TicketNamed("Rapport", 3));
  EXPECT_EQ(ippGetInteger(Find(request.get(), "copies"), 0), 3);
  EXPECT_EQ(TextIn(request, "multiple-document-handling"), "separate-documents-collated-copies");
}

TEST(JobRequest, AsksForThePaperByItsSize) {
  JobTicket ticket = TicketNamed("Rapport");
  ticket.margins = {.left = 1, .top = 2, .right = 3, .bottom = 4};
  const IppMessage request = NewJobRequest(kPrinter, ticket);
  ipp_t* media = ippGetCollection(Find(request.get(), "media-col"), 0);
  ipp_t* size = ippGetCollection(Find(media, "media-size"), 0);
  EXPECT_EQ(ippGetInteger(Find(size, "x-dimension"), 0), 21000);
  EXPECT_EQ(ippGetInteger(Find(size, "y-dimension"), 0), 29700);
  EXPECT_EQ(ippGetInteger(Find(media, "media-left-margin"), 0), 1);
  EXPECT_EQ(ippGetInteger(Find(media, "media-top-margin"), 0), 2);
  EXPECT_EQ(ippGetInteger(Find(media, "media-right-margin"), 0), 3);
  EXPECT_EQ(ippGetInteger(Find(media, "media-bottom-margin"), 0), 4);
}

TEST(JobRequest, SaysNothingOfMarginsThatAreNotKnown) {
  const IppMessage request = NewJobRequest(kPrinter, TicketNamed("Rapport"));
  ipp_t* media = ippGetCollection(Find(request.get(), "media-col"), 0);
  EXPECT_EQ(Find(media, "media-left-margin"), nullptr);
}

struct NameCase {
  std::string title;
  std::string name;
};

TEST(JobRequest, NamesTheJobAsPrintServersTakeIt) {
  const NameCase cases[] = {
      {"", "Document"},
      {"Een\ttab en\neen regel", "Een tab en een regel"},
      {std::string(255, 'a'), std::string(255, 'a')},
      {std::string(256, 'a'), std::string(255, 'a')},
      {std::string(254, 'a') + "\xC3\xA9", std::string(254, 'a')},
      {std::string(253, 'a') + "\xE2\x82\xAC", std::string(253, 'a')},
  };
  for (const auto& [title, name] : cases) {
    EXPECT_EQ(TextIn(NewJobRequest(kPrinter, TicketNamed(title)), "job-name"), name);
  }
}

}  // namespace
}  // namespace pagivo::native
