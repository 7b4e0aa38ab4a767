#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "api/method_table.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "support/recording_platform.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Arguments = std::vector<Variant>;
using Lines = std::vector<std::string>;

// An object on an engine that has an answer to everything, its window loaded.
class Host {
 public:
  Host() {
    RecordingEngine& engine = platform.Engine();
    engine.Answer("FontName", "Arial");
    engine.Answer("FontSize", 10.5F);
    for (const char* margin : {"MarginLeft", "MarginRight", "MarginTop", "MarginBottom"}) {
      engine.Answer(margin, std::int16_t{720});
    }
    engine.Answer("PageWidth", 11906.0);
    engine.Answer("PageHeight", 16838.0);
    engine.Answer("PageCount", std::int16_t{6});
    engine.Answer("CurrentPage", std::int16_t{3});
    engine.Answer("Copies", std::int16_t{2});
    engine.Answer("NDevices", std::int16_t{4});
    engine.Answer("Device", "Laser");
    engine.Answer("Orientation", std::int32_t{1});
    engine.Answer("PaperSize", std::int32_t{9});
    engine.Answer("TextWidth", 100.5);
    engine.Answer("TextHeight", 230.25);
    engine.Answer("PrintDialog", true);
    engine.Answer("ZoomMode", std::int32_t{2});
    engine.Answer("TwipsPerPixelX", 15.0);
    engine.Answer("TwipsPerPixelY", 12.0);
    platform.Pictures().AddPicture("kaart.png", std::make_shared<NamedObject>("kaart"));
    print.VsPPStart(nullptr);
    platform.Log().Clear();
  }
  ~Host() {
    print.VsPPEinde();
    State() = ModuleState{};
  }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  const Lines& Log() { return platform.Log().Lines(); }

  RecordingPlatform platform;
  PgPrint print;
};

Variant Singles(std::vector<float> values) {
  return std::make_shared<Array<float>>(Array<float>::FromValues(std::move(values), 1));
}

// One late-bound call and what comes of it.
struct Case {
  std::string_view name;
  Arguments arguments = {};
  Lines log = {};
  std::string result = "Empty";
  // The arguments afterwards where the method writes them, else they stay as they were.
  std::optional<Lines> argumentsAfter = std::nullopt;
  // Whether `log` is only what comes before the window is shown and painted.
  bool showsWindow = false;
};

const Lines kPen = {"put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 0"};

Lines WithPen(Lines lines) {
  lines.insert(lines.begin(), kPen.begin(), kPen.end());
  return lines;
}

