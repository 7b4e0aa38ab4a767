// Chapter: the formulas.
#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_table.h"

namespace plumeo {
namespace {

void ComposePlumeFormula(Flow& flow) {
  flow.Section("Gaussische pluim");
  flow.Paragraph(
      "Op afstand *x* benedenwinds van de schoorsteen zijn de concentraties dwars op "
      "de pluim en in de hoogte normaal verdeeld, met de standaardafwijkingen "
      "*σ*_{*y*} en *σ*_{*z*}. De bodem weerkaatst de pluim volledig; dat is gerekend "
      "met een gespiegelde bron onder het maaiveld (Pasquill 1961, Gifford 1961, "
      "Turner 1970):");
  flow.Formula({Inline("*C*(*x*, *y*, *z*) = "), Fraction("*Q*", "2*π* *u* *σ*_{*y*} *σ*_{*z*}"),
                Inline("exp"), Tall("("), Inline("−"), Fraction("*y*^{2}", "2 *σ*_{*y*}^{2}"),
                Tall(")"), Tall("["), Inline("exp"), Tall("("), Inline("−"),
                Fraction("(*z* − *H*)^{2}", "2 *σ*_{*z*}^{2}"), Tall(")"), Inline("+ exp"),
                Tall("("), Inline("−"), Fraction("(*z* + *H*)^{2}", "2 *σ*_{*z*}^{2}"), Tall(")"),
                Tall("]")});
  flow.Paragraph(
      "Hierin is *Q* de emissie in g/s, *u* de windsnelheid bij de mond in m/s en "
      "*H* = *h* + Δ*h* de effectieve hoogte in m: de hoogte van de schoorsteen en de "
      "pluimstijging samen. Op de grond onder de as van de pluim (*y* = *z* = 0) blijft "
      "daarvan over:");
  flow.Formula({Inline("*C*(*x*, 0, 0) = "), Fraction("*Q*", "*π* *u* *σ*_{*y*} *σ*_{*z*}"),
                Inline("exp"), Tall("("), Inline("−"), Fraction("*H*^{2}", "2 *σ*_{*z*}^{2}"),
                Tall(")")});
}

// The coefficients as they stand in the formula's form: slope, curvature, power.
struct CurveTexts {
  const char* stability;
  const char* lateral;
  const char* vertical;
};

constexpr CurveTexts kOpenCountryTexts[] = {
    {"A", "0,22 *x* (1 + 0,0001 *x*)^{−1/2}", "0,20 *x*"},
    {"B", "0,16 *x* (1 + 0,0001 *x*)^{−1/2}", "0,12 *x*"},
    {"C", "0,11 *x* (1 + 0,0001 *x*)^{−1/2}", "0,08 *x* (1 + 0,0002 *x*)^{−1/2}"},
    {"D", "0,08 *x* (1 + 0,0001 *x*)^{−1/2}", "0,06 *x* (1 + 0,0015 *x*)^{−1/2}"},
    {"E", "0,06 *x* (1 + 0,0001 *x*)^{−1/2}", "0,03 *x* (1 + 0,0003 *x*)^{−1}"},
    {"F", "0,04 *x* (1 + 0,0001 *x*)^{−1/2}", "0,016 *x* (1 + 0,0003 *x*)^{−1}"}};

constexpr CurveTexts kUrbanTexts[] = {
    {"A", "0,32 *x* (1 + 0,0004 *x*)^{−1/2}", "0,24 *x* (1 + 0,001 *x*)^{1/2}"},
    {"B", "0,32 *x* (1 + 0,0004 *x*)^{−1/2}", "0,24 *x* (1 + 0,001 *x*)^{1/2}"},
    {"C", "0,22 *x* (1 + 0,0004 *x*)^{−1/2}", "0,20 *x*"},
    {"D", "0,16 *x* (1 + 0,0004 *x*)^{−1/2}", "0,14 *x* (1 + 0,0003 *x*)^{−1/2}"},
    {"E", "0,11 *x* (1 + 0,0004 *x*)^{−1/2}", "0,08 *x* (1 + 0,0015 *x*)^{−1/2}"},
    {"F", "0,11 *x* (1 + 0,0004 *x*)^{−1/2}", "0,08 *x* (1 + 0,0015 *x*)^{−1/2}"}};

void ComposeSpread(Report& report) {
  Flow& flow = report.flow;
  const Terrain terrain = report.project.site.terrain;
  flow.Section("Spreiding van de pluim");
  flow.Paragraph(
      "De standaardafwijkingen volgen de interpolatieformules van Briggs (1973), die de "
      "krommen van Pasquill en Gifford voor de eerste kilometers verbinden met metingen "
      "aan hoge bronnen. Zij gelden van " +
      WithUnit("100", "m") + " tot " + WithUnit("10", "km") +
      ". Voor deze berekening zijn die voor " + NameOf(terrain) + " gebruikt.");
  flow.TableCaption("Spreiding volgens Briggs (1973), " + NameOf(terrain) +
                    "; *x*, *σ*_{*y*} en *σ*_{*z*} in m");
  Table table{.columns = {{"Klasse", "", 18, Align::Left},
                          {"*σ*_{*y*}", "", 46, Align::Left},
                          {"*σ*_{*z*}", "", 46, Align::Left},
                          {"*σ*_{*y*} op 1 km", "", 22},
                          {"*σ*_{*z*} op 1 km", "", 22}},
              .rowHeight = 5.8};
  const auto& texts = terrain == Terrain::Urban ? kUrbanTexts : kOpenCountryTexts;
  for (const Stability stability : kStabilities) {
    const CurveTexts& text = texts[IndexOf(stability)];
    const Spread spread = SpreadAt(terrain, stability, 1000);
    table.rows.push_back({text.stability, text.lateral, text.vertical, Fixed(spread.lateral, 1),
                          Fixed(spread.vertical, 1)});
  }
  DrawTable(flow, table);
}

void ComposeWindProfile(Flow& flow) {
  flow.Section("Windprofiel");
  flow.Paragraph(
      "De windsnelheid neemt met de hoogte toe volgens een machtswet. De exponent *p* "
      "hangt af van de stabiliteit en van de ruwheid van de omgeving (Irwin 1979) en "
      "staat in hoofdstuk 2:");
  flow.Formula(
      {Inline("*u*(*z*) = *u*_{10}"), Tall("("), Fraction("*z*", "10"), Tall(")"), Power("*p*")});
}

void ComposeBriggsRise(Flow& flow) {
  flow.Paragraph(
      "De pluimstijging is berekend volgens Briggs (1971, 1975). De stuwkracht van het "
      "warme rookgas bepaalt de stijging:");
  flow.Formula({Inline("*F* = *g* *v*_{s} *d*^{2}"), Fraction("*T*_{s} − *T*_{a}", "4 *T*_{s}")});
  flow.Paragraph(
      "In onstabiele en neutrale lucht bereikt de pluim haar volle stijging op een "
      "afstand van 49 *F*^{5/8} (*F* < 55) of 119 *F*^{2/5} (*F* ≥ 55) meter; zij "
      "bedraagt dan");
  flow.Formula({Inline("Δ*h* = "), Fraction("21,425 *F*^{3/4}", "*u*"),
                Inline("  (*F* < 55)      of      Δ*h* = "), Fraction("38,71 *F*^{3/5}", "*u*"),
                Inline("  (*F* ≥ 55)")});
  flow.Paragraph(
      "In stabiele lucht remt de gelaagdheid de stijging. Met de parameter *s*, "
      "waarin de gradiënt van de potentiële temperatuur " +
      WithUnit("0,020", "K/m") + " (klasse E) of " + WithUnit("0,035", "K/m") +
      " (klasse F) is, geldt");
  flow.Formula({Inline("Δ*h* = 2,6"), Tall("("), Fraction("*F*", "*u* *s*"), Tall(")"),
                Power("1/3"), Inline("     met      *s* = "), Fraction("*g*", "*T*_{a}"),
                Fraction("∂*θ*", "∂*z*")});
  flow.Paragraph("Voordat de volle stijging is bereikt, volgt de as van de pluim de tweederdewet:");
  flow.Formula({Inline("Δ*h*(*x*) = "), Fraction("1,60 *F*^{1/3} *x*^{2/3}", "*u*")});
  flow.Paragraph(
      "Is het rookgas zo weinig warmer dan de lucht dat de impuls overheerst, dan is "
      "Δ*h* = 3 *d* *v*_{s} / *u*, in stabiele lucht ten hoogste "
      "1,5 (*F*_{m} / (*u* *s*^{1/2}))^{1/3}. De uurgemiddelden in dit rapport zijn met "
      "de volle stijging berekend.");
}

void ComposeHollandRise(Flow& flow) {
  flow.Paragraph(
      "De pluimstijging is berekend volgens Holland, met *p* de luchtdruk in hPa "
      "(Turner 1970):");
  flow.Formula({Inline("Δ*h* = "), Fraction("*v*_{s} *d*", "*u*"), Tall("("),
                Inline("1,5 + 2,68 · 10^{−3} *p*"), Fraction("*T*_{s} − *T*_{a}", "*T*_{s}"),
                Inline("*d*"), Tall(")")});
  flow.Paragraph(
      "In onstabiele lucht (klasse A, B en C) is de uitkomst met 1,15 "
      "vermenigvuldigd, in stabiele lucht (klasse E en F) met 0,85.");
}

void ComposeRiseModel(Report& report) {
  Flow& flow = report.flow;
  flow.Section("Pluimstijging");
  if (report.project.site.riseFormula == RiseFormula::Briggs) {
    ComposeBriggsRise(flow);
  } else {
    ComposeHollandRise(flow);
  }
  flow.Paragraph(
      "Verlaat het gas de mond langzamer dan anderhalf maal de windsnelheid, dan wordt "
      "het achter de schoorsteen omlaag getrokken; de schoorsteen telt dan "
      "2 *d* (1,5 − *v*_{s} / *u*) lager (Briggs 1974).");
}

void ComposeYearModel(Flow& flow) {
  flow.Section("Jaargemiddelde");
  flow.Paragraph(
      "Over een jaar waait de wind binnen een sector even vaak in elke richting. De "
      "concentratie is daarom over de breedte van de sector gemiddeld en per sector en "
      "klasse gewogen met de frequentie *f* uit de windroos, met *n* = 12 sectoren:");
  flow.Formula({Inline("*C*_{jaar}(*x*) = "), Tall("∑"), Inline("*f*_{*k*}"),
                Fraction("(2/*π*)^{1/2} *Q*", "*σ*_{*z*} *u*_{*k*} (2*π* *x* / *n*)"),
                Inline("exp"), Tall("("), Inline("−"), Fraction("*H*_{*k*}^{2}", "2 *σ*_{*z*}^{2}"),
                Tall(")")});
  flow.Paragraph(
      "De som loopt over de klassen *k* = A tot en met F. Tussen het midden van twee "
      "sectoren is lineair geïnterpoleerd, zodat de kaarten geen sprongen op de "
      "sectorgrenzen vertonen.");
}

}  // namespace

void ComposeModel(Report& report) {
  report.flow.Chapter("Rekenmodel");
  ComposePlumeFormula(report.flow);
  ComposeSpread(report);
  ComposeWindProfile(report.flow);
  ComposeRiseModel(report);
  ComposeYearModel(report.flow);
}

}  // namespace plumeo
