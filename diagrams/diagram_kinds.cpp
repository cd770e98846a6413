#include "diagrams/diagram_kinds.h"

#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

namespace zorvant {
namespace {

constexpr const char* kTime = "t/ {U}";
constexpr const char* kConcentration = "c/ (mol/L)";
constexpr const char* kRateP = "r(P) / mol/(L {U} )";
constexpr const char* kCstrTitle = "mean residence time in the CSTR t/{U}";
constexpr const char* kCascadeTimeTitle =
    "mean residence time in the stirred tanks-in-series t/{U}";
constexpr const char* kStageShort = "stage of the tanks-in-series";
constexpr const char* kStage = "stage of the stirred tanks-in-series";
constexpr const char* kTubeProfile = "concentration profile in the tube";
constexpr const char* kTubeLength = "length l / m";
constexpr const char* kSaturationNormalized = "c(S)/KM      (KM = Michaelis constant)";
constexpr const char* kSaturation = "c(S)/(mol/L)";
constexpr const char* kSaturationRate = "r(P) / r(P)(max)";

// clang-format off
constexpr DiagramKindRow kKinds[] = {
    {.kind = kKindMichaelisMenten, .curves = 1,
     .header = "Evaluation enzyme kinetics, Michaelis-Menten model",
     .xTitle = "c(S) / (mol/L)", .yTitle = kRateP,
     .x = &KoordMemory::RngC, .y = &KoordMemory::RngR},
    {.kind = kKindEadie, .curves = 1, .header = "EADIE evaluation",
     .xTitle = "r(P)/c(S) / {U}^-1", .yTitle = kRateP,
     .x = &KoordMemory::RngRC, .y = &KoordMemory::RngR},
    {.kind = kKindHanesWoolf, .curves = 1, .header = "HANES/WOOLF evaluation",
     .xTitle = "c(S) / (mol/L)", .yTitle = "c(S)/r(P) / {U}",
     .x = &KoordMemory::RngC, .y = &KoordMemory::RngCR},
    {.kind = kKindLineweaverBurk, .curves = 1, .header = "LINEWEAVER/BURK evaluation",
     .xTitle = "1/c(S) / (L/mol)", .yTitle = "1/r(P) / (L {U}/mol)",
     .x = &KoordMemory::RngInvC, .y = &KoordMemory::RngInvR},
    {.kind = kKindLambdaSecondOrder, .curves = 1,
     .header = "lambda evaluation 2nd order A + B => P (c(A)0<>c(B)0)",
     .xTitle = kTime, .yTitle = "lambda_inf / (lambda_inf-lambda)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngLam2},
    {.kind = kKindLambdaFirstOrder, .curves = 1, .header = "lambda evaluation 1st order A => P",
     .xTitle = kTime, .yTitle = "ln (lambda_inf-lambda)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngLam1},
    {.kind = kKindFitPoints, .curves = 1, .header = "exper. points c(i) vs. time, fitting of k",
     .xTitle = kTime, .yTitle = kConcentration,
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .pointLegend = true},
    {.kind = kKindMixedSecondOrder, .curves = 1,
     .header = "evaluation of exp. data according to 2nd order reaction A + B => P "
               "(c(A,0) <> c(B,0)) ",
     .xTitle = kTime, .yTitle = "ln(c(A)/c(B))",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngLnAB},
    {.kind = kKindWilkinson, .curves = 1,
     .header = "evaluation of exp. data according to Wilkinson",
     .xTitle = kTime, .yTitle = "t/[(c(A,0) - c(A))/c(A,0)]",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngWilk},
    {.kind = kKindSecondOrder, .curves = 1,
     .header = "evaluation of exp. data according to 2nd-order: 2A => P ",
     .xTitle = kTime, .yTitle = "1/(c(A)/ (mol/L))",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngInvC},
    {.kind = kKindFirstOrder, .curves = 1,
     .header = "evaluation of exp. data according to 1st-order: A => P",
     .xTitle = kTime, .yTitle = "ln(c(A)/ (mol/L))",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngLnC},
    {.kind = kKindEyring, .curves = 1, .header = "ln(k/T) vs. 1/T, EYRING",
     .xTitle = "1/ (T/K) ", .yTitle = "ln(k/T) ",
     .x = &KoordMemory::RngInvT, .y = &KoordMemory::RngLnKT},
    {.kind = kKindArrhenius, .curves = 1, .header = "ln(k) vs. 1/T, ARRHENIUS",
     .xTitle = "1/ (T/K) ", .yTitle = "ln(k) ",
     .x = &KoordMemory::RngInvT, .y = &KoordMemory::RngLnK},
    {.kind = kKindKOfT, .curves = 1, .header = "measured rate constants k vs. temperature",
     .xTitle = "T/ K ", .yTitle = "k ",
     .x = &KoordMemory::RngTemp, .y = &KoordMemory::RngK},
    {.kind = kKindPoints, .curves = 1, .header = "measured concentrations vs. time",
     .xTitle = kTime, .yTitle = kConcentration,
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .pointLegend = true},
    {.kind = 1, .curves = 2,
     .header = "Course of concentration for the 0th-order reaction A => P",
     .xTitle = kTime, .yTitle = "c(A), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "AP",
     .reactor = {
      "CSTR; 0th order reaction A => P",
      "stirred tanks-in-series; 0th order reaction A => P",
      kStageShort, "concentr. profile in the tube reactor", "length l/m"},
     .pointLegend = true},
    {.kind = 2, .curves = 2,
     .header = "course of concentration for the 1st-order reaction A => P",
     .xTitle = kTime, .yTitle = "c(A), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "AP",
     .reactor = {
      "CSTR; 1st order reaction A => P",
      "stirred tanks-in-series; 1st order reaction A => P",
      kStageShort, kTubeProfile, kTubeLength}},
    {.kind = 3, .curves = 2,
     .header = "course of concentration for the 2nd-order reaction 2A => P",
     .xTitle = kTime, .yTitle = "c(A), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "AP",
     .reactor = {
      "CSTR; 2nd order reaction 2A => P",
      "stirred tanks-in-series; 2nd order reaction 2A => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 4, .curves = 3,
     .header = "course of concentration for the 2nd-order reaction A + B => P",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABP",
     .reactor = {
      "CSTR; 2nd order reaction A + B => P",
      "stirred tanks-in-series; 2nd order reaction A + B => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 5, .curves = 2,
     .header = "course of concentration for the autocatalytic reaction A => P",
     .xTitle = kTime, .yTitle = "c(A), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "AP",
     .reactor = {
      "CSTR; autocatalytic reaktion A => P",
      "stirred tanks-in-series; autocatalytic reaktion A => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 6, .curves = 3,
     .header = "course of concentration for the consecutive 1st-order reaction  A => C => P",
     .xTitle = kTime, .yTitle = "c(A), c(C), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ACP",
     .reactor = {
      "CSTR; 1st-order consecutive reaction A => C => P",
      "stirred tanks-in-series; 1st-order consecutive reaction A => C => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 7, .curves = 4,
     .header = "course of concentration for the concurrent consecutive reaction  A + B => C;  "
               "A + C => P",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(C), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABCP",
     .reactor = {
      "CSTR; concurrent consecutive 2nd-order reaction A + B => C; A + C => P",
      "stirred tanks-in-series; concurrent consecutive 2nd-order reaction A + B => C; A + C => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 8, .curves = 2,
     .header = "course of concentration for the reversible 1st-order reaction A <=> P",
     .xTitle = kTime, .yTitle = "c(A), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "AP",
     .reactor = {
      "CSTR; reversible 1st-order reaction A <=> P,  K = k>/k< ",
      "stirred tanks-in-series; reversible 1st-order reaction A <=> P,  K = k>/k< ",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 9, .curves = 4,
     .header = "course of concentration for consecutive 2nd-order reaction A + B => C => P",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(C), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABCP",
     .reactor = {
      "CSTR; consecutive 2nd-order reaction A + B => C => P",
      "stirred tanks-in-series; consecutive 2nd-order reaction A + B => C => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 10, .curves = 4,
     .header = "MICHAELIS-MENTEN mechanism E + S <=> ES => P + E, KM/(mol/L) = (k<+k3)/k> = {KM}",
     .xTitle = kTime, .yTitle = "c(E), c(S), c(ES), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABCP",
     .reactor = {
      "CSTR; MICHAELIS-MENTEN mechanism (enzyme reaction) E + S <=> ES => P + E",
      "stirred tanks-in-series; MICHAELIS-MENTEN mechanism (enzyme reaction) E + S <=> ES => P "
      "+ E",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 11, .curves = 3,
     .header = "course of concentration for the competing 1st-order reactions  A => P;  A => Q",
     .xTitle = kTime, .yTitle = "c(A), c(P), c(Q)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "APQ",
     .reactor = {
      "CSTR; competing 1st-order reactions  A => P;  A => Q",
      "stirred tanks-in-series; competing 1st-order reactions  A => P;  A => Q",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 12, .curves = 3,
     .header = "course of concentration for the reversible 2nd-order reaction A + B <=> 2P",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABP",
     .reactor = {
      "CSTR; 2nd-order reversible reaction A + B <=> 2P,  K = k>/k< ",
      "stirred tanks-in-series; 2nd-order reversible reaction A + B <=> 2P,  K = k>/k< ",
      kStage, "concentration profile in the TFR", kTubeLength}},
    {.kind = 13, .curves = 4,
     .header = "consecutive 2nd-order reaction with downstream equilibrium A + B => C <=> P,  "
               "K = k>/k< ",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(C), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABCP",
     .reactor = {
      "CSTR; consecutive 2nd-order reaction with downstream equilibrium A + B => C <=> P",
      "stirred tanks-in-series; consecutive 2nd-order reaction with downstream equilibrium A + "
      "B => C <=> P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 14, .curves = 3,
     .header = "consecutive 1st-order reaction with downstream equilibrium A => C <=> P,  K = "
               "k>/k<",
     .xTitle = kTime, .yTitle = "c(A), c(C), c(P) / (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ACP",
     .reactor = {
      "CSTR; consecutive 1st-order reaction with downstream equilibrium A => C <=> P",
      "stirred tanks-in-series; consecutive 1st-order reaction with downstream eqilibrium A => "
      "C <=> P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 15, .curves = 3,
     .header = "consecutive 1st-order reaction with preceding reversible reaction A <=> C => "
               "P,  K = k>/k< ",
     .xTitle = kTime, .yTitle = "c(A), c(C), c(P) / (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ACP",
     .reactor = {
      "CSTR; consecutive 1st-order reaction with upstream equilibrium A <=> C => P",
      "stirred tanks-in-series; consecutive 1st-order reaction with upstream equilibrium A <=> "
      "C => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 16, .curves = 3,
     .header = "autocatalysis A => P + Q  (Catalyst = P)",
     .xTitle = kTime, .yTitle = "c(A), c(P), c(Q)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "APQ",
     .reactor = {
      "CSTR; autocatalytic reaction A => P + Q  (catalyst = P)",
      "stirred tanks-in-series; autocatalytic reaction A => P + Q  (catalyst = P)",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 17, .curves = 3,
     .header = "course of concentration for the reversible 2nd-order reaction A + B <=> P",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABP",
     .reactor = {
      "CSTR; 2nd-order reversible reaction A + B <=> P,  K = k>/k< ",
      "stirred tanks-in-series; 2nd-order reversible reaction A + B <=> P,  K = k>/k< ",
      kStage, "concentration profile in the TFR", kTubeLength}},
    {.kind = 18, .curves = 4,
     .header = "consecutive reaction with upstream equilibrium A + B <=> C => P,  K = k>/k< ",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(C), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABCP",
     .reactor = {
      "CSTR; consecutive reaction with upstream eqilibrium A + B <=> C => P",
      "stirred tanks-in-series; consecutive reaction with upstream equilibrium A + B <=> C => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 19, .curves = 4,
     .header = "course of concentration for a reversible 2nd-order rct. A + B <=> P + Q,  K = "
               "k>/k< ",
     .xTitle = kTime, .yTitle = "c(A), c(B), c(P)/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "ABPQ",
     .reactor = {
      "CSTR; 2nd-order reversible reaction A + B <=> P + Q,  K = k>/k< ",
      "stirred tanks-in-series; 2nd-order reversible reaction A + B <=> P + Q,  K = k>/k< ",
      kStage, "concentration profile in the TFR", kTubeLength}},
    {.kind = 20, .curves = 2,
     .header = "reaction rates r, n-th-order reaction A => P",
     .xTitle = kTime, .yTitle = "c(A), c(P) / (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC, .species = "AP",
     .reactor = {
      "CSTR; nth-order reaction A => P",
      "stirred tanks-in-series; nth-order reaction A => P",
      kStage, kTubeProfile, kTubeLength}},
    {.kind = 51, .curves = 2,
     .header = "reaction rates r(i) = (dc(i)/dt), 0th-order reaction A => P",
     .xTitle = kTime, .yTitle = "r(A), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 52, .curves = 2,
     .header = "reaction rates r(i) = (dc(i)/dt), 1st-order reaction A => P",
     .xTitle = kTime, .yTitle = "r(A), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 53, .curves = 2,
     .header = "reaction rates r(i) = (dc(i)/dt), 2nd-order reaction 2A => P",
     .xTitle = kTime, .yTitle = "r(A), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 54, .curves = 3,
     .header = "reaction rates r(i) = (dc(i)/dt), 2nd-order reaction A + B => P",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 55, .curves = 2,
     .header = "reaction rates r(i) = (dc(i)/dt), autocatalytic reaction A => P",
     .xTitle = kTime, .yTitle = "r(A), r(P) / (mol/L/{U})\"",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 56, .curves = 3,
     .header = "reaction rates r(i) = (dc(i)/dt), consecutive 1st-order reaction A => C => P",
     .xTitle = kTime, .yTitle = "r(A), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 57, .curves = 4,
     .header = "reaction rates r(i) = (dc(i)/dt), competing consecutuve reaction A + B => C; A "
               "+ C => P",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 58, .curves = 2,
     .header = "reaction rates r(i) = (dc(i)/dt), reversible 1st-order rct. A <=> P,  K = k>/k< ",
     .xTitle = kTime, .yTitle = "r(A), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 59, .curves = 4,
     .header = "reaction rates r(i) = (dc(i)/dt), consecutive 2nd-order reaction A + B => C => P",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 60, .curves = 4,
     .header = "reaction rates r(i) = (dc(i)/dt), enzyme rct. E + S <=> ES => P * E,  "
               "KM/(mol/L) = (k< + k3) / k> = {KM}",
     .xTitle = kTime, .yTitle = "r(E), r(S), r(ES), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 61, .curves = 3,
     .header = "reaction rates r(i) = (dc(i)/dt), competing 1st-order reactions A => P;  A => Q",
     .xTitle = kTime, .yTitle = "r(A), r(P), r(Q) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 62, .curves = 3,
     .header = "reaction rate r(i) = (dc(i)/dt), reversible reakt. 2nd order A + B <=> 2P,  K "
               "= k>/k< ",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 63, .curves = 4,
     .header = "reaction rates r(i)=(dc(i)/dt), consecutive 2nd-order rct. with following "
               "revers. rct. A+B=>C<=>P,  K=k>/k<",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 64, .curves = 3,
     .header = "reaction rates r(i)=(dc(i)/dt), consecutive 1st-order rct. with downstream "
               "equilibrium A=>C<=>P,  K=k>/k<",
     .xTitle = kTime, .yTitle = "r(A), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 65, .curves = 3,
     .header = "reaction rates r(i)= dc(i)/dt), consecutive 1st-order rct. with upstream "
               "equilibrium A<=>C=>P,  K=k>/k<",
     .xTitle = kTime, .yTitle = "r(A), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 66, .curves = 3,
     .header = "reaction rates r(i) = (dc(i)/dt), autocatalyt. rct. A => P + Q  (catalyst P)",
     .xTitle = kTime, .yTitle = "r(A), r(P), r(Q) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 67, .curves = 3,
     .header = "reaction rates r(i) = (dc(i)/dt), reversible 2nd-order reaction A + B <=> P,  "
               "K = k>/k< ",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 68, .curves = 4,
     .header = "reaction rates r(i) = (dc(i)/dt), consecutive rct. with upstream equilibrium A "
               "+ B <=> C => P,  K = k>/k< ",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(C), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 69, .curves = 4,
     .header = "reaction rates r(i) = (dc(i)/dt), reversible 2nd-order reaction A + B <=> P + "
               "Q,  K = k>/k< ",
     .xTitle = kTime, .yTitle = "r(A), r(B), r(P), r(Q) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = 70, .curves = 2,
     .header = "reaction rates r(i) = (dc(i)/dt), nth-order reaction A => P",
     .xTitle = kTime, .yTitle = "r(A), r(P) / (mol/L/{U})",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngR},
    {.kind = kKindSingleSpecies, .curves = 1, .header = "concentration c({c}) vs. time",
     .xTitle = kTime, .yTitle = "c({c})/ (mol/L)",
     .x = &KoordMemory::RngT, .y = &KoordMemory::RngC},
    {.kind = kKindTracer, .curves = 1, .header = "c(Tracer) at reactor outlet",
     .xTitle = "time (rel.) (100 = total time of the experiment)",
     .yTitle = "rel. time t (100 = duration of the experiment)",
     .fixed = {0, 100, 0, 1}, .sideWindow = true},
    {.kind = kKindResidenceFirst, .curves = 1, .header = "Residence-Time Distribution E = f(t)",
     .xTitle = "time of the experiment t/{U}", .yTitle = "E / {U}^-1",
     .fixed = {0, 40, -0.005F, 0.11F}, .sideWindow = true},
    {.kind = 113, .curves = 1,
     .header = "Residence-Time Distribution (dimensionless) E * tm = f(t/tm)",
     .xTitle = "time ratio t/tm", .yTitle = "E * tm",
     .fixed = {0, 4, -0.01F, 0.11F}, .sideWindow = true},
    {.kind = 114, .curves = 1, .header = "cumulat. residence time distribution F = f(t)",
     .xTitle = "time t/{U}", .yTitle = "F",
     .fixed = {0, 40, -0.01F, 1.05F}, .sideWindow = true},
    {.kind = kKindResidenceLast, .curves = 1,
     .header = "cumulat. residence time distribution F = f(t/tm)",
     .xTitle = "time ratio t/tm", .yTitle = "F",
     .fixed = {0, 4, -0.01F, 1.05F}, .sideWindow = true},
    {.kind = kKindBloodAlcohol, .curves = 1,
     .header = "blood alcohol concentr. BAC = f(t) in the human body",
     .xTitle = "Time t / min", .yTitle = "BAC / (g/kg) = \"per mill\"", .sideWindow = true},
};

/// What the context changes in a row; null: nothing.
struct KindVariant {
    int kind;
    bool (*applies)(const ProjectState&);
    const char* header;
    const char* xTitle;
    const char* yTitle;
    int curves = 0;
};

constexpr bool (*kFitsOrder)(const ProjectState&) =
    [](const ProjectState& ps) { return ps.FitMode == kFitOrder; };
constexpr bool (*kFitsFirstOrder)(const ProjectState&) =
    [](const ProjectState& ps) { return ps.FitMode == kFitFirstOrderT; };
constexpr bool (*kFitsSecondOrder)(const ProjectState&) =
    [](const ProjectState& ps) { return ps.FitMode == kFitSecondOrderT; };
constexpr bool (*kLambdaZeroKnown)(const ProjectState&) =
    [](const ProjectState& ps) { return ps.LambdaZero != 0; };
constexpr bool (*kNormalized)(const ProjectState&) =
    [](const ProjectState& ps) { return ps.MMDiagram && ps.MMNormalized; };
constexpr bool (*kNotNormalized)(const ProjectState&) =
    [](const ProjectState& ps) { return ps.MMDiagram && !ps.MMNormalized; };

constexpr const char* kSaturationHeader =
    "MICHAELIS-MENTEN mechanism (enzyme reaction) Michaelis constant KM/(mol/L) = (k<+k3)/k> = "
    "{KM}";
constexpr const char* kSaturationRateHeader =
    "enzyme reaction Michaelis-Menten; Michaelis constant KM/(mol/L) ={KM}";

constexpr KindVariant kVariants[] = {
    {kKindLambdaSecondOrder, [](const ProjectState& ps) { return IsSecondOrderInA(ps.ModelId); },
     "lambda evaluation 2nd order 2A => P", nullptr, nullptr},
    {kKindLambdaSecondOrder, kLambdaZeroKnown, nullptr, nullptr,
     "[(lambda_inf-lambda_0)/(lambda_inf-lambda)]/c(A)0"},
    {kKindLambdaFirstOrder, kLambdaZeroKnown, nullptr, nullptr,
     "ln [(lambda_inf-lambda)/(lambda_inf-lambda_0)]"},
    {kKindFitPoints, kFitsOrder, "exper. points concentr. vs. time, fitting order of reaction",
     nullptr, nullptr},
    {kKindFitPoints, kFitsFirstOrder,
     "exper. points concentr. vs. time, 1st-order, non-isothermal", nullptr, "c(A)/c(A,0)"},
    {kKindFitPoints, kFitsSecondOrder,
     "exper. points concentration vs. time, 2nd-order, non-isothermal", nullptr, "c(A)/ (mol/L)"},
    {kKindSecondOrder, [](const ProjectState& ps) { return ps.TwoSpeciesEqual; },
     "evaluation of exp. data according to 2nd-order reaction A + B => P (c(A,0) = c(B,0)) ",
     nullptr, nullptr},
    {2, kFitsFirstOrder, nullptr, nullptr, "c(A)/c(A,0)"},
    {3, kFitsSecondOrder, nullptr, nullptr, "c(A)/ (mol/L)"},
    {kEnzymeModel, kNormalized, kSaturationHeader, kSaturationNormalized, kSaturationRate, 1},
    {kEnzymeModel, kNotNormalized, kSaturationHeader, kSaturation, kSaturationRate, 1},
    {kEnzymeModel + kRateKinds, kNormalized, kSaturationRateHeader, kSaturationNormalized,
     kSaturationRate, 1},
    {kEnzymeModel + kRateKinds, kNotNormalized, kSaturationRateHeader, kSaturation,
     kSaturationRate, 1},
};
// clang-format on

/// Header and x title of a model's diagram in the reactor of the context, tube first.
void ApplyReactor(const ProjectState& ps, const DiagramKindRow& row, const char*& header,
                  const char*& xTitle) {
    const ReactorTexts& texts = row.reactor;
    if (texts.cstrHeader == nullptr)
        return;
    if (ps.IsTubular) {
        header = texts.tubeHeader;
        xTitle = texts.tubeTitle;
    } else if (ps.IsCSTR) {
        header = texts.cstrHeader;
        xTitle = kCstrTitle;
    } else if (ps.IsCascade) {
        header = texts.cascadeHeader;
        xTitle = ps.CascadeTimeAxis ? kCascadeTimeTitle : texts.stageTitle;
    }
}

void Replace(std::string& text, std::string_view mark, const std::string& by) {
    const std::size_t at = text.find(mark);
    if (at != std::string::npos)
        text.replace(at, mark.size(), by);
}

std::string Filled(const ProjectState& ps, const char* pattern) {
    constexpr std::string_view kLetters = "ABCPQ";
    std::string text = pattern;
    Replace(text, "{U}", ps.TimeUnitText);
    Replace(text, "{KM}", PlainText(ps.KM));
    const int slot = std::clamp(ps.SingleSpecies, 1, kSpecies);
    Replace(text, "{c}", std::string(1, kLetters[static_cast<std::size_t>(slot - 1)]));
    return text;
}

} // namespace

std::span<const DiagramKindRow> DiagramKinds() {
    return kKinds;
}

const DiagramKindRow* FindDiagramKind(int kind) {
    for (const DiagramKindRow& row : kKinds)
        if (row.kind == kind)
            return &row;
    return nullptr;
}

bool DescribeDiagram(const ProjectState& ps, int kind, DiagramTexts& texts, int& curves) {
    const DiagramKindRow* row = FindDiagramKind(kind);
    if (row == nullptr)
        return false;
    const char* header = row->header;
    const char* xTitle = row->xTitle;
    const char* yTitle = row->yTitle;
    curves = row->curves;
    ApplyReactor(ps, *row, header, xTitle);
    for (const KindVariant& variant : kVariants) {
        if (variant.kind != kind || !variant.applies(ps))
            continue;
        header = variant.header != nullptr ? variant.header : header;
        xTitle = variant.xTitle != nullptr ? variant.xTitle : xTitle;
        yTitle = variant.yTitle != nullptr ? variant.yTitle : yTitle;
        curves = variant.curves != 0 ? variant.curves : curves;
    }
    texts = {Filled(ps, header), Filled(ps, xTitle), Filled(ps, yTitle)};
    return true;
}

bool IsModelKind(int kind) {
    return ModelOfKind(kind) != 0;
}

int ModelOfKind(int kind) {
    if (kind >= 1 && kind <= kModels)
        return kind;
    if (kind > kRateKinds && kind <= kRateKinds + kModels)
        return kind - kRateKinds;
    return 0;
}

bool IsMichaelisMentenCurve(const ProjectState& ps) {
    return ps.MMDiagram && IsEnzymeModel(ps.ModelId);
}

std::string PointSetName(const ProjectState& ps, int slot) {
    return std::string("c(") + SpeciesName(ps.ModelId, slot) + ")";
}

} // namespace zorvant