// Every method once; arguments come as the kinds that late-bound hosts send.
std::vector<Case> Cases() {
  const auto picture = std::make_shared<NamedObject>("foto");
  return {
      {"VsPPAfdrukkenAanUit", {"True"}},
      {"VsPPPrintR",
       {"tekst ", std::int16_t{1000}, Missing, "Times"},
       {"get TextWidth String \"tekst\"", "put CurrentX Double 899.5",
        "put FontName String \"Times\"", "put Text String \"tekst \""}},
      {"VsPPDrawPolyline",
       {Singles({1, 2}), Singles({3, 4})},
       WithPen({"put BrushColor Long 16777215", "put BrushStyle Long 1",
                "put Polyline String \"1 3 2 4 \""})},
      {"VsPPGetCopies", {}, {"get Copies"}, "Integer 2"},
      {"VsPPCircle",
       {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, 0.5, 1.5},
       WithPen({"put BrushColor Long 16777215", "put BrushStyle Long 1",
                "call DrawCircle Single 1, Single 2, Single 3, Double 0.5, Double 1.5"})},
      {"VsPPGetCurrentPage", {}, {"get CurrentPage"}, "Integer 3"},
      {"VsPPEinde"},
      {"VsPPClose", {}, {"call EndDoc"}},
      {"VsPPFinish", {"Rapport"}, {"put DocName String \"Rapport\"", "call EndDoc"}},
      {"VsPPGetFontSize", {}, {"get FontSize"}, "Single 10.5"},
      {"VsPPGetFontName", {}, {"get FontName"}, "String \"Arial\""},
      {"VsPPGetMarginLeft", {}, {"get MarginLeft"}, "Long 720"},
      {"VsPPGetMarginLeftS", {}, {"get MarginLeft"}, "Single 720"},
      {"VsPPGetMarginRight", {}, {"get MarginRight"}, "Long 720"},
      {"VsPPGetMarginRightS", {}, {"get MarginRight"}, "Single 720"},
      {"VsPPGetMarginTop", {}, {"get MarginTop"}, "Long 720"},
      {"VsPPGetMarginTopS", {}, {"get MarginTop"}, "Single 720"},
      {"VsPPGetMarginBottom", {}, {"get MarginBottom"}, "Long 720"},
      {"VsPPGetMarginBottomS", {}, {"get MarginBottom"}, "Single 720"},
      {"VsPPGetNDevices", {}, {"get NDevices"}, "Integer 4"},
      {"VsPPGetOrientation", {}, {"get Orientation"}, "Integer 2"},
      {"VsPPGetPaperSize", {}, {"get PaperSize"}, "Integer 9"},
      {"VsPPGetPageHeight", {}, {"get PageHeight"}, "Long 16838"},
      {"VsPPGetPageHeightS", {}, {"get PageHeight"}, "Double 16838"},
      {"VsPPGetPaperHeight", {}, {"get PageHeight"}, "Long 16838"},
      {"VsPPGetPaperHeightS", {}, {"get PageHeight"}, "Double 16838"},
      {"VsPPGetPageWidth", {}, {"get PageWidth"}, "Long 11906"},
      {"VsPPGetPageWidthS", {}, {"get PageWidth"}, "Double 11906"},
      {"VsPPGetPaperWidth", {}, {"get PageWidth"}, "Long 11906"},
      {"VsPPGetPaperWidthS", {}, {"get PageWidth"}, "Double 11906"},
      {"VsPPGetPageCount", {}, {"get PageCount"}, "Integer 6"},
      {"VsPPLine",
       {std::int16_t{1}, 2.5F, std::int32_t{3}, 4.5},
       WithPen({"call DrawLine Single 1, Single 2.5, Double 3, Double 4.5"})},
      {"VsPPNewPage", {}, {"call NewPage"}},
      {"VsPPPageSetup", {}, {"get PrintDialog Long 1"}, "Boolean True"},
      {"VsPPPicture",
       {"kaart.png", std::int16_t{1}, "2", 3.0F, 4.0},
       {"put X1 Double 1", "put Y1 Double 2", "put X2 Double 3", "put Y2 Double 4",
        "load String \"kaart.png\"", "put Picture Object kaart"}},
      {"VsPPRealPicture",
       {picture, 1.0, 2.0, 3.0, 4.0},
       {"put X1 Double 1", "put Y1 Double 2", "put X2 Double 3", "put Y2 Double 4",
        "put Picture Object foto"}},
      {"VsPPPrint", {std::int32_t{42}}, {"put Text String \"42\""}},
      {"VsPPPrinterDialog",
       {"Inkt", "5", std::int32_t{-3}, 7.0},
       {"get NDevices", "get Devices Integer 0", "get Devices Integer 1", "get Devices Integer 2",
        "get Devices Integer 3", "get Device", "get Device", "get Device", "get Device",
        "get Device"},
       "Boolean False",
       Lines{"String \"\"", "String \"5\"", "Long 0", "Double 7"}},
      {"VsPPPrinterSetup", {}, {"get PrintDialog Long 0"}, "Boolean True"},
      {"VsPPRenderControl", {4711.0}, {"put RenderControl Long 4711"}},
      {"VsPPSetPhysicalPage", {std::int16_t{-1}}, {"put PhysicalPage Boolean True"}},
      {"VsPPSetScaleMode", {"3"}, {"get TwipsPerPixelX", "get TwipsPerPixelY"}},
      {"VsPPSetDevice", {"Inkt"}, {"put Device String \"Inkt\""}},
      {"VsPPSetFont", {Missing, "12"}, {"put FontSize Single 12"}},
      {"VsPPSetMarginLeft", {std::int16_t{100}}, {"put MarginLeft Single 100"}},
      {"VsPPSetMarginRight", {std::int32_t{100}}, {"put MarginRight Double 100"}},
      {"VsPPSetMarginTop", {100.0F}, {"put MarginTop Single 100"}},
      {"VsPPSetMarginBottom", {100.0}, {"put MarginBottom Double 100"}},
      {"VsPPSetOrientation", {std::int16_t{2}}, {"put Orientation Long 1"}},
      {"VsPPSetPaperSize", {9.0}, {"put PaperSize Long 9"}},
      {"VsPPSetPageHeight", {std::int16_t{100}}, {"put PageHeight Double 100"}},
      {"VsPPSetPaperHeight", {std::int16_t{100}}, {"put PaperHeight Single 100"}},
      {"VsPPSetPageWidth", {std::int16_t{100}}, {"put PageWidth Double 100"}},
      {"VsPPSetPaperWidth", {std::int16_t{100}}, {"put PaperWidth Single 100"}},
      {"VsPPSetPreviewMode", {std::int16_t{1}}},
      {"VsPPStartOverlay", {"2"}, {"call StartOverlay Integer 2"}},
      {"VsPPEndOverlay", {}, {"call EndOverlay"}},
      {"VsPPTextWidth", {"tekst"}, {"get TextWidth String \"tekst\""}, "Long 100"},
      {"VsPPTextWidthS", {"tekst"}, {"get TextWidth String \"tekst\""}, "Double 100.5"},
      {"VsPPTextHeight", {"tekst"}, {"get TextHeight String \"tekst\""}, "Long 230"},
      {"VsPPTextHeightS", {"tekst"}, {"get TextHeight String \"tekst\""}, "Double 230.25"},
      {"VsPPWatermerkInit",
       {std::int32_t{1}},
       {"put X1 Integer 50", "put Y1 Integer 50", "get PageWidth", "put X2 Double 11806",
        "get PageHeight", "put Y2 Double 16738", "put Picture Object decoded 1"}},
      {"VsPPZetHelp", {"plumeo.hlp", std::int16_t{1}}},
      {"VsPPZetInhoud", {"Inleiding"}, {"get CurrentPage"}},
      {"VsPPZetKleur", {"255"}, {"put TextColor Long 255"}},
      {"VsPreviewFile",
       {std::int32_t{4}},
       {"get ZoomMode", "get PageCount", "put PreviewPage Integer 3",
        // The window's first layout.
        "put ZoomMode Long 3", "get Zoom"},
       "Empty",
       Lines{"Long 3"},
       true},
      {"VsPrintFile",
       {std::int16_t{1}},
       {"get PageCount", "get PageCount", "get PageCount", "put Copies Integer 1",
        "call PrintDoc Boolean False, Integer 1, Integer 5"}},
      {"VsPPStart", {picture}},
      {"VsPPInit",
       {},
       {"call StartDoc", "put MarginLeft Integer 0", "put MarginRight Integer 0",
        "put MarginBottom Integer 0", "put MarginTop Integer 0", "put TextColor Long 0"}},
      {"VsPPGetDevice", {}, {"get Device"}, "String \"Laser\""},
      {"VsWatermerkAfdrukken"},
      {"VSPDF",
       {"rapport.pdf"},
       {"get PageCount",
        "call ExportPdf Object unnamed, String \"rapport.pdf\", Integer 1, Integer 5"}},
  };
}

