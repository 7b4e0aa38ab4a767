#include "support/printing/test_printer.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/printing/guarded_folder.h"
#include "support/printing/loopback.h"

namespace pagivo {
namespace {

std::string Member(const std::string& type, const std::string& name, const std::string& value) {
  return "MEMBER " + type + " " + name + " " + value + " ";
}

std::string Integer(const std::string& name, int value) {
  return Member("integer", name, std::to_string(value));
}

std::string Range(const std::string& name, int lower, int upper) {
  return Member("rangeOfInteger", name, std::to_string(lower) + "-" + std::to_string(upper));
}

std::string Collection(const std::string& members) {
  return "{" + members + "}";
}

std::string SizeOf(const TestMedium& medium) {
  return Collection(Integer("x-dimension", medium.width) + Integer("y-dimension", medium.height));
}

std::string CustomSizeOf(const TestPrinterDesign& design) {
  const TestMedium& smallest = design.customRange.front();
  const TestMedium& largest = design.customRange.back();
  return Collection(Range("x-dimension", smallest.width, largest.width) +
                    Range("y-dimension", smallest.height, largest.height));
}

std::string MediaCollection(const TestMedium& medium, const std::string& size) {
  return Collection(Member("collection", "media-size", size) +
                    Integer("media-left-margin", medium.leftMargin) +
                    Integer("media-top-margin", medium.topMargin) +
                    Integer("media-right-margin", medium.rightMargin) +
                    Integer("media-bottom-margin", medium.bottomMargin));
}

template <typename Describe>
std::string ListOf(const std::vector<TestMedium>& media, Describe describe) {
  std::string list;
  for (const TestMedium& medium : media) list += (list.empty() ? "" : ",") + describe(medium);
  return list;
}

std::string Margins(const TestPrinterDesign& design, int TestMedium::*margin) {
  std::vector<TestMedium> media = design.media;
  media.insert(media.end(), design.customRange.begin(), design.customRange.end());
  std::ranges::sort(media, {}, margin);
  const auto same = std::ranges::unique(media, {}, margin);
  media.erase(same.begin(), same.end());
  return ListOf(media, [&](const TestMedium& medium) { return std::to_string(medium.*margin); });
}

// What the printer says of itself, in the form that its program reads.
std::string Attributes(const TestPrinterDesign& design) {
  const auto keyword = [](const TestMedium& medium) { return medium.keyword; };
  const auto withSize = [](const TestMedium& medium) {
    return MediaCollection(medium, SizeOf(medium));
  };
  std::string keywords = ListOf(design.media, keyword);
  std::string sizes = ListOf(design.media, SizeOf);
  std::string database = ListOf(design.media, withSize);
  if (!design.customRange.empty()) {
    keywords += "," + ListOf(design.customRange, keyword);
    sizes += "," + CustomSizeOf(design);
    database += "," + MediaCollection(design.customRange.front(), CustomSizeOf(design));
  }
  const TestMedium& usual = design.media.front();
  std::ostringstream lines;
  lines << "ATTR text printer-make-and-model \"" << design.name << "\"\n"
        << "ATTR boolean color-supported " << (design.hasColor ? "true" : "false") << "\n"
        << "ATTR integer copies-default 1\nATTR rangeOfInteger copies-supported 1-999\n"
        << "ATTR keyword media-default " << usual.keyword << "\n"
        << "ATTR keyword media-ready " << usual.keyword << "\n"
        << "ATTR keyword media-supported " << keywords << "\n"
        << "ATTR keyword media-col-supported media-size,media-left-margin,media-top-margin,"
        << "media-right-margin,media-bottom-margin\n"
        << "ATTR collection media-col-default " << withSize(usual) << "\n"
        << "ATTR collection media-col-ready " << withSize(usual) << "\n"
        << "ATTR collection media-size-supported " << sizes << "\n"
        << "ATTR collection media-col-database " << database << "\n"
        << "ATTR integer media-left-margin-supported " << Margins(design, &TestMedium::leftMargin)
        << "\nATTR integer media-top-margin-supported " << Margins(design, &TestMedium::topMargin)
        << "\nATTR integer media-right-margin-supported "
        << Margins(design, &TestMedium::rightMargin)
        << "\nATTR integer media-bottom-margin-supported "
        << Margins(design, &TestMedium::bottomMargin)
        << "\nATTR mimeMediaType document-format-default application/pdf\n"
        << "ATTR mimeMediaType document-format-supported application/octet-stream,application/pdf\n"
        << "ATTR keyword print-color-mode-supported "
        << (design.hasColor ? "auto,color,monochrome" : "monochrome") << "\n"
        << "ATTR keyword print-color-mode-default " << (design.hasColor ? "auto" : "monochrome")
        << "\nATTR keyword sides-supported one-sided\nATTR keyword sides-default one-sided\n"
        << "ATTR keyword print-scaling-supported auto,none,fit\n";
  return lines.str();
}

// Keeps the document and, in the environment, the job's attributes. The document comes last, under
// its name at once, so that who finds it finds all.
std::string KeepingCommand(const std::string& folder) {
  return "#!/bin/sh\ncd '" + folder + "' || exit 1\nnumber=$(ls | grep -c 'pdf$')\n" +
         "name=$(printf %04d \"$number\")\nenv >\"$name.env\"\n" +
         "cp \"$1\" \"$name.part\" && mv \"$name.part\" \"$name.pdf\"\n";
}

std::string VariableIn(const std::string& file, const std::string& name) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(name + "=")) return line.substr(name.size() + 1);
  }
  return {};
}

