#include "engine/project_state.h"

#include "engine/reaction_catalogue.h"
#include "engine/time_units.h"
#include "platform/host.h"

#include <stdexcept>

namespace zorvant {
namespace {

/// Last index of the course tables before the first calculation.
constexpr std::size_t kStartTableEnd = 300;
/// A clock that gives the same value this often stands still; waiting for it would never end.
constexpr int kStandingClock = 10'000'000;

} // namespace

std::vector<double>& cSim(ProjectState& ps, int slot) {
    switch (slot) {
    case 1:
        return ps.cSimA;
    case 2:
        return ps.cSimB;
    case 3:
        return ps.cSimC;
    case 4:
        return ps.cSimP;
    case 5:
        return ps.cSimQ;
    default:
        throw std::out_of_range("species slot " + std::to_string(slot));
    }
}

const std::vector<double>& cSim(const ProjectState& ps, int slot) {
    return cSim(const_cast<ProjectState&>(ps), slot);
}

std::vector<float>& rSim(ProjectState& ps, int slot) {
    switch (slot) {
    case 1:
        return ps.rSimA;
    case 2:
        return ps.rSimB;
    case 3:
        return ps.rSimC;
    case 4:
        return ps.rSimP;
    case 5:
        return ps.rSimQ;
    default:
        throw std::out_of_range("species slot " + std::to_string(slot));
    }
}

const std::vector<float>& rSim(const ProjectState& ps, int slot) {
    return rSim(const_cast<ProjectState&>(ps), slot);
}

void InitProjectState(ProjectState& ps) {
    ps.tSim.assign(kStartTableEnd + 1, 0);
    for (int slot = 1; slot <= kSpecies; ++slot) {
        cSim(ps, slot).assign(kStartTableEnd + 1, 0);
        rSim(ps, slot).assign(kStartTableEnd + 1, 0);
    }
    ps.DecimalComma = host().decimalComma();

    ps.ProgramDir = host().programDirectory;
    ps.ProjectDir = ps.TableDir = ps.DataDir = ps.GraphDir = ps.XYDir = ps.ProgramDir;
    ps.LastSessionFile = ps.ProgramDir + "/ZorLastSession.ZC3";

    FillTimeFactor(ps);
    for (int id = 1; id <= kModels; ++id)
        ps.ModelName[static_cast<std::size_t>(id)] = Model(id).name;
    SetDefaultK(ps);
}

bool InMask(const std::string& mask, int slot) {
    return slot >= 1 && static_cast<std::size_t>(slot) <= mask.size() &&
           mask[static_cast<std::size_t>(slot - 1)] == '1';
}

void BeginWait(ProjectState& ps) {
    if (++ps.WaitDepth == 1) {
        host().waitPointer(true);
        ps.Busy = true;
    }
}

void EndWait(ProjectState& ps) {
    if (ps.WaitDepth == 0)
        return;
    if (--ps.WaitDepth < 1) {
        host().waitPointer(false);
        ps.Busy = false;
    }
}

void Wait(double seconds) {
    constexpr double kDay = 86400;
    const double start = host().clockSeconds();
    double last = start;
    int standing = 0;
    while (true) {
        const double now = host().clockSeconds();
        const double passed = now < start ? now + kDay - start : now - start;
        if (!(passed < seconds))
            return;
        standing = now == last ? standing + 1 : 0;
        if (standing == kStandingClock)
            return;
        last = now;
        host().serviceEvents();
    }
}

} // namespace zorvant