std::string InOtherCase(std::string_view name) {
  std::string other(name);
  for (char& letter : other) {
    const auto byte = static_cast<unsigned char>(letter);
    letter = static_cast<char>(std::isupper(byte) != 0 ? std::tolower(byte) : std::toupper(byte));
  }
  return other;
}

std::int32_t DispatchIdOf(std::string_view name) {
  return std::ranges::find(kMethods.Rows(), name, &MemberSignature::name)->dispatchId;
}

using Call = std::function<Variant(PgPrint& print, Arguments& arguments)>;

void ExpectOutcome(const Case& expected, const Call& call) {
  SCOPED_TRACE(std::string(expected.name));
  Host host;
  Arguments arguments = expected.arguments;
  EXPECT_EQ(Describe(call(host.print, arguments)), expected.result);
  Lines log = host.Log();
  if (expected.showsWindow) log.resize(std::min(log.size(), expected.log.size()));
  EXPECT_EQ(log, expected.log);
  if (!expected.argumentsAfter) {
    EXPECT_EQ(arguments, expected.arguments);
    return;
  }
  Lines after;
  for (const Variant& argument : arguments) after.push_back(Describe(argument));
  EXPECT_EQ(after, *expected.argumentsAfter);
}

TEST(LateBoundPrint, CallsEveryMethodByName) {
  for (const Case& expected : Cases()) {
    ExpectOutcome(expected, [&](PgPrint& print, Arguments& arguments) {
      return print.CallMember(expected.name, arguments);
    });
  }
}

