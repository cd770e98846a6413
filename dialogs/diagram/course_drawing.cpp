#include "dialogs/diagram/course_drawing.h"

#include "dialogs/diagram/coordinates.h"
#include "dialogs/diagram/dispatcher.h"
#include "engine/modes.h"
#include "engine/reaction_catalogue.h"
#include "engine/time_course.h"

namespace zorvant {

void DrawCourse(Workspace& ps, DiagramDocument& diagram, double tEnd) {
    const WaitScope wait(ps);
    ps.DiagramKind = ps.RateDiagram ? ps.ModelId + kRateKinds : ps.ModelId;
    FuMaskenSetzen(ps, ps.DiagramKind);
    ps.NPoints = kCurveIntervals;
    bool err = false;
    calc_diagram_function(ps, ps.ModelId, tEnd, err);
    if (ps.AddCurves) {
        GrafZentrale(ps, diagram);
        cmdDraw_Click(ps, diagram);
        return;
    }
    UnloadForm(ps.desktop, diagram);
    if (err)
        return;
    FuDatenBereiche(ps, ps.DiagramKind);
    GrafZentrale(ps, diagram);
}

} // namespace zorvant