ReceivedJob JobOf(const std::filesystem::path& pdf) {
  const std::string variables = std::filesystem::path(pdf).replace_extension(".env").string();
  const std::string copies = VariableIn(variables, "IPP_COPIES");
  return {.pdfFile = pdf.string(),
          .name = VariableIn(variables, "IPP_JOB_NAME"),
          .copies = copies.empty() ? 1 : std::stoi(copies),
          .media = VariableIn(variables, "IPP_MEDIA_COL")};
}

}  // namespace

TestPrinter::TestPrinter(const TestPrinterDesign& design, const std::string& folder,
                         const std::string& busAddress)
    : name_(design.name), folder_(folder), port_(FreePort()) {
  std::filesystem::create_directories(folder + "/spool");
  std::filesystem::create_directories(folder + "/received");
  WriteText(folder + "/attributes.conf", Attributes(design));
  WriteText(folder + "/keep.sh", KeepingCommand(folder + "/received"));
  std::filesystem::permissions(folder + "/keep.sh", std::filesystem::perms::owner_all);
  const std::vector<std::string> command = {"ippeveprinter",
                                            "-n",
                                            "localhost",
                                            "-r",
                                            "off",
                                            "-p",
                                            std::to_string(port_),
                                            "-d",
                                            folder + "/spool",
                                            "-a",
                                            folder + "/attributes.conf",
                                            "-c",
                                            folder + "/keep.sh",
                                            name_};
  process_ = std::make_unique<ChildProcess>(command, folder + "/log",
                                            std::vector{"DBUS_SYSTEM_BUS_ADDRESS=" + busAddress});
  AwaitListener(port_, folder + "/log");
}

std::string TestPrinter::Address() const {
  return "ipp://localhost:" + std::to_string(port_) + "/ipp/print";
}

std::vector<ReceivedJob> TestPrinter::ReceivedJobs() const {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder_ + "/received")) {
    if (entry.path().extension() == ".pdf") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  std::vector<ReceivedJob> jobs;
  std::ranges::transform(files, std::back_inserter(jobs), JobOf);
  return jobs;
}

void TestPrinter::ForgetJobs() {
  for (const auto& entry : std::filesystem::directory_iterator(folder_ + "/received")) {
    std::filesystem::remove(entry.path());
  }
}

}  // namespace pagivo