TEST(LateBoundPrint, FindsEveryNameInAnyCase) {
  for (const Case& expected : Cases()) {
    ExpectOutcome(expected, [&](PgPrint& print, Arguments& arguments) {
      return print.CallMember(InOtherCase(expected.name), arguments);
    });
  }
}

TEST(LateBoundPrint, CallsEveryMethodByDispatchId) {
  for (const Case& expected : Cases()) {
    ExpectOutcome(expected, [&](PgPrint& print, Arguments& arguments) {
      return print.CallMember(DispatchIdOf(expected.name), arguments);
    });
  }
}

// VsPPGetPaperSizes, the one method that is not among the cases, resizes the caller's arrays.
TEST(LateBoundPrint, FillsTheCallersArrays) {
  Host host;
  host.platform.Engine().AnswerFor("PaperSizes", std::int32_t{9}, true);
  const auto names = std::make_shared<Array<std::string>>();
  const auto codes = std::make_shared<Array<std::int16_t>>();
  Arguments arguments = {names, codes};
  EXPECT_EQ(Describe(host.print.CallMember("VsPPGetPaperSizes", arguments)), "Integer 1");
  EXPECT_EQ(names->UpperBound(), 1);
  EXPECT_EQ((*names)(1), "A4 210 x 297 mm");
  EXPECT_EQ((*codes)(1), 9);
  EXPECT_EQ(arguments, (Arguments{names, codes}));
}

TEST(LateBoundPrint, TheCasesCoverTheInterface) {
  std::set<std::string_view> covered = {"VsPPGetPaperSizes"};
  for (const Case& expected : Cases()) covered.insert(expected.name);
  EXPECT_EQ(covered.size(), kMethods.Rows().size());
}

// --- What a call does beside asking the engine ------------------------------------------------

TEST(LateBoundPrint, HidesThePrintButton) {
  Host host;
  Arguments arguments = {std::int16_t{1}};
  host.print.CallMember("VsPPAfdrukkenAanUit", arguments);
  EXPECT_FALSE(PreviewForm().tbAfdrukken().Button("Afdrukken").visible);
}

TEST(LateBoundPrint, RemembersTheHostWindow) {
  Host host;
  const auto window = std::make_shared<NamedObject>("venster");
  Arguments arguments = {window};
  host.print.CallMember("VsPPStart", arguments);
  EXPECT_EQ(State().HostForm, window);
}

TEST(LateBoundPrint, DiscardsThePreviewWindow) {
  Host host;
  host.print.CallMember("VsPPEinde", {});
  EXPECT_FALSE(PreviewForm().IsLoaded());
}

TEST(LateBoundPrint, HandsTheDialogsChoicesBack) {
  Host host;
  host.platform.Windows().AddScript([](Form& dialog, FormUser&) {
    State().request.PrintDevice = "Inkt";
    State().request.PrintCopies = 3;
    State().request.PrintFromPage = 2;
    State().request.PrintToPage = 4;
    State().request.PrintCancelled = false;
    dialog.Unload();
  });
  Arguments arguments = {"", std::int16_t{1}, std::int16_t{0}, std::int16_t{0}};
  EXPECT_EQ(host.print.CallMember("VsPPPrinterDialog", arguments), Variant(true));
  EXPECT_EQ(arguments, (Arguments{"Inkt", std::int16_t{3}, std::int16_t{2}, std::int16_t{4}}));
}

