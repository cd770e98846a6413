#include "dialogs/residence/captions.h"

namespace zorvant {

VerweilCaptions MakeVerweilCaptions(const ProjectState& ps) {
    const bool series = ps.NVerweil > 1;
    return {"volume flow V*/m^3/" + ps.TimeUnitText + ")",
            "mean resid. time tm/" + ps.TimeUnitText + (series ? " (total)" : ""),
            series ? "Stirred tanks-in-series" : "ideal cont. stirred tank"};
}

const AxisCaptions& MakeAxisCaptions(bool xAchseZeit) {
    static constexpr AxisCaptions kOverTime{"Residence-Time Distribution E(t)",
                                            "Draw curve\nE vs. t", "Draw curve\nF vs. t"};
    static constexpr AxisCaptions kOverTheta{"Residence-Time Distribution E(t)*t(m)",
                                             "Draw curve\nE tm vs. t/tm", "Draw curve\nF vs. t/tm"};
    return xAchseZeit ? kOverTime : kOverTheta;
}

} // namespace zorvant
