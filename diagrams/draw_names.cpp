#include "diagrams/draw_names.h"

#include "engine/reaction_catalogue.h"
#include "platform/number_text.h"

#include <algorithm>

namespace zorvant {
namespace {

constexpr std::size_t kMostNamed = 3;

struct Input {
    std::string name;
    double (*value)(const DrawInputs&, std::size_t);
    std::size_t index;
    double Of(const CurveDraw& draw) const { return value(draw.inputs, index); }
};

/// The inputs that a model has.
std::vector<Input> InputsOfModel(int model) {
    std::vector<Input> inputs;
    const ReactionModel& row = Model(model);
    for (std::size_t i = 1; i <= 3; ++i)
        inputs.push_back({row.constantCaptions[i],
                          [](const DrawInputs& of, std::size_t at) { return of.k[at]; }, i});
    for (std::size_t slot = 1; slot <= kSpecies; ++slot)
        inputs.push_back({std::string("c(") + SpeciesName(model, static_cast<int>(slot)) + ",0)",
                          [](const DrawInputs& of, std::size_t at) { return of.c0[at]; }, slot});
    return inputs;
}

bool Differs(const Input& input, const std::vector<CurveDraw>& draws) {
    return std::ranges::any_of(
        draws, [&](const CurveDraw& draw) { return input.Of(draw) != input.Of(draws.front()); });
}

} // namespace

DrawInputs InputsOf(const ProjectState& ps) {
    DrawInputs inputs{.model = ps.ModelId, .k = {}, .c0 = {}};
    std::copy_n(ps.k.begin(), inputs.k.size(), inputs.k.begin());
    std::copy_n(ps.c0.begin(), inputs.c0.size(), inputs.c0.begin());
    return inputs;
}

std::vector<std::string> WhatChanged(const std::vector<CurveDraw>& draws) {
    std::vector<std::string> texts(draws.size());
    if (draws.size() < 2 || std::ranges::any_of(draws, [&](const CurveDraw& draw) {
            return draw.inputs.model != draws.front().inputs.model;
        }))
        return texts;
    std::vector<Input> changed;
    for (const Input& input : InputsOfModel(draws.front().inputs.model))
        if (Differs(input, draws))
            changed.push_back(input);
    for (std::size_t i = 0; i < draws.size(); ++i) {
        if (changed.size() > kMostNamed) {
            texts[i] = ", no. " + std::to_string(i + 1);
            continue;
        }
        for (const Input& input : changed)
            texts[i] += ", " + input.name + " = " + Trim(GeneralText(input.Of(draws[i])));
    }
    return texts;
}

} // namespace zorvant