TEST(LateBoundPrint, ReachesTheMethodsOfADerivedClass) {
  class Derived : public PgPrint {
   public:
    std::int16_t VsPPGetPageCount() override { return 77; }
  };
  Derived derived;
  EXPECT_EQ(derived.CallMember("VsPPGetPageCount", {}), Variant(std::int16_t{77}));
}

TEST(LateBoundPrint, IsReachedThroughTheObjectBase) {
  Host host;
  Object& object = host.print;
  EXPECT_EQ(object.CallMember("VsPPGetPageCount", {}), Variant(std::int16_t{6}));
}

// --- Defaults ---------------------------------------------------------------------------------

// A call with every optional argument left out, late bound and through the class.
struct DefaultCase {
  std::string_view name;
  Arguments required;
  std::function<void(PgPrint& print)> direct;
};

TEST(LateBoundPrint, LeftOutArgumentsHoldTheDefaultsOfTheClass) {
  const Array<float> points = Array<float>::FromValues({1, 2}, 1);
  const std::int16_t one = 1;
  const std::vector<DefaultCase> cases = {
      {"VsPPPrint", {"tekst"}, [](PgPrint& print) { print.VsPPPrint("tekst"); }},
      {"VsPPPrintR", {"tekst"}, [](PgPrint& print) { print.VsPPPrintR("tekst"); }},
      {"VsPPSetFont", {}, [](PgPrint& print) { print.VsPPSetFont(); }},
      {"VsPPLine",
       {one, one, one, one},
       [=](PgPrint& print) { print.VsPPLine(one, one, one, one); }},
      {"VsPPCircle", {one, one, one}, [=](PgPrint& print) { print.VsPPCircle(one, one, one); }},
      {"VsPPDrawPolyline",
       {Singles({1, 2}), Singles({1, 2})},
       [&](PgPrint& print) { print.VsPPDrawPolyline(points, points); }},
      {"VsPrintFile", {one}, [=](PgPrint& print) { print.VsPrintFile(one); }},
  };
  for (const DefaultCase& call : cases) {
    SCOPED_TRACE(std::string(call.name));
    Host direct;
    call.direct(direct.print);
    const Lines expected = direct.Log();
    direct.platform.Log().Clear();
    Arguments arguments = call.required;
    direct.print.CallMember(call.name, arguments);
    EXPECT_EQ(direct.Log(), expected);
  }
}

TEST(LateBoundPrint, AnArgumentLeftOutInTheMiddleHoldsItsDefaultToo) {
  Host host;
  const std::int16_t low = 100;
  const std::int16_t high = 200;
  Arguments arguments = {low, low, high, high, Missing, Missing, std::int16_t{255}};
  host.print.CallMember("VsPPLine", arguments);
  EXPECT_THAT(host.Log(),
              ElementsAre("put PenStyle Long 0", "put PenWidth Integer 0", "put PenColor Long 255",
                          "call DrawLine Single 100, Single 100, Single 200, Single 200"));
}

TEST(LateBoundPrint, APageThatThePreviewDoesNotChangeStaysWhatItWas) {
  Host host;
  Arguments arguments = {3.0};
  host.print.CallMember("VsPreviewFile", arguments);
  EXPECT_EQ(arguments, Arguments{3.0});
}

// --- Errors -----------------------------------------------------------------------------------

template <typename Access>
void ExpectError(ErrorNumber number, const std::string& description, Access access) {
  try {
    access();
    ADD_FAILURE() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_EQ(error.what(), description);
  }
}

TEST(LateBoundPrint, ReportsAnUnknownMember) {
  Host host;
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: VsPPOnbekend",
              [&] { host.print.CallMember("VsPPOnbekend", {}); });
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: dispatch-id 1610809417",
              [&] { host.print.CallMember(0x60030049, {}); });
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: dispatch-id 1610809343",
              [&] { host.print.CallMember(0x6002FFFF, {}); });
}

