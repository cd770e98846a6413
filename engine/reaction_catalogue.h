// The twenty reaction models as one table. Captions, masks, flags, stoichiometry and defaults are
// read from here by everything else.
#pragma once

#include "engine/project_state.h"

#include <array>
#include <span>
#include <string_view>

namespace zorvant {

/// What unit a rate constant has.
enum class ConstantUnit {
    None,        ///< no unit shown (order n)
    PerTime,     ///< 1/TU
    PerTimeConc, ///< L/(TU mol)
    ConcPerTime  ///< mol/(TU L)
};

/// A coefficient of the matrix: reaction 1..3, species slot 1..5.
struct StoichEntry {
    int reaction;
    int slot;
    float coefficient;
};

/// A start concentration set at a selection: slot 0 is unused.
struct ConcentrationDefault {
    int slot;
    double value; ///< mol/L, taken when c0(slot) is 0
    bool unlessP; ///< only when c0(4) is 0 as well
};

struct ReactionModel {
    int id;
    int option; ///< index in the model dialog; 0 for the n-th order reaction
    const char* caption;
    const char* name;
    const char* speciesMask;
    const char* rateMask;
    bool singleReaction;
    bool reversibleA;
    bool equilibrium;
    bool numeric;
    std::array<ConstantUnit, 4> units; ///< of k1..k3 at 1..3
    /// Set by "default values", 1/s and so on; 0: left as it is.
    std::array<double, 4> resetK;
    /// Set at a selection when the constant is 0, as plain numbers; 0: left as it is.
    std::array<double, 4> selectionK;
    std::array<ConcentrationDefault, 2> selectionC;
    /// Captions of the constants.
    std::array<const char*, 4> constantCaptions;
    /// Entries with reaction 0 are unused; -n of model 20: see FillStoich.
    std::array<StoichEntry, 9> stoich;
};

/// Model 1..20. Errors: std::out_of_range.
const ReactionModel& Model(int id);
/// The model of an option of the model dialog (0 is model 20).
int ModelOfOption(int option);

/// The short name; while the order is fitted, model 20 reads "A => P, variable order of rct.".
std::string ModelNameText(const ProjectState& ps, int id);
/// "kinetic model: " and the name, for model 20 with its order: " (n = 1.50)".
std::string ModelCaption(const ProjectState& ps);

/// Writes the matrix of the selected model; row 1 of model 20 holds -n.
void FillStoich(ProjectState& ps);

/// "A".."Q", for model 10 "E", "S", "ES", "P", "Q".
const char* SpeciesName(int modelId, int slot);

/// What takes part in a model: a digit for each species slot and for each constant, "10010", "100".
/// While its parameters are fitted, the digits mean the parameters that vary.
struct ModelMasks {
    const char* species;
    const char* rates;
};
ModelMasks MasksOfModel(int modelId, int fitMode);

/// Sets SpeciesMask, RateMask, DiagramOfRc and DiagramOfTk for a kind of diagram or a model.
void FuMaskenSetzen(ProjectState& ps, int kind);

/// Properties of the models that calculations and dialogs ask for.
inline constexpr int kEnzymeModel = 10;
/// E + S <=> ES => P + E; its species have other names, its data may be r(P) against c(S).
bool IsEnzymeModel(int modelId);
/// 5 and 16: nothing reacts without a trace of P.
bool IsAutocatalytic(int modelId);
/// 20: A => P of order n.
bool HasOrder(int modelId);
/// 19: A + B <=> P + Q may begin from either side.
bool BeginsFromEitherSide(int modelId);
/// 4, 9, 10, 13 and 18: A and B go one to one, so that a conversion of A needs as much B.
bool ConsumesBAsMuchAsA(int modelId);
/// 3: 2 A => P, whose rate constant counts two of A.
bool IsSecondOrderInA(int modelId);
/// 4: A + B => P
bool IsMixedSecondOrder(int modelId);

} // namespace zorvant