TEST(LateBoundPrint, ReportsAWrongCountForEveryMethod) {
  Host host;
  for (const auto& row : kMethods.Rows()) {
    Arguments tooMany(row.parameterCount + 1);
    EXPECT_THROW(host.print.CallMember(row.name, tooMany), Error) << row.name;
  }
  EXPECT_THAT(host.Log(), IsEmpty());
  Arguments none;
  ExpectError(ErrorNumber::WrongArgumentCount,
              "VsPPLine: verkeerd aantal argumenten (0 in plaats van 4 tot en met 10)",
              [&] { host.print.CallMember("VsPPLine", none); });
}

TEST(LateBoundPrint, ReportsAnArgumentThatCannotBeConverted) {
  Host host;
  Arguments text = {"veel"};
  ExpectError(ErrorNumber::TypeMismatch,
              "VsPPStartOverlay, argument 1 (String): Typen komen niet met elkaar overeen",
              [&] { host.print.CallMember("VsPPStartOverlay", text); });
  Arguments large = {std::int32_t{40000}};
  ExpectError(ErrorNumber::Overflow, "VsPPSetScaleMode, argument 1 (Long): Overloop",
              [&] { host.print.CallMember("VsPPSetScaleMode", large); });
  EXPECT_THAT(host.Log(), IsEmpty());
}

TEST(LateBoundPrint, PassesTheErrorsOfTheMethodsThatReportThem) {
  Host host;
  host.platform.Engine().FailOn("put RenderControl");
  Arguments arguments = {std::int32_t{1}};
  ExpectError(ErrorNumber::InvalidPropertyValue, "Mislukt: put RenderControl Long 1",
              [&] { host.print.CallMember("VsPPRenderControl", arguments); });
}

// --- The engine through its own table ---------------------------------------------------------

TEST(LateBoundEngine, IsReadWrittenAndCalledByName) {
  Host host;
  Object& engine = host.platform.Engine();
  EXPECT_EQ(engine.GetMember("pagecount"), Variant(std::int16_t{6}));
  engine.PutMember("FontSize", "12");
  Arguments point = {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}};
  engine.CallMember("DrawCircle", point);
  Arguments code = {std::int16_t{9}};
  EXPECT_EQ(engine.CallMember("PaperSizes", code), Variant(false));
  EXPECT_THAT(host.Log(), ElementsAre("get PageCount", "put FontSize Single 12",
                                      "call DrawCircle Integer 1, Integer 2, Integer 3",
                                      "get PaperSizes Long 9"));
}

TEST(LateBoundEngine, DrawsACircleOfThreeOrFiveArguments) {
  Host host;
  Object& engine = host.platform.Engine();
  Arguments arc = {1.0, 2.0, 3.0, 0.5, 1.5};
  engine.CallMember("DrawCircle", arc);
  EXPECT_THAT(host.Log(),
              ElementsAre("call DrawCircle Double 1, Double 2, Double 3, Double 0.5, Double 1.5"));
  Arguments oneAngle = {1.0, 2.0, 3.0, 0.5};
  ExpectError(ErrorNumber::WrongArgumentCount,
              "DrawCircle: verkeerd aantal argumenten (4 in plaats van 3 of 5)",
              [&] { engine.CallMember("DrawCircle", oneAngle); });
}

TEST(LateBoundEngine, ReportsWhatItDoesNotOffer) {
  Host host;
  Object& engine = host.platform.Engine();
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: Bestaatniet",
              [&] { engine.GetMember("Bestaatniet"); });
  ExpectError(ErrorNumber::UnknownMember, "Onbekend lid: PageCount",
              [&] { engine.PutMember("PageCount", std::int16_t{1}); });
}

TEST(LateBoundEngine, TheExporterIsCalledByName) {
  Host host;
  Arguments arguments = {PreviewForm().vsPrint(), "rapport.pdf", std::int32_t{1}, "5"};
  host.platform.PdfExporter().CallMember("exportpdf", arguments);
  EXPECT_THAT(
      host.Log(),
      ElementsAre("call ExportPdf Object unnamed, String \"rapport.pdf\", Integer 1, Integer 5"));
}

}  // namespace
}  // namespace pagivo::testing
